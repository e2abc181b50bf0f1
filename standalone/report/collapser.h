#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/model/finding.h"
#include "standalone/model/string_interner.h"

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
  std::string category;
  std::string message;
  std::string remedy;
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

/// Returns what a type is called in findings.
std::string_view type_name(postprocessor::TypeCode type);

/// Collapses findings into issues. Memory grows with the number of issues and of the nodes and row
/// ids in them, not with the findings' texts.
class Collapser {
 public:
  Collapser() = default;
  Collapser(const Collapser&) = delete;
  Collapser& operator=(const Collapser&) = delete;

  void add(const Finding& finding);

  /// Returns the issues in the order of the report, which is that of severity (high first), number
  /// of distinct nodes (many first), and bytes; it does not depend on the order of the findings.
  /// Leaves the collapser without issues.
  std::vector<CollapsedIssue> finish(CollapseBy what);

  std::size_t findings() const { return findings_; }

  /// All nodes that findings name.
  const StringInterner& node_names() const { return node_names_; }

 private:
  /// What findings are compared by when they are collapsed by text.
  struct Key {
    postprocessor::TypeCode type;
    int severity;
    std::string_view id, category, message, remedy;
    const std::vector<std::string_view>* definitions;
    const std::vector<std::string_view>* based_on;
  };
  /// The issue that findings of a wording belong to.
  struct KnownWording {
    std::uint64_t wording = Finding::UNKNOWN_WORDING;
    std::uint32_t issue = 0;
  };

  static constexpr std::uint32_t NO_ISSUE = static_cast<std::uint32_t>(-1);
  static constexpr std::size_t FIRST_INDEX_SIZE = 256;

  static std::size_t hash_of(const Key& key);
  static bool is_of(const Key& key, const CollapsedIssue& issue);
  std::uint32_t issue_of(const Finding& finding);
  std::uint32_t find_issue(const Finding& finding);
  std::uint32_t add_issue(const Key& key, std::size_t hash);
  void grow_index();

  std::size_t findings_ = 0;
  StringInterner node_names_;
  std::vector<CollapsedIssue> issues_;
  /// Of the issues' keys.
  std::vector<std::size_t> hashes_;
  /// The issues by the hashes of their keys: a table with linear probing, a power of two in size.
  std::vector<std::uint32_t> index_ = std::vector<std::uint32_t>(FIRST_INDEX_SIZE, NO_ISSUE);
  /// The wordings seen last, each in the place that its number gives it.
  std::array<KnownWording, 1024> known_wordings_{};
  // Kept between findings for their memory.
  std::vector<std::string_view> definitions_;
  std::vector<std::string_view> based_on_;
};

}  // namespace vond::standalone
