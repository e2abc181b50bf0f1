#include "causes.h"

#include <algorithm>
#include <string>
#include <unordered_set>

#include "band_mark.h"
#include "filter_link.h"
#include "vond/extension/markup_text.h"
#include "vond/extension/node_summaries.h"
#include "wording.h"

namespace vond_html {

using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::Type;

namespace {

constexpr std::size_t MOST_EXPLAINED = 50;
/// In bytes: of messages that stand whole further down.
constexpr std::size_t LONGEST_MESSAGE = 400;
constexpr std::size_t LONGEST_NODES = 200;

/// Writes the causes of one band.
class Causes {
 public:
  Causes(HtmlWriter& page, const PageIssues& issues) : page_(page), issues_(issues) {}

  void write(const BandSummary& summary) {
    const std::string name(band_class(summary.band));
    page_.open("section", {{"id", "band-" + name}, {"class", "cause " + name}});
    page_.open("h3");
    write_band_mark(page_, summary.band);
    page_.text(": " + summary.counts()).close();
    write_list({{"band", name}, {"type", "diagnosis"}}, "", summary.first_diagnoses,
               summary.diagnoses);
    write_list({{"band", name}, {"type", "observation"}, {"explained", "no"}},
               summary.explained == 0 ? "Observations" : "Observations that nothing explains",
               summary.first_unexplained, summary.unexplained());
    write_list({{"band", name}, {"type", "missing_data"}}, "Checks without data",
               summary.first_without_data, summary.without_data);
    page_.close();
  }

 private:
  /// Writes the first of `count` issues, and a link to all of them where there are more.
  void write_list(Filter filter, const std::string& heading, const BandSummary::Issues& shown,
                  std::size_t count) {
    if (count == 0) {
      return;
    }
    if (!heading.empty()) {
      page_.element("h4", heading);
    }
    page_.open("ul");
    for (const CollapsedAnalysisOutput* issue : shown) {
      write_issue(*issue);
    }
    if (shown.size() < count) {
      page_.open("li");
      write_filter_text(page_, filter, "and " + std::to_string(count - shown.size()) + " more");
      page_.close();
    }
    page_.close();
  }

  void write_issue(const CollapsedAnalysisOutput& issue) {
    page_.open("li");
    issues_.write_link(page_, issue);
    if (const std::size_t count = vond::extension::count_distinct_nodes(issue); count != 0) {
      page_.text(" on " + count_of(count, "node", "nodes") + ": ");
      write_nodes(page_, vond::extension::folded_nodes(issue, host_), LONGEST_NODES);
    }
    if (!issue.outputs.empty() && !issue.outputs.front()->message.empty()) {
      page_.element("p", {{"dir", "auto"}},
                    vond::extension::shortened(issue.outputs.front()->message, LONGEST_MESSAGE));
    }
    write_explained(issues_.related(issue, Type::OBSERVATION));
    page_.close();
  }

  void write_explained(const BandSummary::Issues& observations) {
    if (observations.empty()) {
      return;
    }
    std::unordered_set<std::string_view> nodes;
    for (const CollapsedAnalysisOutput* observation : observations) {
      for (const auto& output : observation->outputs) {
        nodes.insert(output->node_names.begin(), output->node_names.end());
      }
    }
    page_.open("p", {{"class", "explains"}});
    page_.text("explains " + count_of(observations.size(), "observation", "observations"));
    page_.text(nodes.empty() ? ": " : " on " + count_of(nodes.size(), "node", "nodes") + ": ");
    write_links(observations);
    page_.close();
  }

  void write_links(const BandSummary::Issues& observations) {
    const std::size_t shown = std::min(observations.size(), MOST_EXPLAINED);
    for (std::size_t i = 0; i < shown; ++i) {
      page_.text(i == 0 ? "" : ", ");
      issues_.write_link(page_, *observations[i]);
    }
    if (shown < observations.size()) {
      page_.text(" and " + std::to_string(observations.size() - shown) + " more");
    }
  }

  HtmlWriter& page_;
  const PageIssues& issues_;
  vond::postprocessor::StringInterface host_;
};

}  // namespace

void write_causes(HtmlWriter& page, const std::vector<BandSummary>& summaries,
                  const PageIssues& issues) {
  if (issues.issues().empty()) {
    return;
  }
  page.open("section", {{"id", "causes"}}).element("h2", "What is wrong");
  Causes causes(page, issues);
  for (const BandSummary& summary : summaries) {
    if (summary.issues() != 0) {
      causes.write(summary);
    }
  }
  page.close();
}

}  // namespace vond_html
