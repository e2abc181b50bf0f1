#include "band_summaries.h"

#include <algorithm>

#include "vond/extension/issue_order.h"
#include "wording.h"

namespace vond_html {

using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::Type;
using vond::postprocessor::TypeCode;

namespace {

bool is_explained(const CollapsedAnalysisOutput& observation) {
  const auto found = observation.related_issues.find(Type::DIAGNOSIS);
  return found != observation.related_issues.end() && !found->second.empty();
}

void add_up_to(std::size_t most, const CollapsedAnalysisOutput& issue,
               BandSummary::Issues& issues) {
  if (issues.size() < most) {
    issues.push_back(&issue);
  }
}

void add_by_type(const CollapsedAnalysisOutput& issue, TypeCode type, BandSummary& summary) {
  if (type == vond::postprocessor::DIAGNOSES) {
    ++summary.diagnoses;
    add_up_to(BandSummary::MOST_DIAGNOSES, issue, summary.first_diagnoses);
  } else if (type == vond::postprocessor::MISSING_DATA) {
    ++summary.without_data;
    add_up_to(BandSummary::MOST_OTHERS, issue, summary.first_without_data);
  } else {
    ++summary.observations;
    if (is_explained(issue)) {
      ++summary.explained;
    } else {
      add_up_to(BandSummary::MOST_OTHERS, issue, summary.first_unexplained);
    }
  }
}

void add_failing_nodes(const CollapsedAnalysisOutput& issue, BandSummary& summary) {
  summary.fails = true;
  for (const auto& output : issue.outputs) {
    summary.failing_nodes.insert(output->node_names.begin(), output->node_names.end());
  }
}

}  // namespace

std::string BandSummary::counts() const {
  std::string observed =
      observations == 0 ? "" : count_of(observations, "observation", "observations");
  if (explained != 0) {
    observed += " (" + std::to_string(explained) + " explained)";
  }
  const std::string text =
      listed({diagnoses == 0 ? "" : count_of(diagnoses, "diagnosis", "diagnoses"), observed,
              without_data == 0 ? "" : std::to_string(without_data) + " without data"});
  return text.empty() ? "none" : text;
}

std::vector<BandSummary> summarize_bands(
    const vond::postprocessor::PostprocessorExtensionData& data,
    const vond::vocabulary::SeverityBandTable& bands) {
  std::vector<BandSummary> summaries;
  for (const auto& band : vond::vocabulary::descending_bands(bands)) {
    summaries.emplace_back().band = band;
  }
  vond::extension::for_each_issue(
      data, bands,
      [&summaries](const vond::extension::Issue& issue, const auto& band, auto type, bool fails) {
        const auto summary = std::find_if(summaries.begin(), summaries.end(),
                                          [&band](const auto& one) { return one.band == band; });
        add_by_type(*issue, type, *summary);
        if (fails) {
          add_failing_nodes(*issue, *summary);
        }
      });
  return summaries;
}

}  // namespace vond_html
