#include "standalone/model/severity_scale.h"

#include <gtest/gtest.h>

namespace {

using vond::standalone::band_names;
using vond::standalone::parse_severity;
using vond::standalone::severity_expectation;
using vond::standalone::severity_of_band;

TEST(SeverityScale, TakesWholeNumbersFrom0To100) {
  EXPECT_EQ(parse_severity("0"), 0);
  EXPECT_EQ(parse_severity("75"), 75);
  EXPECT_EQ(parse_severity("100"), 100);
}

TEST(SeverityScale, TakesABandForItsUpperBound) {
  EXPECT_EQ(parse_severity("informational"), 24);
  EXPECT_EQ(parse_severity("warning"), 74);
  EXPECT_EQ(parse_severity("critical"), 100);
  EXPECT_EQ(severity_of_band("warning"), 74);
}

TEST(SeverityScale, TakesNothingElse) {
  for (const char* text : {"", "101", "-1", "-0", "+5", "7.5", "75.0", "1e1", " 5", "5 ", "0x10",
                           "99999999999999999999", "Critical", "crit", "5a"}) {
    EXPECT_EQ(parse_severity(text), std::nullopt) << text;
  }
  EXPECT_EQ(severity_of_band("75"), std::nullopt);
}

TEST(SeverityScale, DoesNotAddBandsThatItWasAskedFor) {
  EXPECT_EQ(severity_of_band("fatal"), std::nullopt);
  EXPECT_EQ(severity_of_band("fatal"), std::nullopt);
  EXPECT_EQ(band_names().size(), 3U);
}

TEST(SeverityScale, TellsWhatItTakes) {
  EXPECT_EQ(severity_expectation(),
            "a whole number from 0 to 100 or one of \"informational\", \"warning\", \"critical\"");
}

}  // namespace
