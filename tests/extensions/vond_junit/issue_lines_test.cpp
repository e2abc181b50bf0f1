#include "issue_lines.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/records.h"

namespace vond::test {
namespace {

using postprocessor::DIAGNOSES;
using postprocessor::MISSING_DATA;
using postprocessor::OBSERVATIONS;
using vond_junit::IssueLine;
using vond_junit::Lines;

TEST(IssueLineTest, HasBandTypeIdNodesAndMessage) {
  const Issue issue =
      make_issue({.id = "disk#sda", .message = "It is full.", .nodes = {"cn2", "cn1", "cn2"}});
  EXPECT_EQ(IssueLine().format(*issue, "critical", DIAGNOSES),
            "CRITICAL diagnosis disk#sda (2 nodes: cn[1-2]): It is full.");
}

TEST(IssueLineTest, CountsNodesOfAllOutputs) {
  const Issue issue = make_issue({.id = "a", .nodes = {"n1"}});
  EXPECT_EQ(IssueLine().format(*issue, "warning", MISSING_DATA),
            "WARNING missing_data a (1 node: n1)");
  add_output(issue, {"n2"});
  EXPECT_EQ(IssueLine().format(*issue, "warning", MISSING_DATA),
            "WARNING missing_data a (2 nodes: n[1-2])");
}

TEST(IssueLineTest, HasNoNodesWhereThereAreNone) {
  EXPECT_EQ(
      IssueLine().format(*make_issue({.id = "a", .message = "m"}), "informational", OBSERVATIONS),
      "INFORMATIONAL observation a: m");
  EXPECT_EQ(IssueLine().format(*make_issue_without_outputs(), "critical", OBSERVATIONS),
            "CRITICAL observation ");
}

TEST(IssueLineTest, IsOneLine) {
  const Issue issue = make_issue({.id = "a\nb", .message = "one\n  two\r\nthree"});
  EXPECT_EQ(IssueLine().format(*issue, "critical", OBSERVATIONS),
            "CRITICAL observation a b: one two three");
}

TEST(IssueLineTest, CutsLongTexts) {
  const Issue issue = make_issue({.id = std::string(2000, 'i'),
                                  .message = std::string(2000, 'm'),
                                  .nodes = {std::string(2000, 'n')}});
  EXPECT_EQ(IssueLine().format(*issue, "critical", OBSERVATIONS),
            "CRITICAL observation " + std::string(1000, 'i') + "... (1 node: " +
                std::string(1000, 'n') + "...): " + std::string(1000, 'm') + "...");
}

TEST(LinesTest, OfNothingAreNone) { EXPECT_EQ(Lines().text(), ""); }

TEST(LinesTest, AreAtMostTwentyAndTellHowManyThereAreBeyond) {
  Lines lines;
  std::string twenty;
  for (int number = 1; number <= 20; ++number) {
    EXPECT_TRUE(lines.has_room());
    lines.add(std::to_string(number));
    twenty += std::to_string(number) + "\n";
  }
  EXPECT_EQ(lines.text(), twenty);
  EXPECT_FALSE(lines.has_room());
  lines.add("");
  EXPECT_EQ(lines.text(), twenty + "and 1 more\n");
  EXPECT_EQ(lines.count(), 21U);
}

}  // namespace
}  // namespace vond::test
