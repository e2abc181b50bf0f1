#include "definition_tree.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "band_mark.h"
#include "filter_link.h"
#include "vond/extension/issue_order.h"
#include "vond/extension/issues_by_definition.h"
#include "vond/extension/words.h"
#include "vond/postprocessor/string_interface.h"
#include "vond/str/string_functions.h"
#include "wording.h"

namespace vond_html {

using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::PostprocessorExtensionData;
using vond::vocabulary::SeverityBand;
using vond::vocabulary::SeverityBandTable;

namespace {

/// How many issues of a band the page names under one definition.
constexpr std::size_t MOST_ISSUES = 20;

/// The issues of a definition in one band.
struct OwnIssues {
  SeverityBand band;
  std::size_t count = 0;
  std::vector<const CollapsedAnalysisOutput*> on_page;
};

bool fails(const vond::Fwd& definition) { return !definition.skipped && !definition.passed; }

std::string_view shape_of(std::string_view status) {
  return status == "PASS" ? "✔" : status == "FAIL" ? "✖" : "–";
}

std::string_view class_of(std::string_view status) {
  return status == "PASS" ? "pass" : status == "FAIL" ? "fail" : "skipped";
}

bool has_children(const vond::FwdNode& node) {
  return std::any_of(node.child_groups.begin(), node.child_groups.end(),
                     [](const auto& group) { return !group.children.empty(); });
}

/// Whether the page has some of these issues.
bool has_links(const std::vector<OwnIssues>& own) {
  return std::any_of(own.begin(), own.end(),
                     [](const OwnIssues& issues) { return !issues.on_page.empty(); });
}

/// Returns the fragment that asks the script for a definition's issues of a band.
std::string filter_of(const std::string& definition, const SeverityBand& band) {
  return filter_fragment({{"band", band_class(band)}, {"definition", shortened_name(definition)}});
}

/// Writes definitions with what is below them.
class DefinitionTree {
 public:
  DefinitionTree(HtmlWriter& page, const PostprocessorExtensionData& data,
                 const SeverityBandTable& bands, const PageIssues& issues)
      : page_(page), bands_(bands), page_issues_(issues), issues_(data) {}

  /// Writes a tree. `level` is how many definitions stand above it.
  void write(const vond::FwdNode& node, std::size_t level) {
    if (!take_room(*node.fwd, level)) {
      count_left_out(node);
      return;
    }
    const auto own = own_issues(*node.fwd);
    page_.open("li");
    if (!has_children(node) && !has_links(own)) {
      page_.open("div", {{"class", "leaf"}});
      write_label(*node.fwd);
      write_counts(own, &node.fwd->name);
    } else {
      open_details(fails(*node.fwd));
      page_.open("summary");
      write_label(*node.fwd);
      write_counts(own);
      page_.close();
      write_issues(node.fwd->name, own);
      write_children(node, level);
    }
    page_.close().close();
  }

  /// Returns how many definitions had no room.
  std::size_t left_out() const { return left_out_; }

 private:
  bool take_room(const vond::Fwd& definition, std::size_t level) {
    std::size_t& written = fails(definition) ? failing_written_ : others_written_;
    if (level >= MOST_LEVELS || written == MOST_DEFINITIONS) {
      return false;
    }
    ++written;
    return true;
  }

  void count_left_out(const vond::FwdNode& node) {
    ++left_out_;
    for (const auto& group : node.child_groups) {
      for (const auto& child : group.children) {
        count_left_out(*child);
      }
    }
  }

  std::vector<OwnIssues> own_issues(const vond::Fwd& definition) {
    std::vector<OwnIssues> own;
    const auto* const found = issues_.find(definition.name);
    if (found == nullptr) {
      return own;
    }
    vond::extension::for_each_issue(
        *found, bands_,
        [this, &own](const vond::extension::Issue& issue, const auto& band, auto /*type*/,
                     bool /*fails*/) {
          if (own.empty() || own.back().band != band) {
            own.push_back({band, 0, {}});
          }
          ++own.back().count;
          if (page_issues_.find(*issue) != nullptr && own.back().on_page.size() < MOST_ISSUES) {
            own.back().on_page.push_back(issue.get());
          }
        });
    return own;
  }

  void open_details(bool is_open) {
    if (is_open) {
      page_.open("details", {{"open", ""}});
    } else {
      page_.open("details");
    }
  }

