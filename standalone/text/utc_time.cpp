#include "standalone/text/utc_time.h"

#include <cstddef>

#include "standalone/text/ascii.h"

namespace vond::standalone {
namespace {

constexpr std::string_view FORM = "0000-00-00T00:00:00Z";

bool has_form(std::string_view text) {
  if (text.size() != FORM.size()) {
    return false;
  }
  for (std::size_t at = 0; at < FORM.size(); ++at) {
    if (is_digit(FORM[at]) ? !is_digit(text[at]) : text[at] != FORM[at]) {
      return false;
    }
  }
  return true;
}

int number_in(std::string_view digits) {
  int number = 0;
  for (const char digit : digits) {
    number = 10 * number + (digit - '0');
  }
  return number;
}

}  // namespace

std::optional<std::time_t> parse_utc_time(std::string_view text) {
  if (!has_form(text)) {
    return std::nullopt;
  }
  constexpr int FIRST_YEAR = 1900;
  std::tm parts{};
  parts.tm_year = number_in(text.substr(0, 4)) - FIRST_YEAR;
  parts.tm_mon = number_in(text.substr(5, 2)) - 1;
  parts.tm_mday = number_in(text.substr(8, 2));
  parts.tm_hour = number_in(text.substr(11, 2));
  parts.tm_min = number_in(text.substr(14, 2));
  parts.tm_sec = number_in(text.substr(17, 2));
  std::tm carried = parts;
  const std::time_t time = timegm(&carried);
  // What there is not has been carried over: the 31st of April to the 1st of May.
  const bool is_there = carried.tm_mon == parts.tm_mon && carried.tm_mday == parts.tm_mday &&
                        carried.tm_hour == parts.tm_hour && carried.tm_min == parts.tm_min &&
                        carried.tm_sec == parts.tm_sec;
  return is_there ? std::optional(time) : std::nullopt;
}

}  // namespace vond::standalone
