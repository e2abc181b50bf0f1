#include "standalone/text/utc_time.h"

#include <gtest/gtest.h>

namespace {

using vond::standalone::parse_utc_time;

TEST(UtcTime, IsReadInSecondsSince1970) {
  EXPECT_EQ(parse_utc_time("1970-01-01T00:00:00Z"), 0);
  EXPECT_EQ(parse_utc_time("2025-11-21T04:30:00Z"), 1763699400);
  EXPECT_EQ(parse_utc_time("2024-02-29T23:59:59Z"), 1709251199);
  EXPECT_EQ(parse_utc_time("9999-12-31T23:59:59Z"), 253402300799);
  EXPECT_EQ(parse_utc_time("0001-01-01T00:00:00Z"), -62135596800);
}

TEST(UtcTime, NothingElseIsOne) {
  for (const char* text : {"", "2025-11-21", "2025-11-21 04:30:00Z", "2025-11-21T04:30:00",
                           "2025-11-21T04:30:00+01:00", "2025-11-21T04:30:00.5Z",
                           "2025-11-21t04:30:00z", "2025-11-21T04:30:0xZ", " 2025-11-21T04:30:00Z",
                           "2025-11-21T04:30:00Z ", "+025-11-21T04:30:00Z"}) {
    EXPECT_EQ(parse_utc_time(text), std::nullopt) << text;
  }
}

TEST(UtcTime, DaysAndHoursThatThereAreNotAreNone) {
  for (const char* text : {"2025-02-29T00:00:00Z", "2025-04-31T00:00:00Z", "2025-13-01T00:00:00Z",
                           "2025-00-01T00:00:00Z", "2025-01-00T00:00:00Z", "2025-01-01T24:00:00Z",
                           "2025-01-01T00:60:00Z", "2025-06-30T23:59:60Z"}) {
    EXPECT_EQ(parse_utc_time(text), std::nullopt) << text;
  }
}

}  // namespace
