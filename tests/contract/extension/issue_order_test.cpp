#include "vond/extension/issue_order.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/records.h"
#include "vond/vocabulary/severity_bands.h"

namespace vond::test {
namespace {

using extension::band_mask;
using extension::find_band;
using extension::find_issues;
using extension::for_each_issue;
using extension::IssueView;
using postprocessor::Severity;
using vocabulary::SEVERITY_BANDS;
using Texts = std::vector<std::string>;

/// Returns what for_each_issue() visits, a text for each visit.
Texts visits(const Data& data) {
  Texts texts;
  for_each_issue(data, SEVERITY_BANDS,
                 [&texts](const extension::Issue& issue, const vocabulary::SeverityBand& band,
                          postprocessor::TypeCode type, bool fails) {
                   texts.push_back(issue->get_id() + " " + std::get<3>(band) + " " +
                                   std::to_string(type) + (fails ? " fails" : ""));
                 });
  return texts;
}

Data make_record_with_all_masks() {
  Data data = make_record();
  for (unsigned mask = 0; mask < 32; ++mask) {
    add_issue(data, mask, make_issue({.id = std::to_string(mask)}));
  }
  return data;
}

TEST(IssueOrder, IsThatOfTheReport) {
  EXPECT_EQ(
      visits(make_record_with_all_masks()),
      (Texts{"24 critical 0 fails", "25 critical 1 fails", "26 critical 2 fails",
             "20 warning 0 fails", "21 warning 1 fails", "22 warning 2 fails",
             "16 informational 0 fails", "17 informational 1 fails", "18 informational 2 fails",
             "8 critical 0", "9 critical 1", "10 critical 2", "4 warning 0", "5 warning 1",
             "6 warning 2", "0 informational 0", "1 informational 1", "2 informational 2"}));
}

TEST(IssueOrder, OfAnIndexIsThatOfItsRecord) {
  const Data data = make_record_with_all_masks();
  Texts ids;
  for_each_issue(
      *data.issues_by_mask, SEVERITY_BANDS,
      [&ids](const extension::Issue& issue, const vocabulary::SeverityBand& /*band*/,
             postprocessor::TypeCode /*type*/, bool /*fails*/) { ids.push_back(issue->get_id()); });
  ASSERT_EQ(ids.size(), 18U);
  EXPECT_EQ(ids.front(), "24");
  EXPECT_EQ(ids.back(), "2");
}

TEST(IssueOrder, NeedsNoTableForTheBandsOfTheScale) {
  const Data data = make_record_with_all_masks();
  Texts texts;
  for_each_issue(data,
                 [&texts](const auto& issue, const auto& band, auto /*type*/, bool /*fails*/) {
                   texts.push_back(issue->get_id() + " " + vocabulary::band_name(band));
                 });
  ASSERT_EQ(texts.size(), 18U);
  EXPECT_EQ(texts.front(), "24 critical");
  EXPECT_EQ(texts.back(), "2 informational");
}

TEST(IssueOrder, KeepsTheOrderOfAListAndItsRepetitionsAndLeavesEmptyEntriesOut) {
  Data data = make_record();
  const Issue twice = make_issue({.id = "z"});
  (*data.issues_by_mask)[24] = {twice, nullptr, make_issue({.id = "a"}), twice};
  EXPECT_EQ(visits(data),
            (Texts{"z critical 0 fails", "a critical 0 fails", "z critical 0 fails"}));
}

TEST(IssueOrder, IsEmptyWithoutIssues) {
  Data data = make_record();
  EXPECT_EQ(visits(data), Texts());
  data.issues_by_mask.reset();
  EXPECT_EQ(visits(data), Texts());
}

TEST(IssueIndex, FindsTheEntryOfAMaskAndOnlyThat) {
  Data data = make_record();
  (*data.issues_by_mask)[5] = {};
  EXPECT_EQ(find_issues(*data.issues_by_mask, 5), &data.issues_by_mask->at(5));
  EXPECT_EQ(find_issues(*data.issues_by_mask, 5 + 32), &data.issues_by_mask->at(5));
  EXPECT_EQ(find_issues(*data.issues_by_mask, 4), nullptr);
}

TEST(IssueIndex, BandHasItsThreeGroups) {
  const Data data = make_record_with_all_masks();
  const extension::BandIssues issues = find_band(*data.issues_by_mask, Severity::WARNING, 16);
  EXPECT_EQ((*issues.diagnoses.begin())->get_id(), "20");
  EXPECT_EQ((*issues.observations.begin())->get_id(), "21");
  EXPECT_EQ((*issues.missing_data.begin())->get_id(), "22");
}

TEST(IssueIndex, BandIsEmptyWhenAllItsGroupsAre) {
  for (const unsigned mask : {4U, 5U, 6U}) {
    Data data = make_record();
    EXPECT_TRUE(find_band(*data.issues_by_mask, Severity::WARNING, 0).empty());
    (*data.issues_by_mask)[mask] = {};
    EXPECT_TRUE(find_band(*data.issues_by_mask, Severity::WARNING, 0).empty());
    (*data.issues_by_mask)[mask] = {nullptr};
    EXPECT_FALSE(find_band(*data.issues_by_mask, Severity::WARNING, 0).empty());
  }
}

TEST(IssueIndex, ViewCountsEmptyEntries) {
  const postprocessor::IssueList issues = {nullptr, make_issue({.id = "a"})};
  EXPECT_EQ(IssueView(&issues).size(), 2U);
  EXPECT_EQ(IssueView(nullptr).size(), 0U);
  EXPECT_EQ(IssueView(nullptr).begin(), IssueView(nullptr).end());
}

TEST(IssueIndex, BandFailsFromItsUpperBoundOn) {
  EXPECT_EQ(band_mask(Severity::WARNING, 74, 74), 20U);
  EXPECT_EQ(band_mask(Severity::WARNING, 74, 75), 4U);
  EXPECT_EQ(band_mask(Severity::INFORMATIONAL, 24, 0), 16U);
  EXPECT_EQ(band_mask(Severity::CRITICAL, 100, 101), 8U);
}

}  // namespace
}  // namespace vond::test
