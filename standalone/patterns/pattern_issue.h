#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/patterns/pattern_group.h"
#include "standalone/patterns/place_summary.h"
#include "standalone/patterns/value_table.h"

namespace vond::standalone {

/// What findings said in the same words and with the same severity, all of them together.
struct OriginalTexts {
  /// As many as TextPattern::read() was given.
  std::vector<std::string> texts;
  int severity = 0;
  /// How many findings said it.
  std::uint64_t count = 0;
  /// When the first of them was seen, where that is known; nodes that came later stand apart.
  std::optional<std::time_t> first_seen;
  /// Sorted, each once; none of findings that name none, which stand apart from those that do.
  std::vector<std::uint32_t> nodes;
  /// Sorted, each once.
  std::vector<int> row_ids;

  bool operator==(const OriginalTexts&) const = default;
};

/// All findings of a pattern, when all are known, as an issue or a part of it.
///
/// NODE that stands for one node alone is its name, as it was written there (in full when it was
/// written in both ways), at each place by itself; then a place with one value is that value. What
/// differs still is a place, or NODE.
class PatternIssue {
 public:
  /// `pattern` is that of the group. `table` has the values of all groups, and outlives the issue.
  PatternIssue(std::string pattern, PatternGroup group, const ValueTable& table,
               const NodeNames& node_names);

  /// Marked text. Issues with equal keys are one, if nothing else keeps them apart.
  const std::string& key() const { return key_.empty() ? parts_[0].pattern : key_; }

  /// The values of all groups.
  const ValueTable& table() const { return *table_; }

  /// The number of places in the key.
  std::size_t places() const { return parts_[0].open.size(); }

  /// Takes over the findings of an issue with the same key. What an issue shows and gives back does
  /// not depend on what it was made of in which order.
  void merge(PatternIssue other);

  /// Returns the texts and severities that the findings came with, sorted by both, each pair once,
  /// with all nodes and row ids that came with it; texts that name their own node stand apart, once
  /// for each node, and so do findings that name none, and those that were first seen at another
  /// time.
  std::vector<OriginalTexts> originals(const NodeNames& node_names) const;

  /// Calls `visit` with every PatternGroup::Occurrence. Entries of different groups may have the
  /// same number.
  template <typename Visit>
  void for_each(const Visit& visit) const {
    for (const Part& part : parts_) {
      part.group.for_each(visit);
    }
  }

  /// Calls `visit` with the pattern of the texts, as TextPattern has it, the
  /// PatternGroup::Occurrence of every finding, and a function that returns its texts if it has not
  /// exactly one node.
  template <typename Visit>
  void for_each_with_pattern(const Visit& visit) const {
    for (const Part& part : parts_) {
      part.group.for_each([&](const PatternGroup::Occurrence& finding) {
        visit(part.pattern, finding, [&] { return texts_without_name(part, finding.entry); });
      });
    }
  }

  /// Returns when the first finding was seen, where that is known.
  std::optional<std::time_t> first_seen() const;

  /// Returns the distinct nodes of all findings, sorted.
  std::vector<std::uint32_t> nodes() const;
  bool has_several_nodes() const;

 private:
  friend class PatternSummaries;

  /// No number of a node.
  static constexpr std::uint32_t NO_NODE = static_cast<std::uint32_t>(-1);

  /// A place that differs.
  struct OpenPlace {
    /// Of the group's values.
    std::size_t column;
    /// Whom NODE stands for in the values, if it is one node alone.
    std::uint32_t only_node;
  };
  /// What came with one pattern.
  struct Part {
    std::string pattern;
    PatternGroup group;
    /// In the order of the places in the key.
    std::vector<OpenPlace> open;
  };

  void write_key(const NodeNames& node_names);
  std::vector<std::string> texts_without_name(const Part& part, PatternGroup::Entry entry) const;

  const ValueTable* table_;
  /// Empty where it is the pattern of the first part, which has neither values nor names.
  std::string key_;
  std::vector<Part> parts_;
};

}  // namespace vond::standalone
