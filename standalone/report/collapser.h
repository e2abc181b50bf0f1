#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "standalone/model/finding.h"
#include "standalone/model/string_interner.h"
#include "standalone/model/wording.h"
#include "standalone/report/flat_index.h"
#include "standalone/report/known_wordings.h"

namespace vond::standalone {

/// What must be equal for findings to be one issue.
enum class CollapseBy {
  /// Type, id, severity, all texts, the set of definitions and the set of based_on.
  TEXT,
  /// Type, id and severity band.
  ID,
};

/// The part of an issue that becomes one AnalysisOutput.
struct CollapsedOutput {
  int severity = 0;
  OwnedTexts texts;
  /// Ids of Collapser::node_names(), as findings give them.
  std::vector<StringInterner::Id> nodes;
  /// As findings give them.
  std::vector<int> row_ids;
  std::size_t distinct_nodes = 0;
};

/// Findings that are one issue.
struct CollapsedIssue {
  postprocessor::TypeCode type = postprocessor::OBSERVATIONS;
  std::string id;
  /// The highest severity of its findings.
  int severity = 0;
  /// Sorted, each once.
  std::vector<std::string> definitions;
  /// Sorted, each once.
  std::vector<std::string> based_on;
  /// At least one; several only when collapsed by id.
  std::vector<CollapsedOutput> outputs;
  std::size_t distinct_nodes = 0;
};

/// Collapses findings into issues. Memory grows with the number of issues and of the nodes and row
/// ids in them, not with the findings' texts.
class Collapser {
 public:
  Collapser() = default;
  Collapser(const Collapser&) = delete;
  Collapser& operator=(const Collapser&) = delete;

  /// All findings must come from one reader, for readers number wordings each on its own.
  void add(const Finding& finding);

  /// Returns the issues in the order of the report, which is that of severity (high first), number
  /// of distinct nodes (many first), and bytes; it does not depend on the order of the findings.
  /// Leaves the collapser without issues.
  std::vector<CollapsedIssue> finish(CollapseBy collapse_by);

  std::size_t findings() const { return findings_; }

  /// All nodes that findings name.
  const StringInterner& node_names() const { return node_names_; }

 private:
  FlatIndex::Number find_or_add_issue(const Wording& wording);

  std::size_t findings_ = 0;
  StringInterner node_names_;
  /// By wording, each with one output.
  std::vector<CollapsedIssue> issues_;
  /// The places of `issues_` by the hashes of their wordings.
  FlatIndex index_;
  KnownWordings known_wordings_;
  /// Kept between findings for its memory.
  Wording wording_with_sets_;
};

}  // namespace vond::standalone
