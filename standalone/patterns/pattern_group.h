#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <map>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "standalone/patterns/value_table.h"

namespace vond::standalone {

/// The findings of one pattern: the values, severity, nodes and row ids of each, and nothing twice.
/// Findings with the same values and severity share one entry. Where there are many, those of an
/// entry that name the same nodes become one that stands for all of them, so that memory grows with
/// what is said, where, and with the row ids, and not with how often it is said.
class PatternGroup {
 public:
  using Entry = std::uint32_t;

  /// A finding.
  struct Occurrence {
    Entry entry;
    std::span<const std::uint32_t> nodes;
    std::span<const int> row_ids;
    /// How many findings it stands for.
    std::uint64_t count;
    /// When the first of those was seen that have its entry and first node, where that is known.
    std::optional<std::time_t> first_seen = std::nullopt;
  };

  /// `pattern` is what TextPattern::pattern() gives.
  explicit PatternGroup(std::string_view pattern);

  /// Returns the entry of a severity and the values that TextPattern::values() gives, which are
  /// `table`'s, one for each. All calls for a group take the same table.
  /// Throws std::length_error for more entries than 2^30.
  Entry entry_of(std::span<const ValueTable::Id> values, int severity, const ValueTable& table);

  /// Adds a finding with these values, or `count` of them with these nodes and row ids together. If
  /// the texts hold NODE, its node is the first of `nodes`, which then are that node once or more;
  /// else they may be any.
  void add(Entry entry, std::span<const std::uint32_t> nodes, std::span<const int> row_ids,
           std::uint64_t count = 1);

  /// Tells when the first of those findings was seen that were, or will be, added with these; the
  /// earliest time counts.
  void note_first_seen(Entry entry, std::span<const std::uint32_t> nodes, std::time_t time);

  /// Returns the earliest time that was noted, if any was.
  std::optional<std::time_t> first_seen() const;

  /// The first values of an entry are those of the places; when NODE stands in the texts outside of
  /// them, one more tells how it is written.
  std::size_t places() const { return places_; }
  bool has_name() const { return width_ > places_; }
  std::size_t entries() const { return entries_; }
  std::uint64_t findings() const { return findings_; }
  ValueTable::Id value(Entry entry, std::size_t column) const {
    return cells_[first_cell(entry) + column];
  }
  int severity(Entry entry) const { return static_cast<int>(value(entry, width_)); }
  /// Whether NODE stands in one of the places.
  bool has_value_with_name() const { return has_value_with_name_; }

  /// Calls `visit` with every Occurrence, in the order in which the first findings of each were
  /// added.
  template <typename Visit>
  void for_each(Visit visit) const {
    for (const std::uint32_t* at = findings_data_.data();
         at != findings_data_.data() + findings_data_.size();) {
      Occurrence occurrence = take_occurrence(at);
      if (!first_seen_.empty()) {
        occurrence.first_seen = first_seen(occurrence);
      }
      visit(occurrence);
    }
  }

  /// Gives memory back that is needed for adding only; after that no entry_of().
  void settle();

 private:
  /// How a finding is stored, in the lowest bits of its first word, whose rest is the entry.
  enum Shape : std::uint32_t {
    /// A node follows.
    ONE_NODE = 0,
    /// A node and a row id follow.
    ONE_NODE_ONE_ROW = 1,
    /// The numbers of nodes and of row ids follow, then they.
    ANY = 2,
    /// The count follows, its low half first, then all as above.
    COUNTED = 3,
  };
  static constexpr unsigned SHAPE_BITS = 2;
  static constexpr Entry NO_ENTRY = static_cast<Entry>(-1);
  static constexpr Entry MOST_ENTRIES = Entry{1} << (32 - SHAPE_BITS);
  /// In words; less memory is not worth the time to join findings.
  static constexpr std::size_t FEWEST_WORDS_TO_JOIN = std::size_t{1} << 18U;
  /// Fewer take no less memory when they are joined.
  static constexpr std::size_t FEWEST_TO_JOIN = 4;
  /// As many entries are looked through without an index.
  static constexpr std::size_t FEW_ENTRIES = 8;

  static Shape shape_of(std::size_t nodes, std::size_t row_ids, std::uint64_t count);
  static Occurrence take_occurrence(const std::uint32_t*& at);
  static Occurrence occurrence_at(const std::uint32_t* at) { return take_occurrence(at); }
  /// Where a finding begins, with what tells most findings apart.
  struct Found {
    std::uint64_t key;
    const std::uint32_t* at;
  };
  using SameNodes = std::span<const Found>;
  static std::vector<Found> find_all(const std::vector<std::uint32_t>& words);
  static bool stands_before(const Found& a, const Found& b);
  static std::vector<SameNodes> find_same_nodes(std::vector<Found>& findings);
  void append_joined(const SameNodes& same);
  std::optional<std::time_t> first_seen(const Occurrence& occurrence) const;
  std::size_t first_cell(Entry entry) const { return entry * (width_ + 1); }
  bool is(Entry entry, std::span<const ValueTable::Id> values, int severity) const;
  std::size_t hash_of(Entry entry) const;
  Entry find(std::span<const ValueTable::Id> values, int severity) const;
  Entry add_entry(std::span<const ValueTable::Id> values, int severity, const ValueTable& table);
  void append(Entry entry, std::span<const std::uint32_t> nodes, std::span<const int> row_ids,
              std::uint64_t count);
  void join_findings_of_same_nodes();
  void index_all(std::size_t size);
  void index(Entry entry);

  /// Of values in an entry.
  std::size_t width_;
  std::size_t places_;
  std::size_t entries_ = 0;
  std::uint64_t findings_ = 0;
  bool has_value_with_name_ = false;
  Entry last_ = NO_ENTRY;
  /// For each entry its values and its severity.
  std::vector<std::uint32_t> cells_;
  std::vector<std::uint32_t> findings_data_;
  /// The size of `findings_data_` from which on it is tried to join findings.
  std::size_t words_to_join_ = FEWEST_WORDS_TO_JOIN;
  /// By entry and first node, which is none of a finding without nodes. Few findings tell.
  std::map<std::pair<Entry, std::optional<std::uint32_t>>, std::time_t> first_seen_;
  /// By hash: linear probing, a power of two in size; empty while there are few entries.
  std::vector<Entry> index_;
};

}  // namespace vond::standalone
