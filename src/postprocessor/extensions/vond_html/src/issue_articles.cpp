#include "issue_articles.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "band_mark.h"
#include "issue_values.h"
#include "vond/extension/markup_text.h"
#include "vond/extension/node_summaries.h"
#include "vond/extension/text.h"
#include "vond/extension/words.h"
#include "vond/facts/run_facts.h"
#include "vond/str/string_functions.h"
#include "wording.h"

namespace vond_html {

namespace facts = vond::facts;

using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::Type;

namespace {

constexpr std::size_t MOST_LINKS = 50;

/// Writes an issue with all that is known of it.
class IssueArticle {
 public:
  IssueArticle(HtmlWriter& page, const PageIssues& issues, bool has_row_ids)
      : page_(page), issues_(issues), has_row_ids_(has_row_ids) {}

  void write(const PageIssue& shown) {
    const CollapsedAnalysisOutput& issue = *shown.issue;
    page_.open("article", {{"id", issues_.anchor_of(issue)},
                           {"class", std::string("issue ").append(band_class(shown.band))}});
    write_heading(shown);
    const vond::analysis::AnalysisOutput none;
    const auto& output = issue.outputs.empty() ? none : *issue.outputs.front();
    if (!output.message.empty()) {
      page_.element("p", {{"class", "message"}, {"dir", "auto"}},
                    vond::extension::shortened(output.message, LONGEST_TEXT));
    }
    page_.open("dl");
    write_text("Remedy", output.remedy);
    write_node_set(issue);
    write_related("Based on", issue, Type::OBSERVATION);
    write_related("Explained by", issue, Type::DIAGNOSIS);
    write_values(issue);
    write_text("Category", output.category);
    write_definitions(issue);
    write_first_seen(issue);
    write_row_ids(output.row_ids);
    page_.close().close();
  }

 private:
  void write_heading(const PageIssue& shown) {
    page_.open("h4");
    page_.text(std::to_string(issues_.number_of(*shown.issue)) + ". ");
    write_band_mark(page_, shown.band);
    page_.text(" ").open("b");
    write_name(page_, shown.issue->get_id());
    page_.close().text(" ");
    page_.element("span", {{"class", "type"}}, type_text(shown.type));
    if (const auto change = facts::change(*shown.issue); change && change->change != "same") {
      page_.text(" ").element("span", {{"class", "change"}}, change->change);
    }
    page_.close();
  }

  static std::string_view type_text(vond::postprocessor::TypeCode type) {
    return type == vond::postprocessor::MISSING_DATA ? "check without data"
                                                     : vond::extension::type_word(type);
  }

  void open_entry(std::string_view label) {
    page_.open("div").element("dt", label).open("dd", {{"dir", "auto"}});
  }

  void close_entry() { page_.close().close(); }

  void write_text(std::string_view label, const std::string& text) {
    if (!text.empty()) {
      open_entry(label);
      page_.text(vond::extension::shortened(text, LONGEST_TEXT));
      close_entry();
    }
  }

  void write_node_set(const CollapsedAnalysisOutput& issue) {
    const std::size_t count = vond::extension::count_distinct_nodes(issue);
    if (count == 0) {
      return;
    }
    open_entry(count_of(count, "node", "nodes"));
    const std::string folded = vond::extension::folded_nodes(issue, host_);
    write_nodes(page_, folded);
    if (folded.size() > LONGEST_NODE_SET) {
      page_.text(" All of them are in the list (-e list).");
    }
    close_entry();
  }

  void write_related(std::string_view label, const CollapsedAnalysisOutput& issue, Type type) {
    const auto related = issues_.related(issue, type);
    if (related.empty()) {
      return;
    }
    open_entry(label);
    const std::size_t shown = std::min(related.size(), MOST_LINKS);
    for (std::size_t i = 0; i < shown; ++i) {
      page_.text(i == 0 ? "" : ", ");
      issues_.write_link(page_, *related[i]);
    }
    write_others(related.size() - shown);
    close_entry();
  }

