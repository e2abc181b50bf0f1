#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "standalone/text/text_hash.h"
#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::standalone {

using postprocessor::IssueList;
using postprocessor::PostprocessorExtensionData;

/// The issues of one severity band. Refers to the record, which must outlive it.
struct SeverityBand {
  /// "CRITICAL".
  std::string name;
  /// Whether its issues contribute to FAIL.
  bool contributes_to_fail = false;
  /// Each in the order of the report.
  const IssueList* diagnoses = nullptr;
  const IssueList* observations = nullptr;
  const IssueList* checks_without_data = nullptr;

  bool is_empty() const {
    return diagnoses->empty() && observations->empty() && checks_without_data->empty();
  }
};

/// Returns all bands, the worst one first.
std::vector<SeverityBand> severity_bands(const PostprocessorExtensionData& data);

/// Node names, each once; views into the record.
using NodeViews = std::unordered_set<std::string_view, TextHash>;

void add_nodes(const postprocessor::CollapsedAnalysisOutput& issue, NodeViews& nodes);
void add_nodes(const IssueList& issues, NodeViews& nodes);

/// Returns the nodes of all issues of a band.
NodeViews nodes_of(const SeverityBand& band);

/// Returns the names as texts, sorted.
std::vector<std::string> sorted_names(const NodeViews& nodes);

}  // namespace vond::standalone
