#include "vond/extension/utc_time.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <stdexcept>

#include "tests/support/grouping_locale.h"

namespace vond::test {
namespace {

using vond::extension::utc_time;

TEST(UtcTime, IsIso8601WithItsZone) {
  EXPECT_EQ(utc_time(0), "1970-01-01T00:00:00Z");
  EXPECT_EQ(utc_time(1763699400), "2025-11-21T04:30:00Z");
  EXPECT_EQ(utc_time(253402300799), "9999-12-31T23:59:59Z");
}

TEST(UtcTime, IsTheSameInEveryLocale) {
  const GroupingLocale locale;
  EXPECT_EQ(utc_time(1763699400), "2025-11-21T04:30:00Z");
}

TEST(UtcTime, WithoutAYearOfFourDigitsIsRefused) {
  EXPECT_THROW(utc_time(253402300800), std::overflow_error);
  EXPECT_THROW(utc_time(std::numeric_limits<std::int64_t>::max()), std::overflow_error);
}

}  // namespace
}  // namespace vond::test
