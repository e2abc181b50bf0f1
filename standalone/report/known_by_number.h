#pragma once

#include <array>
#include <cstdint>
#include <utility>

namespace vond::standalone {

/// Remembers what was found for findings that their reader gave one number, be it that of their
/// wording or of their pattern. Only the last ones, each in the place that its number gives it.
template <typename Found>
class KnownByNumber {
 public:
  /// The number of a finding whose reader gave it none.
  static constexpr std::uint64_t NO_NUMBER = 0;

  /// Returns what is known for the number, null when nothing is. Until the next remember().
  const Found* find(std::uint64_t number) const {
    const Entry& entry = entries_[number % entries_.size()];
    return number != NO_NUMBER && entry.number == number ? &entry.found : nullptr;
  }

  void remember(std::uint64_t number, Found found) {
    entries_[number % entries_.size()] = {number, std::move(found)};
  }

 private:
  struct Entry {
    std::uint64_t number = NO_NUMBER;
    Found found = {};
  };

  std::array<Entry, 1024> entries_{};
};

}  // namespace vond::standalone
