#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <tuple>

#include "standalone/patterns/decimal.h"

namespace vond::standalone {

/// A value that is a number between characters without digits, like `12.3GB` and `core.2275`.
struct NumberValue {
  /// Views of the value.
  std::string_view before;
  std::string_view text;
  std::string_view behind;
  Decimal number;

  auto key() const { return std::tie(number); }
  /// Whether both have the same around the number, so that they can be compared.
  bool is_like(const NumberValue& other) const {
    return before == other.before && behind == other.behind;
  }
};

/// A value that is a time or a date.
struct TimeValue {
  /// How it is written; only those of one form can be compared.
  struct Form {
    bool has_date = false;
    bool has_year = false;
    bool has_weekday = false;
    bool has_clock = false;
    bool has_zone = false;
    /// What stands between date and time.
    char join = 0;

    bool operator==(const Form&) const = default;
  };

  Form form;
  /// From a fixed point; without a year, from the start of a leap year.
  std::int64_t seconds = 0;
  /// Digits behind the seconds, without zeros at the end; a view of the value.
  std::string_view fraction;

  auto key() const { return std::tie(seconds, fraction); }
  bool is_like(const TimeValue& other) const { return form == other.form; }
};

/// Nothing when the value is something else, as `1.2.3` and, for its leading zero, `007`. A sign,
/// and a point without digits before it, belong to the number where the value begins with them or
/// nothing that words are made of stands before them: `-5`, `x:-.5`, but not `core-5` and `core.5`.
std::optional<NumberValue> read_number(std::string_view value);

/// Nothing when the value is something else. Knows `2026-01-31`, `23:59:59`, both with a blank or
/// `T` between, and `Jan 31 23:59:59` with a weekday or without; with a year and a time also a
/// zone; with anything but the last also a fraction. Days and hours that there are not are no
/// times.
std::optional<TimeValue> read_time(std::string_view value);

}  // namespace vond::standalone
