#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace vond::standalone {

/// Finds items that somebody else keeps, numbered from 0, by the hashes of their keys. One flat
/// table with linear probing: a search costs one visit to memory, where a chain of nodes costs
/// several.
class FlatIndex {
 public:
  using Number = std::uint32_t;
  static constexpr Number NONE = static_cast<Number>(-1);

  /// Returns the number of the item whose key has that hash and for which `has_key(number)` is
  /// true, NONE when there is none.
  template <typename HasKey>
  Number find(std::size_t hash, const HasKey& has_key) const {
    for (std::size_t place = first_place(hash);; place = place_behind(place)) {
      const auto [number, high_half] = places_[place];
      // Most of the others are told apart without a visit to what they stand for.
      if (number == NONE || (high_half == high_half_of(hash) && has_key(number))) {
        return number;
      }
    }
  }

  /// Adds the next item, which find() has not found, and returns its number.
  Number add(std::size_t hash) {
    const auto number = static_cast<Number>(hashes_.size());
    hashes_.push_back(hash);
    if (2 * hashes_.size() > places_.size()) {
      grow();
    } else {
      put(number);
    }
    return number;
  }

  std::size_t size() const noexcept { return hashes_.size(); }

 private:
  struct Place {
    Number number = NONE;
    /// Of the hash.
    std::uint32_t high_half = 0;
  };

  static constexpr std::size_t FIRST_SIZE = 256;

  static std::uint32_t high_half_of(std::size_t hash) {
    return static_cast<std::uint32_t>(hash >> 32U);
  }
  std::size_t first_place(std::size_t hash) const { return hash & (places_.size() - 1); }
  std::size_t place_behind(std::size_t place) const { return (place + 1) & (places_.size() - 1); }

  void put(Number number) {
    std::size_t place = first_place(hashes_[number]);
    while (places_[place].number != NONE) {
      place = place_behind(place);
    }
    places_[place] = {number, high_half_of(hashes_[number])};
  }

  void grow() {
    places_.assign(2 * places_.size(), {});
    for (Number number = 0; number < hashes_.size(); ++number) {
      put(number);
    }
  }

  /// By number.
  std::vector<std::size_t> hashes_;
  /// A power of two in size, at least half of it without a number.
  std::vector<Place> places_ = std::vector<Place>(FIRST_SIZE);
};

}  // namespace vond::standalone
