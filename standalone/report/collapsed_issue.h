#pragma once

#include <cstddef>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "standalone/model/string_interner.h"
#include "standalone/model/wording.h"
#include "standalone/patterns/pattern_issue.h"

namespace vond::standalone {

/// What must be equal for findings to be one issue.
enum class CollapseBy {
  /// Type, id, severity band, category, the patterns of message and remedy, the set of definitions
  /// and the set of based_on.
  PATTERN,
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
  /// Whether one of its findings names no node; not known when collapsed by pattern, for `findings`
  /// of the issue tell that.
  bool has_finding_without_node = false;
  /// What the report says behind the message, which findings do not say.
  std::string note = {};
  /// When the first of its findings was seen, where that is known; nothing when collapsed by
  /// pattern, for `findings` of the issue tell that.
  std::optional<std::time_t> first_seen = std::nullopt;
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
  /// When collapsed by pattern: what the findings said, for node numbers of the collapser. Its
  /// texts are message and remedy. Needs the collapser.
  std::optional<PatternIssue> findings = std::nullopt;
};

}  // namespace vond::standalone
