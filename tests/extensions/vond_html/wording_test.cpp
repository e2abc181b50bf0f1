#include "wording.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>

#include "tests/support/captured_output_log.h"

namespace vond_html {
namespace {

TEST(Wording, CountsInSingularAndPlural) {
  EXPECT_EQ(count_of(0, "node", "nodes"), "0 nodes");
  EXPECT_EQ(count_of(1, "node", "nodes"), "1 node");
}

TEST(Wording, ListLeavesEmptyTextsOut) {
  EXPECT_EQ(listed({"", "a", "", "b", ""}), "a, b");
  EXPECT_EQ(listed({}), "");
}

TEST(Wording, TimesAreInUtc) { EXPECT_EQ(readable_time(1763699400), "2025-11-21 04:30:00 UTC"); }

TEST(Wording, TimeWithoutAYearOfFourDigitsIsAnError) {
  EXPECT_THROW(readable_time(253402300800), std::overflow_error);
}

TEST(Wording, SpansAreInTheLargestWholeUnit) {
  EXPECT_EQ(readable_span(0), "0 seconds");
  EXPECT_EQ(readable_span(59), "59 seconds");
  EXPECT_EQ(readable_span(60), "1 minute");
  EXPECT_EQ(readable_span(3599), "59 minutes");
  EXPECT_EQ(readable_span(3600), "1 hour");
  EXPECT_EQ(readable_span(86399), "23 hours");
  EXPECT_EQ(readable_span(172800), "2 days");
}

TEST(Wording, AgesBelowZeroAreInTheFuture) {
  EXPECT_EQ(readable_age(120), "2 minutes old");
  EXPECT_EQ(readable_age(-1), "1 second in the future");
  EXPECT_EQ(readable_age(std::numeric_limits<std::int64_t>::min()),
            "106751991167300 days in the future");
}

TEST(Wording, NodeSetThatIsTooLongEndsInDots) {
  vond::test::CapturedOutputLog output;
  HtmlWriter page;
  write_nodes(page, "cn[1-9]", 4);
  write_nodes(page, "cn1", 4);
  page.finish();
  EXPECT_EQ(output.text(),
            "<code class=\"nodes\" dir=\"ltr\">cn[1...</code>"
            "<code class=\"nodes\" dir=\"ltr\">cn1</code>");
}

}  // namespace
}  // namespace vond_html
