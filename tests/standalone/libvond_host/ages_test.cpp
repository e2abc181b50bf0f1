#include "standalone/libvond_host/blocks/ages.h"

#include <gtest/gtest.h>

#include <limits>

namespace vond::standalone {
namespace {

TEST(Ages, AreToldInTheLargestWholeUnit) {
  EXPECT_EQ(format_age(0), "0 seconds old");
  EXPECT_EQ(format_age(1), "1 second old");
  EXPECT_EQ(format_age(59), "59 seconds old");
  EXPECT_EQ(format_age(60), "1 minute old");
  EXPECT_EQ(format_age(3599), "59 minutes old");
  EXPECT_EQ(format_age(7200), "2 hours old");
  EXPECT_EQ(format_age(86399), "23 hours old");
  EXPECT_EQ(format_age(86400), "1 day old");
  EXPECT_EQ(format_age(1'000'000), "11 days old");
}

TEST(Ages, BelowZeroAreInTheFuture) {
  EXPECT_EQ(format_age(-1), "1 second in the future");
  EXPECT_EQ(format_age(-180), "3 minutes in the future");
  EXPECT_EQ(format_age(std::numeric_limits<std::int64_t>::min()),
            "106751991167300 days in the future");
}

}  // namespace
}  // namespace vond::standalone
