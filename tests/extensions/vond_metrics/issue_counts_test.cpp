#include "issue_counts.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/records.h"
#include "vond/extension/words.h"
#include "vond/vocabulary/severity_bands.h"

namespace vond::test {
namespace {

using Texts = std::vector<std::string>;

Texts counts_of(const Data& data) {
  Texts texts;
  for (const auto& [band, type, contributes, issues] :
       vond_metrics::count_issues(data, vocabulary::SEVERITY_BANDS)) {
    texts.push_back(band + " " + std::string(extension::type_word(type)) + " " +
                    (contributes ? "contributes " : "") + std::to_string(issues));
  }
  return texts;
}

TEST(IssueCountsTest, WithoutIssuesAreAllThatTheRecordCanHave) {
  EXPECT_EQ(counts_of(make_record()),
            (Texts{"critical diagnosis contributes 0", "critical observation contributes 0",
                   "critical missing_data contributes 0", "warning diagnosis 0",
                   "warning observation 0", "warning missing_data 0", "informational diagnosis 0",
                   "informational observation 0", "informational missing_data 0"}));
}

TEST(IssueCountsTest, WithoutAnIndexAreThoseWithoutIssues) {
  Data data = make_record();
  data.issues_by_mask.reset();
  EXPECT_EQ(counts_of(data), counts_of(make_record()));
}

TEST(IssueCountsTest, TellWhatContributesByTheThreshold) {
  Data data = make_record();
  for (const auto& [threshold, contributing] : {std::pair(101, 0), {74, 6}, {25, 6}, {24, 9}}) {
    data.fail_threshold = threshold;
    int found = 0;
    for (const std::string& text : counts_of(data)) {
      found += text.find("contributes") != std::string::npos ? 1 : 0;
    }
    EXPECT_EQ(found, contributing) << threshold;
  }
}

TEST(IssueCountsTest, AreOfTheIssuesAndNotOfEmptyEntries) {
  Data data = make_record();
  add_issues(data, 24, "d", 2);
  add_issues(data, 6, "m", 3);
  (*data.issues_by_mask)[24].push_back(nullptr);
  const Texts counts = counts_of(data);
  EXPECT_EQ(counts[0], "critical diagnosis contributes 2");
  EXPECT_EQ(counts[5], "warning missing_data 3");
  EXPECT_EQ(counts.size(), 9U);
}

TEST(IssueCountsTest, LoseNoIssueThatIsFiledAgainstTheThreshold) {
  Data data = make_record();
  add_issues(data, 4U | postprocessor::FAIL_BIT, "w", 2);
  const Texts counts = counts_of(data);
  ASSERT_EQ(counts.size(), 10U);
  EXPECT_EQ(counts[3], "warning diagnosis contributes 2");
  EXPECT_EQ(counts[4], "warning diagnosis 0");
}

}  // namespace
}  // namespace vond::test
