#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "vond/extension/node_summaries.h"
#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/postprocessor/string_interface.h"

namespace vond_output_log {

/// What the sections and the tree show alike of an issue, worked out when it is first asked for.
/// Issues must neither change nor go while this lives, which is one report or one part of it.
class IssueSummaries {
 public:
  using Issue = vond::postprocessor::CollapsedAnalysisOutput;

  /// Returns on how many distinct nodes the issue was found.
  std::size_t count_nodes(const Issue& issue) { return summaries_[issue].nodes.count(issue); }

  /// Returns the nodes of all outputs as `host` writes them.
  const std::string& nodes(const Issue& issue, vond::postprocessor::StringInterface& host) {
    return summaries_[issue].nodes.text(issue, host);
  }

  /// Returns the presentable ids of the observations that a diagnosis is based on, each once, in
  /// byte order, with ", " between them.
  const std::string& observations_of(Issue& diagnosis);

  /// Returns the ids of an observation's diagnoses, as they are and in the order of the set, with
  /// ", " behind each.
  const std::string& diagnoses_of(Issue& observation);

 private:
  struct Summary {
    vond::extension::NodeSummary nodes;
    std::optional<std::string> observations;
    std::optional<std::string> diagnoses;
  };

  vond::extension::SummaryByIssue<Summary> summaries_;
};

}  // namespace vond_output_log
