#include "changes.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "band_mark.h"
#include "vond/facts/run_facts.h"
#include "wording.h"

namespace vond_html {

namespace facts = vond::facts;

namespace {

constexpr std::size_t MOST_ISSUES = 20;
/// In bytes.
constexpr std::size_t LONGEST_NODES = 1000;

struct ChangedIssue {
  const PageIssue* issue;
  facts::Change change;
};

std::vector<ChangedIssue> changed_issues(const PageIssues& issues) {
  std::vector<ChangedIssue> changed;
  for (const PageIssue& issue : issues.issues()) {
    if (auto change = facts::change(*issue.issue); change && change->change != "same") {
      changed.push_back({&issue, std::move(*change)});
    }
  }
  return changed;
}

/// Writes lists of what has changed, a heading before each.
class ChangeLists {
 public:
  ChangeLists(HtmlWriter& page, const PageIssues& issues)
      : page_(page), issues_(issues), changed_(changed_issues(issues)) {}

  /// Writes the issues of a kind that are on the page; `count` is how many there are in all.
  void write(std::string_view heading, std::string_view kind, std::size_t count) {
    if (count == 0) {
      return;
    }
    open(heading, count);
    std::size_t shown = 0;
    for (const ChangedIssue& changed : changed_) {
      if (shown < MOST_ISSUES && changed.change.change == kind) {
        write_issue(changed);
        ++shown;
      }
    }
    close(count - std::min(shown, count));
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
    close(past.size() - shown);
  }

 private:
  void open(std::string_view heading, std::size_t count) {
    page_.element("h3", std::string(heading) + ": " + std::to_string(count)).open("ul");
  }

  void close(std::size_t others) {
    if (others != 0) {
      page_.element("li", "and " + std::to_string(others) + " more");
    }
    page_.close();
  }

  void write_issue(const ChangedIssue& changed) {
    page_.open("li");
    write_band_shape(page_, changed.issue->band);
    page_.text(" ");
    issues_.write_link(page_, *changed.issue->issue);
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
  std::vector<ChangedIssue> changed_;
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

void write_changes(HtmlWriter& page, const PageIssues& issues) {
  const auto since = facts::since();
  if (!since) {
    return;
  }
  page.open("section", {{"id", "changes"}});
  write_heading(page, since->time);
  page.element("p", change_counts(*since));
  ChangeLists lists(page, issues);
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
