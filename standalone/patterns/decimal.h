#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vond::standalone {

/// The last one is the minus sign of typography.
inline constexpr std::array<std::string_view, 3> SIGNS = {"+", "-", "\u2212"};

/// A decimal number of any length, exactly.
class Decimal {
 public:
  Decimal() = default;

  /// Reads the number that `text` begins with: a sign or none, digits without leading zeros, in
  /// threes with commas between or together, a fraction, an exponent (`-5`, `1,200`, `3.2e+03`). A
  /// fraction needs no digits before it (`.5`). Takes as much as is a number and tells in `length`
  /// how much that is. Nothing when there is none, or when the exponent has more than 15 digits.
  static std::optional<Decimal> read(std::string_view text, std::size_t& length);

  std::strong_ordering operator<=>(const Decimal& other) const;
  bool operator==(const Decimal& other) const = default;

  bool is_zero() const { return digits_.empty(); }
  /// The power of ten of the first digit; not of zero.
  std::int64_t first_power() const { return first_power_; }
  /// The power of ten of the last digit that is not 0; not of zero.
  std::int64_t last_power() const {
    return first_power_ - static_cast<std::int64_t>(digits_.size()) + 1;
  }

  /// The number in units of 10^`power`, which is at most last_power(); the caller knows that it
  /// fits.
  std::int64_t in_units_of(std::int64_t power) const;
  double nearest_double() const;

 private:
  int sign() const;
  /// Of both without their signs, which are the same.
  std::strong_ordering compare_sizes(const Decimal& other) const;

  bool is_negative_ = false;
  std::int64_t first_power_ = 0;
  /// Without zeros at either end.
  std::string digits_;
};

}  // namespace vond::standalone
