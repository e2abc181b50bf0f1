#include <string>

#include "tests/extensions/vond_output_log/text_test.h"
#include "tests/support/captured_standard_error.h"
#include "tests/support/grouping_locale.h"
#include "vond_output_log.h"

namespace vond::test {
namespace {

using vond_output_log::VondOutputLog;

class SectionPrinterTest : public TextTest {
 protected:
  /// Returns the section's text; it must not fail.
  std::string print(bool other) {
    EXPECT_EQ(VondOutputLog(data).PrintSection(other), 0);
    return output.take();
  }

  /// Returns the text of an issue without outputs in a group of fewer than ten.
  static std::string empty_issue(int number) {
    return std::to_string(number) +
           ".  (appears on 0 nodes)\n"
           "   Category: FUNCTIONALITY\n";
  }

  /// Files an issue without outputs.
  void add_empty_issue(unsigned mask) { add_issue(data, mask, make_issue_without_outputs()); }
};

TEST_F(SectionPrinterTest, SaysThatThereAreNoIssues) {
  EXPECT_EQ(print(false),
            "Issues contributing to FAIL\n"
            "No issues detected.\n"
            "\n");
  EXPECT_EQ(print(true),
            "Other issues (not contributing to FAIL)\n"
            "No issues detected.\n"
            "\n");
}

TEST_F(SectionPrinterTest, WithCountsOfZeroDoesNotLookAtTheIndex) {
  add_empty_issue(24);
  data.counts_by_mask = {{16, 0}, {19, 0}};
  EXPECT_EQ(print(false),
            "Issues contributing to FAIL\n"
            "No issues detected.\n"
            "\n");
  data.issues_by_mask.reset();
  EXPECT_EQ(print(false),
            "Issues contributing to FAIL\n"
            "No issues detected.\n"
            "\n");
}

TEST_F(SectionPrinterTest, WithCountsAndNoIssuesIsItsHeadingAndAnEmptyLine) {
  data.counts_by_mask[16] = 1;
  EXPECT_EQ(print(false), "Issues contributing to FAIL\n\n");
  data.counts_by_mask[3] = 1;
  (*data.issues_by_mask)[4] = {};
  EXPECT_EQ(print(true), "Other issues (not contributing to FAIL)\n\n");
}

TEST_F(SectionPrinterTest, WritesDiagnosesAndObservationsOfABand) {
  const Issue diagnosis =
      make_issue({.id = "D", .message = "broken", .remedy = "mend", .nodes = {"n1"}});
  const Issue observation = make_issue({.id = "O", .message = "seen", .nodes = {"n1"}});
  relate(diagnosis, observation);
  add_issue(data, 24, diagnosis);
  add_issue(data, 25, observation);
  EXPECT_EQ(print(false),
            "Issues contributing to FAIL\n"
            "\n"
            "CRITICAL:\n"
            "Diagnoses\n"
            "1. D (appears on 1 node)\n"
            "   Message: broken\n"
            "   Remedy: mend\n"
            "   Nodes: n1\n"
            "   Category: FUNCTIONALITY\n"
            "   Based on Observations: O\n"
            "\n"
            "Observations\n"
            "1. O (appears on 1 node)\n"
            "   Message: seen\n"
            "   Nodes: n1\n"
            "   Category: FUNCTIONALITY\n"
            "   Diagnoses: D\n"
            "\n");
  forget_relations({diagnosis, observation});
}

TEST_F(SectionPrinterTest, WritesTheBandsWorstFirstAndNumbersEveryGroupFromOne) {
  for (const unsigned mask : {16U, 17U, 20U, 21U, 24U, 25U, 24U}) {
    add_empty_issue(mask);
  }
  EXPECT_EQ(print(false),
            "Issues contributing to FAIL\n"
            "\n"
            "CRITICAL:\n"
            "Diagnoses\n" +
                empty_issue(1) + "\n" + empty_issue(2) +
                "\n"
                "Observations\n" +
                empty_issue(1) +
                "\n"
                "WARNING:\n"
                "Diagnoses\n" +
                empty_issue(1) +
                "\n"
                "Observations\n" +
                empty_issue(1) +
                "\n"
                "INFORMATIONAL:\n"
                "Diagnoses\n" +
                empty_issue(1) +
                "\n"
                "Observations\n" +
                empty_issue(1) + "\n");
}

TEST_F(SectionPrinterTest, BandWithoutIssuesHasNoLabel) {
  add_empty_issue(4);
  EXPECT_EQ(print(true),
            "Other issues (not contributing to FAIL)\n"
            "\n"
            "WARNING:\n"
            "Diagnoses\n" +
                empty_issue(1) + "\n");
}

TEST_F(SectionPrinterTest, BandWithObservationsAloneHasNoDiagnosesLine) {
  add_empty_issue(1);
  EXPECT_EQ(print(true),
            "Other issues (not contributing to FAIL)\n"
            "\n"
            "INFORMATIONAL:\n"
            "Observations\n" +
                empty_issue(1) + "\n");
}

TEST_F(SectionPrinterTest, BandWithTheSecondKindOfObservationsAloneIsWrittenToo) {
  add_empty_issue(10);
  EXPECT_EQ(print(true),
            "Other issues (not contributing to FAIL)\n"
            "\n"
            "CRITICAL:\n"
            "Observations\n" +
                empty_issue(1) + "\n");
}

TEST_F(SectionPrinterTest, EachSectionHasItsOwnIssues) {
  add_issue(data, 24, make_issue({.id = "of FAIL"}));
  add_issue(data, 8, make_issue({.id = "other"}));
  EXPECT_EQ(print(false),
            "Issues contributing to FAIL\n"
            "\n"
            "CRITICAL:\n"
            "Diagnoses\n"
            "1. of FAIL (appears on 0 nodes)\n"
            "   Nodes: none\n"
            "   Category: FUNCTIONALITY\n"
            "\n");
  EXPECT_EQ(print(true),
            "Other issues (not contributing to FAIL)\n"
            "\n"
            "CRITICAL:\n"
            "Diagnoses\n"
            "1. other (appears on 0 nodes)\n"
            "   Nodes: none\n"
            "   Category: FUNCTIONALITY\n"
            "\n");
}

TEST_F(SectionPrinterTest, NumbersTheSecondKindOfObservationsBehindTheFirst) {
  add_issue(data, 26, make_issue({.id = "second kind"}));
  add_issue(data, 25, make_issue({.id = "b"}));
  add_issue(data, 25, make_issue({.id = "a"}));
  EXPECT_EQ(print(false),
            "Issues contributing to FAIL\n"
            "\n"
            "CRITICAL:\n"
            "Observations\n"
            "1. b (appears on 0 nodes)\n"
            "   Nodes: none\n"
            "   Category: FUNCTIONALITY\n"
            "\n"
            "2. a (appears on 0 nodes)\n"
            "   Nodes: none\n"
            "   Category: FUNCTIONALITY\n"
            "\n"
            "3. second kind (appears on 0 nodes)\n"
            "   Nodes: none\n"
            "   Category: FUNCTIONALITY\n"
            "\n");
}

/// Returns the lines of `text` that have `part` in them.
std::string lines_with(const std::string& text, const std::string& part) {
  std::string lines;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = text.find('\n', start) + 1;
    const std::string line = text.substr(start, end - start);
    if (line.find(part) != std::string::npos) {
      lines += line;
    }
    start = end;
  }
  return lines;
}

TEST_F(SectionPrinterTest, TenDiagnosesBeginInOneColumn) {
  add_issues(data, 24, "id", 10);
  const std::string text = print(false);
  EXPECT_EQ(lines_with(text, "appears on"),
            "1.  id1 (appears on 0 nodes)\n"
            "2.  id2 (appears on 0 nodes)\n"
            "3.  id3 (appears on 0 nodes)\n"
            "4.  id4 (appears on 0 nodes)\n"
            "5.  id5 (appears on 0 nodes)\n"
            "6.  id6 (appears on 0 nodes)\n"
            "7.  id7 (appears on 0 nodes)\n"
            "8.  id8 (appears on 0 nodes)\n"
            "9.  id9 (appears on 0 nodes)\n"
            "10. id10 (appears on 0 nodes)\n");
  EXPECT_EQ(lines_with(text, "Nodes").substr(0, 16), "    Nodes: none\n");
}

TEST_F(SectionPrinterTest, BothKindsOfObservationsMakeTheWidthOfTheNumbers) {
  add_issues(data, 25, "one", 9);
  add_issues(data, 26, "two", 1);
  const std::string lines = lines_with(print(false), "appears on");
  EXPECT_EQ(lines.substr(0, lines.find('\n')), "1.  one1 (appears on 0 nodes)");
  EXPECT_EQ(lines.substr(lines.rfind('\n', lines.size() - 2) + 1),
            "10. two1 (appears on 0 nodes)\n");
}

TEST_F(SectionPrinterTest, NineDiagnosesBesideOneObservationKeepNarrowNumbers) {
  add_issues(data, 24, "id", 9);
  add_issues(data, 25, "id", 1);
  const std::string lines = lines_with(print(false), "appears on");
  EXPECT_EQ(lines.substr(0, lines.find('\n')), "1. id1 (appears on 0 nodes)");
}

TEST_F(SectionPrinterTest, EntryWithoutIssueAmongDiagnosesUsesItsNumberAndLeavesAnEmptyLine) {
  for (const Issue& issue : {make_issue_without_outputs(), Issue(), make_issue_without_outputs()}) {
    add_issue(data, 24, issue);
  }
  EXPECT_EQ(print(false),
            "Issues contributing to FAIL\n"
            "\n"
            "CRITICAL:\n"
            "Diagnoses\n" +
                empty_issue(1) + "\n" + "\n" + empty_issue(3) + "\n");
}

TEST_F(SectionPrinterTest, EntryWithoutIssueAmongObservationsUsesItsNumberAndLeavesNothing) {
  for (const Issue& issue : {make_issue_without_outputs(), Issue(), make_issue_without_outputs()}) {
    add_issue(data, 25, issue);
  }
  add_issue(data, 26, nullptr);
  add_empty_issue(26);
  EXPECT_EQ(print(false),
            "Issues contributing to FAIL\n"
            "\n"
            "CRITICAL:\n"
            "Observations\n" +
                empty_issue(1) + "\n" + empty_issue(3) + "\n" + empty_issue(5) + "\n");
}

TEST_F(SectionPrinterTest, EntriesWithoutIssueCountForTheWidthOfTheNumbers) {
  add_empty_issue(24);
  for (int entry = 0; entry < 9; ++entry) {
    add_issue(data, 24, nullptr);
  }
  EXPECT_EQ(print(false),
            "Issues contributing to FAIL\n"
            "\n"
            "CRITICAL:\n"
            "Diagnoses\n"
            "1.   (appears on 0 nodes)\n"
            "    Category: FUNCTIONALITY\n"
            "\n"
            "\n\n\n\n\n\n\n\n\n");
}

class MissingCountTest : public SectionPrinterTest,
                         public ::testing::WithParamInterface<unsigned> {};

TEST_P(MissingCountTest, FailsBehindTheHeadingWithAMessageOnStandardError) {
  const unsigned missing = GetParam();
  const bool other = missing < 16;
  add_empty_issue(24);
  add_empty_issue(8);
  data.counts_by_mask.erase(missing);
  const CapturedStandardError standard_error;
  EXPECT_EQ(VondOutputLog(data).PrintSection(other), 1);
  EXPECT_EQ(standard_error.text(), "Error getting number of issues.\n");
  EXPECT_EQ(output.take(),
            other ? "Other issues (not contributing to FAIL)\n" : "Issues contributing to FAIL\n");
}

INSTANTIATE_TEST_SUITE_P(UnderMask, MissingCountTest, ::testing::Values(0U, 3U, 16U, 19U));

TEST_F(SectionPrinterTest, NeedsNoCountsOfTheOtherSection) {
  data.counts_by_mask = {{16, 0}, {19, 0}};
  EXPECT_EQ(print(false),
            "Issues contributing to FAIL\n"
            "No issues detected.\n"
            "\n");
}

TEST_F(SectionPrinterTest, EitherCountMakesIssues) {
  data.counts_by_mask = {{16, 0}, {19, 1}};
  EXPECT_EQ(print(false), "Issues contributing to FAIL\n\n");
  data.counts_by_mask = {{16, 1}, {19, 0}};
  EXPECT_EQ(print(false), "Issues contributing to FAIL\n\n");
}

TEST_F(SectionPrinterTest, OnlyCountsWhoseSumIsZeroMakeNoIssues) {
  data.counts_by_mask = {{16, -1}, {19, 0}, {0, -1}, {3, 1}};
  EXPECT_EQ(print(false), "Issues contributing to FAIL\n\n");
  EXPECT_EQ(print(true), "Other issues (not contributing to FAIL)\nNo issues detected.\n\n");
}

TEST_F(SectionPrinterTest, LeavesTheIndexAsItWas) {
  add_empty_issue(24);
  print(false);
  EXPECT_EQ(data.issues_by_mask->size(), 1U);
}

TEST_F(SectionPrinterTest, ReadsTheSameUnderALocaleThatGroupsDigits) {
  add_issues(data, 24, "id", 12);
  add_issues(data, 26, "id", 100);
  const std::string expected = print(false);
  const GroupingLocale locale;
  EXPECT_EQ(print(false), expected);
}

}  // namespace
}  // namespace vond::test
