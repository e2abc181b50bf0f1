#pragma once

#include <string>
#include <vector>

namespace vond::analysis {

/// One result of an analysis.
struct AnalysisOutput {
  std::string identifier;
  std::string category;
  std::string message;
  /// The nodes concerned, in the order of their reports; a name may stand more than once.
  std::vector<std::string> node_names;
  std::string remedy;
  /// The database rows that the result rests on.
  std::vector<int> row_ids;
};

}  // namespace vond::analysis
