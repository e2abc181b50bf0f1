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
  struct Kind {
    /// "new", "worse", "reworded", "same", "better" or "gone".
    std::string word;
    /// How many there are: of "gone" types and ids that are no issue any more, else issues.
    std::size_t count = 0;
    /// The worst first, at most MOST_ITEMS; none of what is the same or better.
    std::vector<Item> items;
  };
  static constexpr std::size_t MOST_ITEMS = 5;
  /// All of them, in the order in which they are told.
  std::vector<Kind> kinds;
  /// How many types and ids may be gone, but nobody looked.
  std::size_t not_looked_at = 0;
  /// Nodes that had something of which nobody knows whether they still have it; sorted.
  std::vector<std::string> nodes_not_looked_at;
  /// What makes earlier runs incomplete, "monday.jsonl is cut off".
  std::vector<std::string> remarks;
};

}  // namespace vond::standalone