  void write_others(std::size_t others) {
    if (others != 0) {
      page_.text(" and " + std::to_string(others) + " more");
    }
  }

  void write_values(const CollapsedAnalysisOutput& issue) {
    for (const facts::Place& place : facts::places(issue)) {
      open_entry(place.unit.empty()
                     ? "Values"
                     : "Values (" + vond::extension::shortened(place.unit, LONGEST_UNIT) + ")");
      const std::size_t count = place.values.size();
      const std::size_t left_out = count > 2 * MOST_VALUES ? count - 2 * MOST_VALUES : 0;
      for (std::size_t i = 0; i < count; ++i) {
        if (left_out != 0 && i == MOST_VALUES) {
          page_.text("; " + std::to_string(left_out) + " more between them");
          i += left_out;
        }
        page_.text(i == 0 ? "" : "; ");
        write_value(place.values[i]);
      }
      close_entry();
    }
  }

  void write_value(const facts::Value& value) {
    write_name(page_, value.value);
    // Where findings differ in the name of their node, it stands there already.
    if (!value.nodes.empty() && value.nodes != std::vector{value.value}) {
      page_.text(" on ");
      write_nodes(page_, folded(value.nodes), LONGEST_VALUE_NODES);
    }
  }

  void write_definitions(const CollapsedAnalysisOutput& issue) {
    if (issue.fwd_names.empty()) {
      return;
    }
    open_entry(issue.fwd_names.size() == 1 ? "Definition" : "Definitions");
    std::size_t written = 0;
    for (const std::string& name : issue.fwd_names) {
      if (written == MOST_LINKS) {
        break;
      }
      page_.text(written == 0 ? "" : ", ");
      write_name(page_, name);
      ++written;
    }
    write_others(issue.fwd_names.size() - written);
    close_entry();
  }

  void write_first_seen(const CollapsedAnalysisOutput& issue) {
    if (const auto time = facts::first_seen(issue)) {
      open_entry("First seen");
      write_time(page_, *time);
      close_entry();
    }
  }

  void write_row_ids(const std::vector<int>& row_ids) {
    if (!has_row_ids_ || row_ids.empty()) {
      return;
    }
    std::vector<std::string> texts;
    texts.reserve(row_ids.size());
    for (const int row_id : row_ids) {
      texts.push_back(std::to_string(row_id));
    }
    write_text("Database row ids", listed(texts));
  }

  HtmlWriter& page_;
  const PageIssues& issues_;
  bool has_row_ids_;
  vond::postprocessor::StringInterface host_;
};

void write_group_heading(HtmlWriter& page, const PageIssue& first) {
  page.element("h3", vond::str::upper(std::get<std::string>(first.band)) +
                         (first.fails ? ", contributing to FAIL" : ""));
}

void write_others(HtmlWriter& page, std::size_t others) {
  if (others != 0) {
    page.element("p", {{"class", "others"}},
                 count_of(others, "more issue is", "more issues are") +
                     " not on this page, which has the worst. All are in the text report (-e "
                     "text), for grep in the list (-e list) and for programs in JSON (-e json).");
  }
}

}  // namespace

void write_issues(HtmlWriter& page, const PageIssues& issues, const std::string& log_level) {
  page.open("section", {{"id", "issues"}}).element("h2", "Issues");
  if (issues.issues().empty()) {
    page.element("p", "No issues detected.");
  }
  page.open("div", {{"class", "static"}});
  IssueArticle article(page, issues, log_level == "info" || log_level == "debug");
  const PageIssue* previous = nullptr;
  for (const PageIssue& issue : issues.issues()) {
    if (previous == nullptr || previous->band != issue.band || previous->fails != issue.fails) {
      write_group_heading(page, issue);
    }
    article.write(issue);
    previous = &issue;
  }
  write_others(page, issues.others());
  page.close().close();
}

}  // namespace vond_html
