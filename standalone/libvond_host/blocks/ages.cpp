#include "standalone/libvond_host/blocks/ages.h"

#include <string_view>

#include "standalone/facts/counts.h"
#include "standalone/text/messages.h"

namespace vond::standalone {
namespace {

struct Unit {
  std::uint64_t seconds;
  std::string_view singular;
  std::string_view plural;
  /// "" where it is the word.
  std::string_view brief;
};

constexpr Unit UNITS[] = {
    {86400, "day", "days", ""}, {3600, "hour", "hours", "h"}, {60, "minute", "minutes", "min"}};
constexpr Unit SECOND = {1, "second", "seconds", "s"};

template <typename Format>
std::string in_largest_unit(std::uint64_t seconds, Format format) {
  for (const Unit& unit : UNITS) {
    if (seconds >= unit.seconds) {
      return format(seconds / unit.seconds, unit);
    }
  }
  return format(seconds, SECOND);
}

std::string format_span(std::uint64_t seconds) {
  return in_largest_unit(seconds, [](std::uint64_t count, const Unit& unit) {
    return count_of(count, unit.singular, unit.plural);
  });
}

std::string format_short_span(std::uint64_t seconds) {
  return in_largest_unit(seconds, [](std::uint64_t count, const Unit& unit) {
    return unit.brief.empty() ? count_of(count, unit.singular, unit.plural)
                              : std::to_string(count).append(" ").append(unit.brief);
  });
}

/// Unsigned, for the lowest age has no opposite.
std::uint64_t opposite(std::int64_t age) { return 0 - static_cast<std::uint64_t>(age); }

}  // namespace

std::string format_duration(std::int64_t seconds) {
  return format_span(seconds < 0 ? 0 : static_cast<std::uint64_t>(seconds));
}

std::string format_age(std::int64_t age) {
  return age < 0 ? format_span(opposite(age)) + " in the future"
                 : format_span(static_cast<std::uint64_t>(age)) + " old";
}

std::string format_short_age(std::int64_t age) {
  return age < 0 ? format_short_span(opposite(age)) + " ahead"
                 : format_short_span(static_cast<std::uint64_t>(age));
}

}  // namespace vond::standalone