  void write_label(const vond::Fwd& definition) {
    const std::string_view status = vond::extension::status_word(definition);
    page_.open("span", {{"class", "definition"}});
    write_name(page_, host_.get_short_name(definition.name));
    page_.close().text(": ");
    page_.open("span", {{"class", std::string("status ").append(class_of(status))}});
    write_shape(page_, shape_of(status));
    page_.text(" ").text(status).close();
  }

  /// Writes how many issues each band has; a script makes links of what has a definition's name.
  /// There must be no links in a line that folds out.
  void write_counts(const std::vector<OwnIssues>& own, const std::string* definition = nullptr) {
    for (const OwnIssues& issues : own) {
      page_.text(" ");
      if (definition == nullptr) {
        page_.open("span", {{"class", "own"}});
      } else {
        page_.open("span",
                   {{"class", "own"}, {"data-filter", filter_of(*definition, issues.band)}});
      }
      write_band_shape(page_, issues.band);
      page_.text(std::to_string(issues.count)).close();
    }
  }

  /// Writes a line for each band of which issues are on the page, and one for all others.
  void write_issues(const std::string& definition, const std::vector<OwnIssues>& own) {
    for (const OwnIssues& issues : own) {
      if (!issues.on_page.empty()) {
        page_.open("p", {{"class", "of-definition"}});
        write_count(definition, issues);
        write_links(issues);
        page_.close();
      }
    }
    std::string_view separator;
    for (const OwnIssues& issues : own) {
      if (!issues.on_page.empty()) {
        continue;
      }
      if (separator.empty()) {
        page_.open("p", {{"class", "of-definition"}});
      }
      page_.text(std::exchange(separator, ", "));
      write_count(definition, issues);
    }
    if (!separator.empty()) {
      page_.element("span", {{"class", "static"}}, ", not on this page").close();
    }
  }

  void write_links(const OwnIssues& issues) {
    for (std::size_t i = 0; i < issues.on_page.size(); ++i) {
      page_.text(i == 0 ? ": " : ", ");
      page_issues_.write_link(page_, *issues.on_page[i]);
    }
    const std::size_t others = issues.count - issues.on_page.size();
    if (others != 0) {
      page_.text(" and " + std::to_string(others) + " more");
    }
  }

  /// Writes how many there are, as a link to the first, which a script makes one to all.
  void write_count(const std::string& definition, const OwnIssues& issues) {
    const std::string filter = filter_of(definition, issues.band);
    if (issues.on_page.empty()) {
      page_.open("span", {{"data-filter", filter}});
    } else {
      page_.open("a", {{"href", "#" + page_issues_.anchor_of(*issues.on_page.front())},
                       {"data-filter", filter}});
    }
    page_.text(std::to_string(issues.count) + " ");
    write_band_mark(page_, issues.band);
    page_.close();
  }

  void write_children(const vond::FwdNode& node, std::size_t level) {
    if (!has_children(node)) {
      return;
    }
    page_.open("ul");
    for (const auto& group : node.child_groups) {
      for (const auto& child : group.children) {
        write(*child, level + 1);
      }
    }
    page_.close();
  }

  HtmlWriter& page_;
  const SeverityBandTable& bands_;
  const PageIssues& page_issues_;
  vond::extension::IssuesByDefinition issues_;
  vond::postprocessor::StringInterface host_;
  std::size_t failing_written_ = 0;
  std::size_t others_written_ = 0;
  std::size_t left_out_ = 0;
};

}  // namespace

void write_definitions(HtmlWriter& page, const PostprocessorExtensionData& data,
                       const SeverityBandTable& bands, const PageIssues& issues) {
  if (!data.fwd_root || data.fwd_root->roots.empty()) {
    return;
  }
  page.open("section", {{"id", "definitions"}}).element("h2", "Definitions");
  page.open("ul", {{"class", "tree"}});
  DefinitionTree tree(page, data, bands, issues);
  for (const auto& root : data.fwd_root->roots) {
    tree.write(*root, 0);
  }
  page.close();
  if (tree.left_out() != 0) {
    page.element("p", count_of(tree.left_out(), "more definition is", "more definitions are") +
                          " in the text report (-e text).");
  }
  page.close();
}

}  // namespace vond_html
