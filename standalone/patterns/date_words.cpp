#include "standalone/patterns/date_words.h"

#include <algorithm>
#include <array>
#include <utility>

#include "standalone/text/ascii.h"

namespace vond::standalone::date_words {
namespace {

constexpr std::string_view CLOCK_SHAPE = "00:00:00";
constexpr std::string_view MONTHS = "JanFebMarAprMayJunJulAugSepOctNovDec";
constexpr std::string_view WEEKDAYS = "MonTueWedThuFriSatSun";
constexpr std::size_t NAME_SIZE = 3;

/// Returns the number of the name in `names` from 1, 0 when it is none of them.
int number_of(std::string_view name, std::string_view names) {
  if (name.size() != NAME_SIZE) {
    return 0;
  }
  for (std::size_t at = 0; at < names.size(); at += NAME_SIZE) {
    if (names.substr(at, NAME_SIZE) == name) {
      return static_cast<int>(at / NAME_SIZE) + 1;
    }
  }
  return 0;
}

bool is_like(std::string_view text, std::string_view shape) {
  return text.size() == shape.size() && begins_like(text, shape);
}

bool is_zone(std::string_view text) {
  if (text == "Z") {
    return true;
  }
  if (text.empty() || (text[0] != '+' && text[0] != '-')) {
    return false;
  }
  const std::string_view offset = text.substr(1);
  return is_like(offset, "00") || is_like(offset, "0000") || is_like(offset, "00:00");
}

/// Takes `.123` or `,123` off the start of `text` and returns the digits.
std::string_view take_fraction(std::string_view& text) {
  if (text.size() < 2 || (text[0] != '.' && text[0] != ',') || !is_digit(text[1])) {
    return {};
  }
  const auto* const end = std::find_if_not(text.begin() + 1, text.end(), is_digit);
  const auto size = static_cast<std::size_t>(end - text.begin());
  const std::string_view digits = text.substr(1, size - 1);
  text.remove_prefix(size);
  return digits;
}

}  // namespace

bool begins_like(std::string_view text, std::string_view shape) {
  if (text.size() < shape.size()) {
    return false;
  }
  for (std::size_t i = 0; i < shape.size(); ++i) {
    if (shape[i] == '0' ? !is_digit(text[i]) : text[i] != shape[i]) {
      return false;
    }
  }
  return true;
}

bool is_date(std::string_view word) { return is_like(word, "0000-00-00"); }

bool is_clock(std::string_view word) { return is_like(word, CLOCK_SHAPE); }

std::optional<ClockTime> read_clock_time(std::string_view word) {
  if (!begins_like(word, CLOCK_SHAPE)) {
    return std::nullopt;
  }
  word.remove_prefix(CLOCK_SHAPE.size());
  ClockTime time;
  time.fraction = take_fraction(word);
  time.zone = word;
  if (!word.empty() && !is_zone(word)) {
    return std::nullopt;
  }
  return time;
}

int month_of(std::string_view word) { return number_of(word, MONTHS); }

bool is_weekday(std::string_view word) { return number_of(word, WEEKDAYS) != 0; }

}  // namespace vond::standalone::date_words
