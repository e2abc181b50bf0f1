#include "standalone/patterns/value_kind.h"

#include <algorithm>
#include <cstddef>

#include "standalone/patterns/date_words.h"
#include "standalone/patterns/text_marks.h"
#include "standalone/text/ascii.h"

namespace vond::standalone {
namespace {

using namespace date_words;

constexpr std::int64_t SECONDS_OF_DAY = 86400;
constexpr int ANY_LEAP_YEAR = 2000;

/// Whether a sign or a point behind this character belongs to no number but joins words.
bool joins_words(char before) {
  return !is_ascii(before) || text_marks::is_mark(before) || is_ascii_letter(before) ||
         std::string_view("_-+.").find(before) != std::string_view::npos;
}

bool may_end_before_number(std::string_view before) {
  return before.empty() || !joins_words(before.back());
}

/// Returns `before` without the sign at its end.
std::string_view without_sign(std::string_view before) {
  for (const std::string_view sign : SIGNS) {
    if (before.ends_with(sign)) {
      before.remove_suffix(sign.size());
      break;
    }
  }
  return before;
}

/// Returns where the number begins whose first digit is at `digit`.
std::size_t find_number(std::string_view value, std::size_t digit) {
  std::string_view before = value.substr(0, digit);
  if (before.ends_with('.')) {
    const std::string_view before_point = before.substr(0, digit - 1);
    const bool has_sign = without_sign(before_point) != before_point;
    before = has_sign || may_end_before_number(before_point) ? before_point : before;
  }
  const std::string_view before_sign = without_sign(before);
  return may_end_before_number(before_sign) ? before_sign.size() : before.size();
}

int two_digits(std::string_view text) { return 10 * (text[0] - '0') + (text[1] - '0'); }

/// Days from a fixed day to one of the Gregorian calendar, its year taken to begin in March.
std::int64_t day_number(int year, int month, int day) {
  const int shifted_year = month <= 2 ? year - 1 : year;
  const int shifted_month = month <= 2 ? month + 9 : month - 3;
  return 365LL * shifted_year + shifted_year / 4 - shifted_year / 100 + shifted_year / 400 +
         (153 * shifted_month + 2) / 5 + day;
}

bool is_day(int month, int day) { return month >= 1 && month <= 12 && day >= 1 && day <= 31; }

/// Returns the seconds that a zone is ahead of UTC.
std::int64_t zone_offset(std::string_view zone) {
  if (zone.size() < 3) {
    return 0;
  }
  const int minutes = zone.size() > 3 ? two_digits(zone.substr(zone.size() - 2)) : 0;
  const std::int64_t seconds = 3600LL * two_digits(zone.substr(1)) + 60LL * minutes;
  return zone[0] == '-' ? -seconds : seconds;
}

/// Reads a time of a day into `time`; false when it is none.
bool add_clock(std::string_view text, TimeValue& time) {
  const auto clock = read_clock_time(text);
  if (!clock) {
    return false;
  }
  const int hours = two_digits(text);
  const int minutes = two_digits(text.substr(3));
  const int seconds = two_digits(text.substr(6));
  time.form.has_clock = true;
  time.form.has_zone = !clock->zone.empty();
  time.seconds += 3600LL * hours + 60LL * minutes + seconds - zone_offset(clock->zone);
  // npos + 1 is 0.
  time.fraction = clock->fraction.substr(0, clock->fraction.find_last_not_of('0') + 1);
  return hours < 24 && minutes < 60 && seconds <= 60;
}

std::optional<TimeValue> read_dated_time(std::string_view value) {
  constexpr std::size_t DATE_SIZE = 10;
  if (!is_date(value.substr(0, DATE_SIZE))) {
    return std::nullopt;
  }
  const int year = 100 * two_digits(value) + two_digits(value.substr(2));
  const int month = two_digits(value.substr(5));
  const int day = two_digits(value.substr(8));
  TimeValue time;
  time.form.has_date = true;
  time.form.has_year = true;
  time.seconds = SECONDS_OF_DAY * day_number(year, month, day);
  if (!is_day(month, day)) {
    return std::nullopt;
  }
  if (value.size() == DATE_SIZE) {
    return time;
  }
  time.form.join = value[DATE_SIZE];
  const bool is_joined = time.form.join == ' ' || time.form.join == 'T';
  if (!is_joined || !add_clock(value.substr(DATE_SIZE + 1), time)) {
    return std::nullopt;
  }
  return time;
}

std::optional<TimeValue> read_month_time(std::string_view value) {
  TimeValue time;
  time.form.has_date = true;
  time.form.has_weekday = value.size() > 4 && is_weekday(value.substr(0, 3)) && value[3] == ' ';
  value.remove_prefix(time.form.has_weekday ? 4 : 0);
  const int month = month_of(value.substr(0, 3));
  const std::size_t day_at = std::min(value.find_first_not_of(' ', 3), value.size());
  const std::size_t day_end = std::min(value.find(' ', day_at), value.size());
  const std::string_view day = value.substr(day_at, day_end - day_at);
  const std::string_view clock = value.substr(std::min(day_end + 1, value.size()));
  const std::size_t blanks = day_at - std::min<std::size_t>(3, day_at);
  const bool is_day_text = (day.size() == 2 && begins_like(day, "00") && blanks == 1) ||
                           (day.size() == 1 && is_digit(day[0]) && (blanks == 1 || blanks == 2));
  if (month == 0 || !is_day_text || !is_clock(clock) || !add_clock(clock, time)) {
    return std::nullopt;
  }
  const int day_of_month = day.size() == 2 ? two_digits(day) : day[0] - '0';
  time.seconds += SECONDS_OF_DAY * day_number(ANY_LEAP_YEAR, month, day_of_month);
  return is_day(month, day_of_month) ? std::optional(time) : std::nullopt;
}

std::optional<TimeValue> read_clock_alone(std::string_view value) {
  TimeValue time;
  if (!add_clock(value, time) || time.form.has_zone) {
    return std::nullopt;
  }
  return time;
}

}  // namespace

std::optional<NumberValue> read_number(std::string_view value) {
  const auto* const digit = std::find_if(value.begin(), value.end(), is_digit);
  if (digit == value.end()) {
    return std::nullopt;
  }
  const std::size_t begin = find_number(value, static_cast<std::size_t>(digit - value.begin()));
  std::size_t length = 0;
  auto number = Decimal::read(value.substr(begin), length);
  const std::string_view before = value.substr(0, begin);
  if (!number || has_digit(value.substr(begin + length))) {
    return std::nullopt;
  }
  return NumberValue{before, value.substr(begin, length), value.substr(begin + length),
                     std::move(*number)};
}

std::optional<TimeValue> read_time(std::string_view value) {
  if (begins_like(value, "0000-")) {
    return read_dated_time(value);
  }
  return begins_like(value, "00:") ? read_clock_alone(value) : read_month_time(value);
}

}  // namespace vond::standalone
