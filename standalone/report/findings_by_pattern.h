#pragma once

#include <span>
#include <vector>

#include "standalone/model/finding.h"
#include "standalone/patterns/pattern_group.h"
#include "standalone/patterns/text_pattern.h"
#include "standalone/patterns/value_table.h"
#include "standalone/report/collapsed_issue.h"
#include "standalone/report/known_by_number.h"
#include "standalone/report/wording_table.h"

namespace vond::standalone {

/// Gathers findings whose texts have one pattern.
class FindingsByPattern {
 public:
  FindingsByPattern() = default;
  // Issues refer to the values that this object keeps.
  FindingsByPattern(const FindingsByPattern&) = delete;
  FindingsByPattern& operator=(const FindingsByPattern&) = delete;

  /// `nodes` are the numbers of the finding's nodes.
  void add(const Finding& finding, std::span<const StringInterner::Id> nodes);

  /// Returns the issues, with one output each, in any order, and forgets the findings. Nodes are
  /// not counted yet. The issues' `findings` need this object.
  std::vector<CollapsedIssue> finish(const StringInterner& node_names);

 private:
  /// Where a finding belongs.
  struct Place {
    WordingTable::Number group = 0;
    PatternGroup::Entry entry = 0;
  };
  /// The place of findings whose texts do not name their own node.
  struct KnownPlace {
    Place place = {};
    bool texts_have_digits = false;
  };
  /// Findings of one group.
  struct Gathered {
    PatternGroup findings;
    int severity = 0;
  };

  Place place_of(const Finding& finding);
  Place place_of_pattern(const Finding& finding);
  Place place_of_wording(const Finding& finding);
  Place read_place(const Finding& finding, std::string_view own_node);
  PatternGroup::Entry entry_of(WordingTable::Number group, int severity,
                               std::span<const std::string_view> values);
  std::vector<CollapsedIssue> take_joined(const NodeNames& node_names);

  TextPattern text_;
  ValueTable values_;
  /// What the findings of a group share; their message is the pattern of message and remedy, their
  /// severity that of the band.
  WordingTable wordings_;
  /// By the numbers of wordings.
  std::vector<Gathered> groups_;
  KnownByNumber<KnownPlace> known_wordings_;
  /// The groups of patterns.
  KnownByNumber<WordingTable::Number> known_patterns_;
  /// Kept between findings for their memory.
  Wording wording_with_pattern_;
  std::vector<ValueTable::Id> value_ids_;
};

}  // namespace vond::standalone
