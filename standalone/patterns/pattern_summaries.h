#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "standalone/patterns/pattern_issue.h"
#include "standalone/patterns/place_summary.h"
#include "standalone/patterns/value_table.h"

namespace vond::standalone {

/// Tells what the findings of issues say together. Meant for one issue after the other: keeps its
/// memory.
class PatternSummaries {
 public:
  /// All issues that are asked about have their values in `table`, which has all of them by now.
  /// Both outlive the object.
  PatternSummaries(const ValueTable& table, const NodeNames& node_names);

  /// Returns each text of the issue as people see it: a summary for every place, `NODE` for the own
  /// node of several.
  std::vector<std::string> shown_texts(const PatternIssue& issue);

  /// Returns the values of the `place`th place of the issue's key, each once, in any order. Views
  /// live until this object is asked again.
  std::vector<PlaceValue> values_at(const PatternIssue& issue, std::size_t place);

 private:
  static constexpr std::uint32_t NO_NUMBER = static_cast<std::uint32_t>(-1);

  void forget_values();
  std::string_view shown(ValueTable::Id value, std::uint32_t only_node);
  void number_entries(const PatternIssue::Part& part, const PatternIssue::OpenPlace& place);
  std::uint32_t number_of(std::string_view text);
  /// Calls `visit` with the number of each finding's value and the PatternGroup::Occurrence.
  template <typename Visit>
  void for_each_finding(const PatternIssue& issue, Visit visit) const;
  /// Puts the nodes of each value together, value by value.
  void share_out_nodes(const PatternIssue& issue, const std::vector<std::size_t>& nodes_of_value);

  const ValueTable& table_;
  const NodeNames& node_names_;
  /// Values of the place as people see them, by their numbers.
  std::vector<std::string_view> texts_;
  std::unordered_map<std::string_view, std::uint32_t> numbers_;
  /// Texts that are no values of the table.
  std::deque<std::string> made_texts_;
  /// By the ids of values; NO_NUMBER between two calls.
  std::vector<std::uint32_t> number_of_value_;
  /// The numbers of the entries' values, part by part.
  std::vector<std::uint32_t> entry_numbers_;
  std::vector<std::uint32_t> nodes_;
};

}  // namespace vond::standalone
