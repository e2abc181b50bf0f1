#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

namespace vond::standalone {

/// What has changed since earlier runs, as far as a summary tells it.
struct Changes {
  /// The newest earlier run's; nothing when nothing tells it.
  std::optional<std::time_t> time;
  /// How many issues there are of each kind; the last two count what is no issue any more.
  std::size_t added = 0;
  std::size_t worse = 0;
  std::size_t reworded = 0;
  std::size_t same = 0;
  std::size_t better = 0;
  std::size_t gone = 0;
  std::size_t not_looked_at = 0;

  struct Item {
    std::string id;
    /// The upper bound of its severity band, or of the one that it was in.
    int band = 0;
    /// Sorted.
    std::vector<std::string> nodes_added;
    std::vector<std::string> nodes_healed;
    /// When it was first seen.
    std::optional<std::time_t> first_seen;
  };
  /// Items of one kind, at most MOST_ITEMS, the worst first.
  struct Kind {
    /// "new", "worse", "reworded" or "gone".
    std::string word;
    /// How many there are.
    std::size_t count = 0;
    std::vector<Item> items;
  };
  static constexpr std::size_t MOST_ITEMS = 5;
  /// In the order in which they are told.
  std::vector<Kind> kinds;
  /// Nodes that had something of which nobody knows whether they still have it; sorted.
  std::vector<std::string> nodes_not_looked_at;
  /// What makes earlier runs incomplete, "monday.jsonl is cut off".
  std::vector<std::string> remarks;
};

}  // namespace vond::standalone
