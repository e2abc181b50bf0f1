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
};

constexpr Unit UNITS[] = {
    {86400, "day", "days"}, {3600, "hour", "hours"}, {60, "minute", "minutes"}};

std::string format_duration(std::uint64_t seconds) {
  for (const Unit& unit : UNITS) {
    if (seconds >= unit.seconds) {
      return count_of(seconds / unit.seconds, unit.singular, unit.plural);
    }
  }
  return count_of(seconds, "second", "seconds");
}

}  // namespace

std::string format_age(std::int64_t age) {
  if (age >= 0) {
    return format_duration(static_cast<std::uint64_t>(age)) + " old";
  }
  // Unsigned, for the lowest age has no opposite.
  return format_duration(0 - static_cast<std::uint64_t>(age)) + " in the future";
}

}  // namespace vond::standalone
