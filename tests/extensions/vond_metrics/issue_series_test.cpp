#include "issue_series.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/records.h"
#include "vond/extension/words.h"
#include "vond/vocabulary/severity_bands.h"

namespace vond::test {
namespace {

using vond_metrics::WorstIssues;
using Texts = std::vector<std::string>;

class IssueSeriesTest : public ::testing::Test {
 protected:
  WorstIssues worst() const { return WorstIssues(data, vocabulary::SEVERITY_BANDS); }

  /// Returns a text for each series.
  Texts series() const {
    Texts texts;
    const WorstIssues issues = worst();
    for (const auto& one : issues.series()) {
      texts.push_back(one.id + " " + one.band + " " + std::string(extension::type_word(one.type)) +
                      " " + std::to_string(one.count_nodes()));
    }
    return texts;
  }

  void add(unsigned mask, const std::string& id, const std::vector<std::string>& nodes) {
    add_issue(data, mask, make_issue({.id = id, .nodes = nodes}));
  }

  Data data = make_record();
};

TEST_F(IssueSeriesTest, OfNoIssuesAreNone) {
  EXPECT_EQ(series(), Texts());
  data.issues_by_mask.reset();
  EXPECT_EQ(series(), Texts());
}

TEST_F(IssueSeriesTest, CountDistinctNodesOfAllIssuesWithAnId) {
  add(24, "disk#sda", {"n1", "n2", "n1"});
  add(24, "disk#sdb", {"n2", "n3"});
  add_output(data.issues_by_mask->at(24)[0], {"n4"});
  EXPECT_EQ(series(), Texts{"disk critical diagnosis 4"});
}

TEST_F(IssueSeriesTest, UniteIssuesOfBothSections) {
  add(24, "disk", {"n1"});
  add(8, "disk", {"n2"});
  EXPECT_EQ(series(), Texts{"disk critical diagnosis 2"});
}

TEST_F(IssueSeriesTest, KeepBandsAndTypesApart) {
  add(24, "a", {"n1"});
  add(25, "a", {"n1"});
  add(4, "a", {"n1", "n2"});
  EXPECT_EQ(series(),
            (Texts{"a critical diagnosis 1", "a critical observation 1", "a warning diagnosis 2"}));
}

TEST_F(IssueSeriesTest, OfAnIssueOnNoNodesIsZero) {
  add(24, "a", {});
  add_issue(data, 25, make_issue_without_outputs());
  EXPECT_EQ(series(), (Texts{"a critical diagnosis 0", " critical observation 0"}));
}

TEST_F(IssueSeriesTest, IdsThatLabelsCannotTellApartAreOne) {
  add(24, "a\xFE", {"n1"});
  add(24, "a\xFF", {"n2"});
  EXPECT_EQ(series(), Texts{"a\uFFFD critical diagnosis 2"});
}

TEST_F(IssueSeriesTest, OfAThousandIdsAreAll) {
  add_issues(data, 24, "i", 1000);
  EXPECT_EQ(worst().series().size(), 1000U);
  EXPECT_EQ(worst().omitted_ids(), 0U);
}

TEST_F(IssueSeriesTest, BeyondAThousandIdsAreOfTheWorst) {
  add_issues(data, 4, "w", 1000);
  add_issues(data, 24, "c", 1);
  const WorstIssues issues = worst();
  ASSERT_EQ(issues.series().size(), 1000U);
  EXPECT_EQ(issues.series().front().id, "c1");
  EXPECT_EQ(issues.series().back().id, "w999");
  EXPECT_EQ(issues.omitted_ids(), 1U);
}

TEST_F(IssueSeriesTest, OfAnIdAmongTheWorstAreThoseOfItsLesserIssuesToo) {
  add_issues(data, 24, "c", 1000);
  add(4, "w", {"n1"});
  add(4, "c1000#other", {"n1"});
  add(5, "w#again", {"n1"});
  const WorstIssues issues = worst();
  ASSERT_EQ(issues.series().size(), 1001U);
  EXPECT_EQ(issues.series().back().id, "c1000");
  EXPECT_EQ(issues.series().back().band, "warning");
  EXPECT_EQ(issues.omitted_ids(), 1U);
}

}  // namespace
}  // namespace vond::test
