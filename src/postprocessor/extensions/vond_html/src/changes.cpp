#include "changes.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "band_mark.h"
#include "filter_link.h"
#include "vond/extension/issue_order.h"
#include "wording.h"

namespace vond_html {

namespace facts = vond::facts;

using vond::postprocessor::PostprocessorExtensionData;
using vond::vocabulary::SeverityBandTable;

namespace {

constexpr std::size_t MOST_ISSUES = 20;
/// In bytes.
constexpr std::size_t LONGEST_NODES = 1000;

struct ChangedIssue {
  const vond::postprocessor::CollapsedAnalysisOutput* issue;
  vond::vocabulary::SeverityBand band;
  facts::Change change;
};

/// The worst issues of each kind of change, whether they are on the page or not.
using ChangedIssues = std::map<std::string, std::vector<ChangedIssue>, std::less<>>;

ChangedIssues find_changed(const PostprocessorExtensionData& data, const SeverityBandTable& bands,
                           const PageIssues& issues) {
  ChangedIssues changed;
  std::size_t visited = 0;
  vond::extension::for_each_issue(
      data, bands,
      [&](const vond::extension::Issue& issue, const auto& band, auto /*type*/, bool /*fails*/) {
        // An issue that is filed twice has one number.
        if (issues.number_of(*issue) <= visited) {
          return;
        }
        ++visited;
        auto change = facts::change(*issue);
        if (!change || change->change == "same") {
          return;
        }
        std::vector<ChangedIssue>& of_kind = changed[change->change];
        if (of_kind.size() < MOST_ISSUES) {
          of_kind.push_back({issue.get(), band, std::move(*change)});
        }
      });
  return changed;
}

/// Writes lists of what has changed, a heading before each.
class ChangeLists {
 public:
  /// Keeps references.
  ChangeLists(HtmlWriter& page, const PageIssues& issues, const ChangedIssues& changed)
      : page_(page), issues_(issues), changed_(changed) {}

  /// Writes the first issues of a kind; `count` is how many there are in all.
  void write(std::string_view heading, std::string_view kind, std::size_t count) {
    if (count == 0) {
      return;
    }
    open(heading, count);
    std::size_t shown = 0;
    if (const auto of_kind = changed_.find(kind); of_kind != changed_.end()) {
      shown = of_kind->second.size();
      for (const ChangedIssue& changed : of_kind->second) {
        write_issue(changed);
      }
    }
    if (shown < count) {
      page_.open("li");
      write_filter_text(page_, {{"change", kind}}, others_text(count - shown));
      page_.close();
    }
    page_.close();
  }

  /// Writes issues that are no more, or of which that is not known.
  void write(std::string_view heading, const std::vector<facts::PastIssue>& past) {
    if (past.empty()) {
      return;
    }
    open(heading, past.size());
    const std::size_t shown = std::min(past.size(), MOST_ISSUES);
    for (std::size_t i = 0; i < shown; ++i) {
      page_.open("li");
      write_name(page_, past[i].id);
      write_nodes_behind(" on ", past[i].nodes);
      page_.close();
    }
    if (shown < past.size()) {
      page_.element("li", others_text(past.size() - shown));
    }
    page_.close();
  }

 private:
  static std::string others_text(std::size_t count) {
    return "and " + std::to_string(count) + " more";
  }

  void open(std::string_view heading, std::size_t count) {
    page_.element("h3", std::string(heading) + ": " + std::to_string(count)).open("ul");
  }

  void write_issue(const ChangedIssue& changed) {
    page_.open("li");
    write_band_shape(page_, changed.band);
    page_.text(" ");
    issues_.write_link(page_, *changed.issue);
    write_nodes_behind(changed.change.change == "new" ? " on " : ", now also on ",
                       changed.change.nodes_added);
    write_nodes_behind(", no more on ", changed.change.nodes_healed);
    page_.close();
  }

  void write_nodes_behind(const std::string& text, const std::vector<std::string>& nodes) {
    if (!nodes.empty()) {
      page_.text(text);
      write_nodes(page_, folded(nodes), LONGEST_NODES);
    }
  }

  HtmlWriter& page_;
  const PageIssues& issues_;
  const ChangedIssues& changed_;
};

void write_heading(HtmlWriter& page, const std::optional<std::int64_t>& time) {
  page.open("h2").text("Since ");
  if (time) {
    write_time(page, *time);
  } else {
    page.text("an earlier run");
  }
  page.close();
}

}  // namespace

std::string change_counts(const facts::Since& since) {
  const auto count = [](std::size_t number, std::string_view word) {
    return std::to_string(number).append(" ").append(word);
  };
  return listed(
      {count(since.new_issues, "new"), count(since.worse, "worse"),
       since.reworded == 0 ? "" : count(since.reworded, "reworded"), count(since.same, "same"),
       count(since.better, "better"), count(since.gone.size(), "gone"),
       since.not_looked_at.empty() ? "" : count(since.not_looked_at.size(), "not looked at")});
}

void write_changes(HtmlWriter& page, const PostprocessorExtensionData& data,
                   const SeverityBandTable& bands, const PageIssues& issues) {
  const auto since = facts::since();
  if (!since) {
    return;
  }
  page.open("section", {{"id", "changes"}});
  write_heading(page, since->time);
  page.element("p", change_counts(*since));
  const ChangedIssues changed = find_changed(data, bands, issues);
  ChangeLists lists(page, issues, changed);
  lists.write("New", "new", since->new_issues);
  lists.write("Worse", "worse", since->worse);
  lists.write("Reworded", "reworded", since->reworded);
  lists.write("Better", "better", since->better);
  lists.write("Gone", since->gone);
  lists.write("Not looked at", since->not_looked_at);
  if (!since->nodes_not_looked_at.empty()) {
    page.open("p").text("Nodes not looked at: ");
    write_nodes(page, folded(since->nodes_not_looked_at));
    page.close();
  }
  page.close();
}

}  // namespace vond_html
