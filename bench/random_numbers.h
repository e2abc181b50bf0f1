#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace vond::bench {

/// A generator (splitmix64) that gives the same numbers on every machine; the distributions of the
/// standard library do not.
class RandomNumbers {
 public:
  explicit RandomNumbers(std::uint64_t seed) : state_(seed) {}

  /// Returns a number from 0 to `bound` - 1; `bound` is at least 1.
  std::uint32_t below(std::size_t bound) {
    return static_cast<std::uint32_t>(((next() >> 32U) * bound) >> 32U);
  }

  /// Returns a number from `first` to `last`, both included.
  std::uint32_t between(std::uint32_t first, std::uint32_t last) {
    return first + below(last - first + 1);
  }

  template <typename Item>
  const Item& pick(const std::vector<Item>& items) {
    return items[below(items.size())];
  }

  template <typename Item>
  void shuffle(std::vector<Item>& items) {
    for (std::size_t left = items.size(); left > 1; --left) {
      std::swap(items[left - 1], items[below(left)]);
    }
  }

 private:
  std::uint64_t next() {
    state_ += 0x9e3779b97f4a7c15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30U)) * 0xbf58476d1ce4e5b9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94d049bb133111ebU;
    return mixed ^ (mixed >> 31U);
  }

  std::uint64_t state_;
};

}  // namespace vond::bench
