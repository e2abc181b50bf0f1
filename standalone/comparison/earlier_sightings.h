#pragma once

#include <ctime>
#include <span>
#include <vector>

#include "standalone/comparison/sightings.h"

namespace vond::standalone {

/// What was seen before, as far as it is to be compared with: of each node what the newest run saw
/// that examined it, and what runs after that one saw of it all the same.
class EarlierSightings {
 public:
  /// A sighting of a condition.
  struct Entry {
    SeenNames::Number node;
    SeenNames::Number pattern;
    /// The upper bound of the severity band.
    int band;
    /// When the run was, at the latest; UNKNOWN_TIME where nothing tells.
    std::time_t first_seen;
  };

  /// Of a run that does not tell whom it examined, these are the nodes on which it saw something.
  explicit EarlierSightings(std::vector<RunSightings> runs);

  /// Returns the sightings of a condition, sorted by node; a node may have several. What was
  /// acknowledged is not among them.
  std::span<const Entry> of(SeenNames::Number condition) const { return find(entries_, condition); }

  /// Whether some of the condition was acknowledged.
  bool has_acknowledged(SeenNames::Number condition) const {
    return !find(acknowledged_, condition).empty();
  }

  /// Returns when a condition was first seen on the node, acknowledged or not; UNKNOWN_TIME when it
  /// was not, or when nothing tells.
  std::time_t first_seen(SeenNames::Number condition, SeenNames::Number node) const;

  /// Returns the time of the newest run of those that have a time, else UNKNOWN_TIME.
  std::time_t newest() const { return newest_; }

 private:
  /// By condition.
  using Table = std::vector<std::vector<Entry>>;

  void add(const RunSightings& run);
  void add(const SeenIssue& issue, std::time_t run_time, Table& table) const;
  static std::span<const Entry> find(const Table& table, SeenNames::Number condition);
  void settle(const RunSightings& run);
  void settle(SeenNames::Number node);
  bool is_settled(SeenNames::Number node) const {
    return node < settled_.size() && settled_[node] != 0;
  }

  Table entries_;
  Table acknowledged_;
  /// By node: whether a newer run tells all about it.
  std::vector<char> settled_;
  std::time_t newest_ = UNKNOWN_TIME;
};

}  // namespace vond::standalone
