#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

/// How dates and times are written. Shapes alone: what is a digit, not whether there is such a day.
namespace vond::standalone::date_words {

/// Whether `text` begins like `shape`, in which `0` stands for any digit.
bool begins_like(std::string_view text, std::string_view shape);

/// `2026-01-31`.
bool is_date(std::string_view word);

/// `23:59:59`.
bool is_clock(std::string_view word);

/// A time of a day, the parts of it as they are written.
struct ClockTime {
  /// Digits, "" without a fraction.
  std::string_view fraction;
  /// `Z`, `+01`, `+0100` or `+01:00`, "" without a zone.
  std::string_view zone;
};

/// Takes apart `23:59:59` with a fraction behind `.` or `,`, a zone, both or neither; nothing when
/// `word` is something else.
std::optional<ClockTime> read_clock_time(std::string_view word);

/// Returns 1 for `Jan` to 12 for `Dec`, 0 for other words.
int month_of(std::string_view word);

/// `Mon` to `Sun`.
bool is_weekday(std::string_view word);

}  // namespace vond::standalone::date_words
