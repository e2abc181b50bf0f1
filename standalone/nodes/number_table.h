#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "standalone/nodes/digits.h"
#include "standalone/nodes/number_key.h"

namespace vond::standalone {

/// Shorter numbers come first, numbers of one length in the order of their digits.
inline bool is_ordered_before(std::string_view a, std::string_view b) {
  return a.size() != b.size() ? a.size() < b.size() : a < b;
}

/// Turns the digits of names into keys and back. All numbers are added first; their keys are to be
/// compared only after finish() and final_key(), because the place of a long number among the
/// others is not known earlier. Holds views of the digits.
class NumberTable {
 public:
  /// `value` is that of the digits, anything for those of a long number.
  NumberKey add(std::string_view digits, std::uint64_t value) {
    if (digits.size() > MAX_PACKED_DIGITS) {
      long_numbers_.push_back(digits);
      return pack(LONG_NUMBER, long_numbers_.size() - 1);
    }
    return pack(digits.size(), value);
  }

  bool has_long_numbers() const { return !long_numbers_.empty(); }

  void finish() {
    std::vector<std::string_view> sorted = long_numbers_;
    std::sort(sorted.begin(), sorted.end(), is_ordered_before);
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    places_.reserve(long_numbers_.size());
    for (const std::string_view digits : long_numbers_) {
      const auto place = std::lower_bound(sorted.begin(), sorted.end(), digits, is_ordered_before);
      places_.push_back(static_cast<std::uint64_t>(place - sorted.begin()));
    }
    long_numbers_ = std::move(sorted);
  }

  NumberKey final_key(NumberKey added) const {
    return is_long(added) ? pack(LONG_NUMBER, places_[value_of(added)]) : added;
  }

  std::size_t digit_count(NumberKey key) const {
    return is_long(key) ? long_numbers_[value_of(key)].size() : length_of(key);
  }

  bool is_padded(NumberKey key) const {
    if (is_long(key)) {
      return long_numbers_[value_of(key)].front() == '0';
    }
    return length_of(key) > 1 && value_of(key) < SMALLEST_UNPADDED[length_of(key)];
  }

  /// Whether `next` is one more than `last`; for numbers of one padding.
  bool follows(NumberKey last, NumberKey next) const {
    if (!is_long(next)) {
      return value_of(next) == value_of(last) + 1;
    }
    std::string successor;
    append(last, successor);
    add_to_digits(1, successor);
    return successor == long_numbers_[value_of(next)];
  }

  void append(NumberKey key, std::string& text) const {
    if (is_long(key)) {
      text += long_numbers_[value_of(key)];
      return;
    }
    std::array<char, MAX_PACKED_DIGITS> digits;
    std::uint64_t rest = value_of(key);
    for (std::size_t i = length_of(key); i-- > 0; rest /= 10) {
      digits[i] = static_cast<char>('0' + rest % 10);
    }
    text.append(digits.data(), length_of(key));
  }

 private:
  static constexpr auto SMALLEST_UNPADDED = [] {
    std::array<std::uint64_t, MAX_PACKED_DIGITS + 1> powers = {0, 1};
    for (std::size_t i = 2; i < powers.size(); ++i) {
      powers[i] = 10 * powers[i - 1];
    }
    return powers;
  }();

  static bool is_long(NumberKey key) { return length_of(key) == LONG_NUMBER; }

  /// Before finish() in the order of add(), then sorted and each once.
  std::vector<std::string_view> long_numbers_;
  /// For each add() of a long number its place in the sorted long_numbers_.
  std::vector<std::uint64_t> places_;
};

}  // namespace vond::standalone
