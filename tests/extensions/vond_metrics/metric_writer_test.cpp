#include "metric_writer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "label_text.h"
#include "tests/support/captured_output_log.h"
#include "tests/support/grouping_locale.h"

namespace vond::test {
namespace {

using vond_metrics::escaped;
using vond_metrics::label_text;
using vond_metrics::MetricWriter;

TEST(MetricWriterTest, WritesGaugesWithHelpTypeAndEnd) {
  const CapturedOutputLog output;
  MetricWriter out;
  out.begin("nodes", "How many.");
  out.add({{"state", "seen"}, {"rack", "r1"}}, 3);
  out.add({{"state", "examined"}, {"rack", "r1"}}, 0);
  out.begin("failed", "Whether.");
  out.add_flag({}, true);
  out.begin("unknown", "Whether not.");
  out.add_flag({}, false);
  out.finish();
  EXPECT_EQ(output.text(),
            "# HELP nodes How many.\n"
            "# TYPE nodes gauge\n"
            "nodes{state=\"seen\",rack=\"r1\"} 3\n"
            "nodes{state=\"examined\",rack=\"r1\"} 0\n"
            "# HELP failed Whether.\n"
            "# TYPE failed gauge\n"
            "failed 1\n"
            "# HELP unknown Whether not.\n"
            "# TYPE unknown gauge\n"
            "unknown 0\n"
            "# EOF\n");
}

TEST(MetricWriterTest, WritesNumbersWithoutGroupsInEveryLocale) {
  const GroupingLocale locale;
  const CapturedOutputLog output;
  MetricWriter out;
  out.begin("n", "h");
  out.add({}, std::numeric_limits<std::int64_t>::max());
  out.add({}, -1234567);
  out.finish();
  EXPECT_EQ(output.text(),
            "# HELP n h\n# TYPE n gauge\nn 9223372036854775807\nn -1234567\n# EOF\n");
}

TEST(MetricWriterTest, EscapesQuotesBackslashesAndLineFeedsOfLabels) {
  const CapturedOutputLog output;
  MetricWriter out;
  out.begin("n", "h");
  out.add({{"id", "a\"b\\c\nd\\n"}}, 1);
  out.finish();
  EXPECT_EQ(output.text(), "# HELP n h\n# TYPE n gauge\nn{id=\"a\\\"b\\\\c\\nd\\\\n\"} 1\n# EOF\n");
}

TEST(MetricWriterTest, KeepsLittleInMemory) {
  const CapturedOutputLog output;
  MetricWriter out;
  out.begin("n", "h");
  for (int number = 0; number < 10000; ++number) {
    out.add({}, number);
  }
  EXPECT_NE(output.text(), "");
}

TEST(LabelText, KeepsUtf8TabsAndLineFeeds) {
  const std::string text = "\u00e9 \u2028\t\n </script> \U0001F600";
  EXPECT_EQ(label_text(text), text);
}

TEST(LabelText, HasNoControlCharacters) {
  EXPECT_EQ(label_text(std::string("\0\r\x1b\x7f", 4)), "\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(LabelText, HasNoBytesThatAreNotUtf8) { EXPECT_EQ(label_text("a\xFF\xC3z"), "a\uFFFD\uFFFDz"); }

TEST(LabelText, OfALabelIsTheLabel) {
  const std::string label = label_text("a\xFF\r\"\\\n");
  EXPECT_EQ(label_text(label), label);
}

TEST(LabelText, EscapedNeverHasALineEndOrALoneQuote) {
  EXPECT_EQ(escaped("\n\"\\"), "\\n\\\"\\\\");
}

}  // namespace
}  // namespace vond::test
