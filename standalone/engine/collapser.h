#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "standalone/engine/finding.h"
#include "standalone/engine/string_interner.h"

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
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(const Key& key) const;
    std::size_t operator()(std::uint32_t issue) const { return (*hashes)[issue]; }
    const std::vector<std::size_t>* hashes;
  };
  struct Equal {
    using is_transparent = void;
    bool operator()(std::uint32_t left, std::uint32_t right) const { return left == right; }
    bool operator()(const Key& key, std::uint32_t issue) const;
    bool operator()(std::uint32_t issue, const Key& key) const { return (*this)(key, issue); }
    const std::vector<CollapsedIssue>* issues;
  };

  std::uint32_t issue_of(const Finding& finding);
  std::uint32_t find_issue(const Finding& finding);
  std::uint32_t add_issue(const Key& key);

  std::size_t findings_ = 0;
  StringInterner node_names_;
  std::vector<CollapsedIssue> issues_;
  std::vector<std::size_t> hashes_;
  std::unordered_set<std::uint32_t, Hash, Equal> index_{0, Hash{&hashes_}, Equal{&issues_}};
  /// The issues of wordings seen last, each in the place that its number gives it.
  struct KnownWording {
    std::uint64_t wording = Finding::UNKNOWN_WORDING;
    std::uint32_t issue = 0;
  };
  std::array<KnownWording, 1024> known_wordings_{};
  // Kept between findings for their memory.
  std::vector<std::string_view> definitions_;
  std::vector<std::string_view> based_on_;
};

}  // namespace vond::standalone
