#include "standalone/text/utc_time.h"

#include <algorithm>
#include <cstddef>

#include "standalone/text/ascii.h"

namespace vond::standalone {
namespace {

constexpr std::string_view DATE_FORM = "0000-00-00";
constexpr std::string_view TIME_FORM = "00:00:00";
constexpr std::string_view OFFSET_FORM = "00:00";

constexpr std::time_t MINUTE = 60;
constexpr std::time_t HOUR = 60 * MINUTE;
constexpr std::time_t DAY = 24 * HOUR;

/// Whether `text` has a digit where `form` has one, and the same everywhere else.
bool has_form(std::string_view text, std::string_view form) {
  return std::equal(text.begin(), text.end(), form.begin(), form.end(), [](char byte, char wanted) {
    return is_digit(wanted) ? is_digit(byte) : byte == wanted;
  });
}

int number_in(std::string_view digits) {
  int number = 0;
  for (const char digit : digits) {
    number = 10 * number + (digit - '0');
  }
  return number;
}

/// Returns what stands before `size` characters of `text`, and leaves the rest in `text`.
std::string_view take(std::string_view& text, std::size_t size) {
  const std::string_view taken = text.substr(0, size);
  text.remove_prefix(taken.size());
  return taken;
}

/// Returns the seconds of `hours:minutes`, nothing when no clock shows that.
std::optional<std::time_t> parse_hours_and_minutes(std::string_view text) {
  constexpr int HOURS = 24;
  constexpr int MINUTES = 60;
  if (!has_form(text, OFFSET_FORM)) {
    return std::nullopt;
  }
  const int hours = number_in(text.substr(0, 2));
  const int minutes = number_in(text.substr(3, 2));
  return hours < HOURS && minutes < MINUTES ? std::optional(hours * HOUR + minutes * MINUTE)
                                            : std::nullopt;
}

/// Returns how far the clock of a time is ahead of UTC, in seconds.
std::optional<std::time_t> parse_offset(std::string_view text) {
  if (text == "Z" || text == "z") {
    return 0;
  }
  const std::string_view sign = take(text, 1);
  const std::optional<std::time_t> offset = parse_hours_and_minutes(text);
  if (!offset || (sign != "+" && sign != "-")) {
    return std::nullopt;
  }
  return sign == "+" ? *offset : -*offset;
}

/// Takes a fraction of a second off; false for a point without digits behind it.
bool skip_fraction(std::string_view& text) {
  if (text.substr(0, 1) != ".") {
    return true;
  }
  text.remove_prefix(1);
  const auto* const end = std::find_if_not(text.begin(), text.end(), is_digit);
  const auto digits = static_cast<std::size_t>(end - text.begin());
  text.remove_prefix(digits);
  return digits != 0;
}

}  // namespace

std::optional<std::time_t> parse_utc_date(std::string_view text) {
  if (!has_form(text, DATE_FORM)) {
    return std::nullopt;
  }
  constexpr int FIRST_YEAR = 1900;
  std::tm parts{};
  parts.tm_year = number_in(text.substr(0, 4)) - FIRST_YEAR;
  parts.tm_mon = number_in(text.substr(5, 2)) - 1;
  parts.tm_mday = number_in(text.substr(8, 2));
  std::tm carried = parts;
  const std::time_t time = timegm(&carried);
  // A day that there is not has been carried over: the 31st of April to the 1st of May.
  const bool is_there = carried.tm_mon == parts.tm_mon && carried.tm_mday == parts.tm_mday;
  return is_there ? std::optional(time) : std::nullopt;
}

std::optional<std::time_t> parse_instant(std::string_view text) {
  constexpr int LEAP_SECOND = 60;
  const std::optional<std::time_t> day = parse_utc_date(take(text, DATE_FORM.size()));
  const std::string_view separator = take(text, 1);
  const std::string_view time = take(text, TIME_FORM.size());
  const std::optional<std::time_t> minutes = parse_hours_and_minutes(time.substr(0, 5));
  if (!day || (separator != "T" && separator != "t") || !minutes || !has_form(time, TIME_FORM) ||
      !skip_fraction(text)) {
    return std::nullopt;
  }
  const std::optional<std::time_t> offset = parse_offset(text);
  const int seconds = number_in(time.substr(6));
  if (!offset || seconds > LEAP_SECOND) {
    return std::nullopt;
  }
  const std::time_t instant = *day + *minutes + seconds - *offset;
  // The second that is put in is the last one of a day, UTC; the next day begins in its place.
  return seconds < LEAP_SECOND || instant % DAY == 0 ? std::optional(instant) : std::nullopt;
}

std::optional<std::time_t> parse_utc_time(std::string_view text) {
  const bool has_form_of_utc = text.size() == DATE_FORM.size() + TIME_FORM.size() + 2 &&
                               text.find('t') == std::string_view::npos && text.back() == 'Z' &&
                               text.substr(17, 2) != "60";
  return has_form_of_utc ? parse_instant(text) : std::nullopt;
}

std::string format_utc_time(std::time_t time, const char* format) {
  std::tm utc{};
  if (gmtime_r(&time, &utc) == nullptr) {
    return "unknown";
  }
  char text[64];
  return {text, std::strftime(text, sizeof text, format, &utc)};
}

}  // namespace vond::standalone
