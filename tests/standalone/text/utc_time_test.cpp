#include "standalone/text/utc_time.h"

#include <gtest/gtest.h>

namespace {

using vond::standalone::parse_instant;
using vond::standalone::parse_utc_date;
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

TEST(UtcDate, IsTheFirstSecondOfItsDay) {
  EXPECT_EQ(parse_utc_date("1970-01-02"), 86400);
  EXPECT_EQ(parse_utc_date("2024-02-29"), 1709164800);
}

TEST(UtcDate, NothingElseIsOne) {
  for (const char* text : {"", "2025-11", "2025-11-2", "2025-11-210", "25-11-2100", "2025/11/21",
                           "2025-02-29", "2025-11-31", "2025-00-10", "tomorrow"}) {
    EXPECT_EQ(parse_utc_date(text), std::nullopt) << text;
  }
}

TEST(Instant, MayHaveAFractionAndAnOffset) {
  EXPECT_EQ(parse_instant("2025-11-21T04:30:00Z"), 1763699400);
  EXPECT_EQ(parse_instant("2025-11-21t04:30:00z"), 1763699400);
  EXPECT_EQ(parse_instant("2025-11-21T04:30:00.999999999Z"), 1763699400);
  EXPECT_EQ(parse_instant("2025-11-21T05:30:00+01:00"), 1763699400);
  EXPECT_EQ(parse_instant("2025-11-20T23:00:00.5-05:30"), 1763699400);
  EXPECT_EQ(parse_instant("2025-11-21T04:30:00-00:00"), 1763699400);
}

TEST(Instant, OfALeapSecondIsTheFirstSecondBehindItsDay) {
  EXPECT_EQ(parse_instant("1990-12-31T23:59:60Z"), 662688000);
  EXPECT_EQ(parse_instant("1990-12-31T15:59:60-08:00"), 662688000);
  EXPECT_EQ(parse_instant("1990-12-31T22:59:60Z"), std::nullopt);
}

TEST(Instant, NothingElseIsOne) {
  for (const char* text : {"",
                           "2025-11-21",
                           "2025-11-21T",
                           "2025-11-21 04:30:00Z",
                           "2025-11-21T04:30Z",
                           "2025-11-21T04:30:00",
                           "2025-11-21T04:30:00.Z",
                           "2025-11-21T04:30:00,5Z",
                           "2025-11-21T04:30:00ZZ",
                           "2025-11-21T04:30:00+1:00",
                           "2025-11-21T04:30:00+0100",
                           "2025-11-21T04:30:00+24:00",
                           "2025-11-21T04:30:00+01:60",
                           "2025-11-21T04:30:00 01:00",
                           "2025-11-21T24:00:00Z",
                           "2025-11-21T04:60:00Z",
                           "2025-11-21T04:30:61Z",
                           "2025-02-29T04:30:00Z",
                           "2025-11-21T04-30-00Z",
                           "2025-11-21T04:30:00+"}) {
    EXPECT_EQ(parse_instant(text), std::nullopt) << text;
  }
}

}  // namespace
