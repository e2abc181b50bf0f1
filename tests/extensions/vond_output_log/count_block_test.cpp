#include <map>
#include <string>

#include "tests/extensions/vond_output_log/text_test.h"

namespace vond::test {
namespace {

const std::string GAP(5, ' ');

class CountBlockTest : public TextTest {
 protected:
  /// Returns the count block of a definition with these counts.
  std::string print(const std::map<unsigned, int>& counts, const std::string& prefix = "|  ") {
    const Node node = make_definition({.name = "name", .counts = counts});
    EXPECT_EQ(tree.print_issue_num(data, buffer, data.line_width, prefix, GAP, *node->fwd), 0);
    return output.take();
  }

  /// Returns the line of a band with these counts.
  std::string line(int diagnoses, int observations) {
    buffer = "WARNING";
    EXPECT_EQ(tree.format_fwd_issue_num(buffer, "|  ", GAP, diagnoses, observations), 0);
    return buffer;
  }
};

TEST_F(CountBlockTest, WithoutCountsIsNothing) { EXPECT_EQ(print({}), ""); }

TEST_F(CountBlockTest, HasALineForEachBandWorstFirstAndThePrefixAlone) {
  EXPECT_EQ(print({{0, 1}, {3, 2}, {4, 3}, {7, 4}, {24, 5}, {27, 6}}),
            "|  11 CRITICAL     (5 diagnoses     6 observations)\n"
            "|  7 WARNING     (3 diagnoses     4 observations)\n"
            "|  3 INFORMATIONAL     (1 diagnosis     2 observations)\n"
            "|  \n");
}

TEST_F(CountBlockTest, LeavesOutABandWithoutIssues) {
  EXPECT_EQ(print({{24, 0}, {27, 0}, {7, 1}}),
            "|  1 WARNING     (0 diagnosis     1 observation)\n"
            "|  \n");
}

TEST_F(CountBlockTest, CountsAMaskThatIsAbsentAsZero) {
  EXPECT_EQ(print({{24, 2}}),
            "|  2 CRITICAL     (2 diagnoses     0 observation)\n"
            "|  \n");
}

TEST_F(CountBlockTest, WithCountsUnderOtherMasksAloneIsAnEmptyLineAndThePrefix) {
  EXPECT_EQ(print({{25, 7}, {26, 7}, {8, 7}, {11, 7}, {20, 7}, {23, 7}, {16, 7}, {19, 7}}),
            "\n"
            "|  \n");
}

TEST_F(CountBlockTest, WithAllCountsZeroIsAnEmptyLineAndThePrefix) {
  EXPECT_EQ(print({{24, 0}, {27, 0}}),
            "\n"
            "|  \n");
}

TEST_F(CountBlockTest, TakesTheSingularForOneAndZero) {
  EXPECT_EQ(line(1, 0), "|  1 WARNING     (1 diagnosis     0 observation)\n");
  EXPECT_EQ(line(0, 1), "|  1 WARNING     (0 diagnosis     1 observation)\n");
  EXPECT_EQ(line(1, 1), "|  2 WARNING     (1 diagnosis     1 observation)\n");
}

TEST_F(CountBlockTest, TakesThePluralFromTwoOn) {
  EXPECT_EQ(line(2, 0), "|  2 WARNING     (2 diagnoses     0 observation)\n");
  EXPECT_EQ(line(0, 2), "|  2 WARNING     (0 diagnosis     2 observations)\n");
  EXPECT_EQ(line(1234, 5678), "|  6912 WARNING     (1234 diagnoses     5678 observations)\n");
}

TEST_F(CountBlockTest, ReadsCriticalCountsWithAndTheOthersWithoutTheFailBitAtThreshold75) {
  data.fail_threshold = 75;
  EXPECT_EQ(print({{24, 1}, {27, 2}, {4, 3}, {7, 4}, {20, 90}, {23, 90}, {8, 90}, {11, 90}}),
            "|  3 CRITICAL     (1 diagnosis     2 observations)\n"
            "|  7 WARNING     (3 diagnoses     4 observations)\n"
            "|  \n");
}

TEST_F(CountBlockTest, ReadsWarningCountsWithTheFailBitAtThreshold25) {
  data.fail_threshold = 25;
  EXPECT_EQ(print({{24, 1}, {27, 2}, {20, 3}, {23, 4}, {0, 5}, {3, 6}, {4, 90}, {7, 90}, {16, 90}}),
            "|  3 CRITICAL     (1 diagnosis     2 observations)\n"
            "|  7 WARNING     (3 diagnoses     4 observations)\n"
            "|  11 INFORMATIONAL     (5 diagnoses     6 observations)\n"
            "|  \n");
}

TEST_F(CountBlockTest, TakesTheBandsUpperBoundForTheThreshold) {
  const std::string with_fail_bit =
      "|  1 WARNING     (1 diagnosis     0 observation)\n"
      "|  \n";
  data.fail_threshold = 74;
  EXPECT_EQ(print({{20, 1}}), with_fail_bit);
  data.fail_threshold = 75;
  EXPECT_EQ(print({{20, 1}}), "\n|  \n");
  data.fail_threshold = 0;
  EXPECT_EQ(print({{16, 1}}),
            "|  1 INFORMATIONAL     (1 diagnosis     0 observation)\n"
            "|  \n");
}

TEST_F(CountBlockTest, AppendsTheLineOfABandWithIssues) {
  std::string counts = "before\n";
  buffer = "CRITICAL";
  EXPECT_EQ(tree.format_issue_num_by_severity(counts, buffer, 80, "|  ", GAP, 3, 1), 0);
  EXPECT_EQ(buffer, "|  4 CRITICAL     (3 diagnoses     1 observation)\n");
  EXPECT_EQ(counts, "before\n" + buffer);
}

TEST_F(CountBlockTest, AppendsNothingForABandWithoutIssues) {
  std::string counts = "before\n";
  buffer = "CRITICAL";
  EXPECT_EQ(tree.format_issue_num_by_severity(counts, buffer, 80, "|  ", GAP, 0, 0), 0);
  EXPECT_EQ(tree.format_issue_num_by_severity(counts, buffer, 80, "|  ", GAP, 1, -1), 0);
  EXPECT_EQ(tree.format_issue_num_by_severity(counts, buffer, 80, "|  ", GAP, -2, 1), 0);
  EXPECT_EQ(counts, "before\n");
}

}  // namespace
}  // namespace vond::test
