#include "standalone/patterns/pattern_group.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "standalone/nodes/number_sorting.h"
#include "standalone/patterns/text_marks.h"
#include "standalone/patterns/text_pattern.h"
#include "standalone/text/text_hash.h"

namespace vond::standalone {
namespace {

std::size_t hash_values(std::span<const ValueTable::Id> values, int severity) {
  auto hash = static_cast<std::size_t>(severity);
  for (const ValueTable::Id value : values) {
    hash = mixed(hash, value);
  }
  return hash;
}

/// Of `Found::key`: set where it is not the entry and the one node.
constexpr std::uint64_t NOT_ONE_NODE = std::uint64_t{1} << 32U;

std::optional<std::uint32_t> first_of(std::span<const std::uint32_t> nodes) {
  return nodes.empty() ? std::nullopt : std::optional(nodes.front());
}

}  // namespace

PatternGroup::PatternGroup(std::string_view pattern)
    : width_(count_values(pattern)), places_(width_ - (names_own_node(pattern) ? 1 : 0)) {}

PatternGroup::Entry PatternGroup::entry_of(std::span<const ValueTable::Id> values, int severity,
                                           const ValueTable& table) {
  // The same is often said of node after node.
  if (last_ == NO_ENTRY || !is(last_, values, severity)) {
    last_ = find(values, severity);
  }
  if (last_ == NO_ENTRY) {
    last_ = add_entry(values, severity, table);
  }
  return last_;
}

bool PatternGroup::is(Entry entry, std::span<const ValueTable::Id> values, int severity) const {
  return this->severity(entry) == severity &&
         std::equal(values.begin(), values.end(),
                    cells_.begin() + static_cast<std::ptrdiff_t>(first_cell(entry)));
}

std::size_t PatternGroup::hash_of(Entry entry) const {
  return hash_values(std::span(cells_).subspan(first_cell(entry), width_), severity(entry));
}

PatternGroup::Entry PatternGroup::find(std::span<const ValueTable::Id> values, int severity) const {
  if (index_.empty()) {
    for (Entry entry = 0; entry < entries_; ++entry) {
      if (is(entry, values, severity)) {
        return entry;
      }
    }
    return NO_ENTRY;
  }
  const std::size_t last_place = index_.size() - 1;
  std::size_t place = hash_values(values, severity) & last_place;
  while (index_[place] != NO_ENTRY && !is(index_[place], values, severity)) {
    place = (place + 1) & last_place;
  }
  return index_[place];
}

PatternGroup::Entry PatternGroup::add_entry(std::span<const ValueTable::Id> values, int severity,
                                            const ValueTable& table) {
  if (entries_ == MOST_ENTRIES) {
    throw std::length_error("too many different values");
  }
  const auto entry = static_cast<Entry>(entries_++);
  cells_.insert(cells_.end(), values.begin(), values.end());
  cells_.push_back(static_cast<std::uint32_t>(severity));
  const auto places = values.first(places_);
  has_value_with_name_ =
      has_value_with_name_ || std::any_of(places.begin(), places.end(), [&table](auto value) {
        return text_marks::holds_name(table[value]);
      });
  // Most that is looked for is not there, which takes long in a table that is rather full.
  if (2 * entries_ > index_.size() && entries_ > FEW_ENTRIES) {
    index_all(std::max(2 * index_.size(), 4 * FEW_ENTRIES));
  } else if (!index_.empty()) {
    index(entry);
  }
  return entry;
}

void PatternGroup::index_all(std::size_t size) {
  index_.assign(size, NO_ENTRY);
  for (Entry entry = 0; entry < entries_; ++entry) {
    index(entry);
  }
}

void PatternGroup::index(Entry entry) {
  const std::size_t last_place = index_.size() - 1;
  std::size_t place = hash_of(entry) & last_place;
  while (index_[place] != NO_ENTRY) {
    place = (place + 1) & last_place;
  }
  index_[place] = entry;
}

void PatternGroup::add(Entry entry, std::span<const std::uint32_t> nodes,
                       std::span<const int> row_ids, std::uint64_t count) {
  findings_ += count;
  if (findings_data_.size() >= words_to_join_) {
    join_findings_of_same_nodes();
  }
  append(entry, nodes, row_ids, count);
}

std::vector<PatternGroup::Found> PatternGroup::find_all(const std::vector<std::uint32_t>& words) {
  std::vector<Found> findings;
  for (const std::uint32_t* at = words.data(); at != words.data() + words.size();) {
    const std::uint32_t* const start = at;
    const Occurrence finding = take_occurrence(at);
    const std::uint64_t node = finding.nodes.size() == 1 ? finding.nodes[0] : NOT_ONE_NODE;
    findings.push_back({std::uint64_t{finding.entry} << 33U | node, start});
  }
  return findings;
}

/// An order in which findings with the same values, severity and nodes are neighbours.
bool PatternGroup::stands_before(const Found& a, const Found& b) {
  if (a.key != b.key || (a.key & NOT_ONE_NODE) == 0) {
    return a.key < b.key;
  }
  const auto nodes = occurrence_at(a.at).nodes;
  const auto others = occurrence_at(b.at).nodes;
  return std::lexicographical_compare(nodes.begin(), nodes.end(), others.begin(), others.end());
}

/// Sorts findings, and returns those of an entry with the same nodes together, in the order of the
/// first of each. Views what it has sorted.
std::vector<PatternGroup::SameNodes> PatternGroup::find_same_nodes(std::vector<Found>& findings) {
  std::stable_sort(findings.begin(), findings.end(), stands_before);
  std::vector<SameNodes> all;
  for (auto first = findings.begin(); first != findings.end();) {
    const auto end = std::find_if(first, findings.end(), [&first](const Found& other) {
      return stands_before(*first, other);
    });
    all.emplace_back(first, end);
    first = end;
  }
  std::sort(all.begin(), all.end(),
            [](const auto& a, const auto& b) { return a.front().at < b.front().at; });
  return all;
}

void PatternGroup::append_joined(const SameNodes& same) {
  std::vector<int> row_ids;
  std::uint64_t count = 0;
  for (const Found& finding : same) {
    const Occurrence occurrence = occurrence_at(finding.at);
    count += occurrence.count;
    row_ids.insert(row_ids.end(), occurrence.row_ids.begin(), occurrence.row_ids.end());
  }
  sort_unique(row_ids);
  const Occurrence first = occurrence_at(same.front().at);
  append(first.entry, first.nodes, row_ids, count);
}

void PatternGroup::join_findings_of_same_nodes() {
  // The old words stay until all of them are written anew.
  const std::vector<std::uint32_t> old = std::exchange(findings_data_, {});
  std::vector<Found> findings = find_all(old);
  for (const SameNodes& same : find_same_nodes(findings)) {
    if (same.size() >= FEWEST_TO_JOIN) {
      append_joined(same);
      continue;
    }
    for (const Found& finding : same) {
      const Occurrence occurrence = occurrence_at(finding.at);
      append(occurrence.entry, occurrence.nodes, occurrence.row_ids, occurrence.count);
    }
  }
  // Where little could be joined, it takes much more until it is worth another try.
  const bool has_helped = findings_data_.size() < old.size() / 2;
  words_to_join_ = std::max(FEWEST_WORDS_TO_JOIN, (has_helped ? 4 : 8) * findings_data_.size());
}

void PatternGroup::append(Entry entry, std::span<const std::uint32_t> nodes,
                          std::span<const int> row_ids, std::uint64_t count) {
  const Shape shape = shape_of(nodes.size(), row_ids.size(), count);
  if (findings_data_.empty()) {
    // Most groups of texts without values have one finding.
    constexpr std::size_t MOST_NUMBERS = 5;
    findings_data_.reserve((shape >= ANY ? MOST_NUMBERS : 1) + nodes.size() + row_ids.size());
  }
  findings_data_.push_back(entry << SHAPE_BITS | shape);
  if (shape == COUNTED) {
    findings_data_.push_back(static_cast<std::uint32_t>(count));
    findings_data_.push_back(static_cast<std::uint32_t>(count >> 32U));
  }
  if (shape >= ANY) {
    findings_data_.push_back(static_cast<std::uint32_t>(nodes.size()));
    findings_data_.push_back(static_cast<std::uint32_t>(row_ids.size()));
  }
  for (const std::uint32_t node : nodes) {
    findings_data_.push_back(node);
  }
  for (const int row_id : row_ids) {
    findings_data_.push_back(static_cast<std::uint32_t>(row_id));
  }
}

void PatternGroup::note_first_seen(Entry entry, std::span<const std::uint32_t> nodes,
                                   std::time_t time) {
  const auto [known, is_new] = first_seen_.try_emplace({entry, first_of(nodes)}, time);
  known->second = std::min(known->second, time);
}

std::optional<std::time_t> PatternGroup::first_seen() const {
  const auto first = std::min_element(
      first_seen_.begin(), first_seen_.end(),
      [](const auto& left, const auto& right) { return left.second < right.second; });
  return first == first_seen_.end() ? std::nullopt : std::optional(first->second);
}

std::optional<std::time_t> PatternGroup::first_seen(const Occurrence& occurrence) const {
  const auto known = first_seen_.find({occurrence.entry, first_of(occurrence.nodes)});
  return known == first_seen_.end() ? std::nullopt : std::optional(known->second);
}

PatternGroup::Shape PatternGroup::shape_of(std::size_t nodes, std::size_t row_ids,
                                           std::uint64_t count) {
  if (count != 1) {
    return COUNTED;
  }
  if (nodes != 1 || row_ids > 1) {
    return ANY;
  }
  return row_ids == 0 ? ONE_NODE : ONE_NODE_ONE_ROW;
}

PatternGroup::Occurrence PatternGroup::take_occurrence(const std::uint32_t*& at) {
  const std::uint32_t first = *at++;
  const auto shape = static_cast<Shape>(first & ((1U << SHAPE_BITS) - 1));
  std::size_t nodes = 1;
  std::size_t row_ids = shape == ONE_NODE ? 0 : 1;
  std::uint64_t count = 1;
  if (shape == COUNTED) {
    count = at[0] | static_cast<std::uint64_t>(at[1]) << 32U;
    at += 2;
  }
  if (shape >= ANY) {
    nodes = *at++;
    row_ids = *at++;
  }
  // A signed number may be read where an unsigned one of its size is stored.
  const auto* const rows = reinterpret_cast<const int*>(at + nodes);
  const Occurrence occurrence{first >> SHAPE_BITS, {at, nodes}, {rows, row_ids}, count};
  at += nodes + row_ids;
  return occurrence;
}

void PatternGroup::settle() {
  if (findings_data_.size() >= FEWEST_WORDS_TO_JOIN &&
      findings_data_.size() >= words_to_join_ / 4) {
    join_findings_of_same_nodes();
  }
  index_ = {};
  cells_.shrink_to_fit();
  findings_data_.shrink_to_fit();
}

}  // namespace vond::standalone
