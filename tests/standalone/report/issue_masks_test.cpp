#include "standalone/report/issue_masks.h"

#include <gtest/gtest.h>

namespace {

using vond::postprocessor::DIAGNOSES;
using vond::postprocessor::MISSING_DATA;
using vond::postprocessor::OBSERVATIONS;
using vond::postprocessor::TypeCode;
using vond::standalone::CollapsedIssue;
using vond::standalone::definition_count_mask;
using vond::standalone::file_mask;
using vond::standalone::total_count_mask;

CollapsedIssue issue_of(TypeCode type, int severity) {
  CollapsedIssue issue;
  issue.type = type;
  issue.severity = severity;
  return issue;
}

TEST(IssueMasks, AreFiledByTypeAndBand) {
  EXPECT_EQ(file_mask(issue_of(DIAGNOSES, 24), 75).to_ulong(), 0U);
  EXPECT_EQ(file_mask(issue_of(OBSERVATIONS, 25), 75).to_ulong(), 5U);
  EXPECT_EQ(file_mask(issue_of(MISSING_DATA, 74), 75).to_ulong(), 6U);
  EXPECT_EQ(file_mask(issue_of(OBSERVATIONS, 75), 75).to_ulong(), 25U);
}

TEST(IssueMasks, CountsKnowDiagnosesAndOneKindOfObservations) {
  EXPECT_EQ(definition_count_mask(issue_of(DIAGNOSES, 50), 75).to_ulong(), 4U);
  EXPECT_EQ(definition_count_mask(issue_of(OBSERVATIONS, 50), 75).to_ulong(), 7U);
  EXPECT_EQ(definition_count_mask(issue_of(MISSING_DATA, 50), 75).to_ulong(), 7U);
  EXPECT_EQ(definition_count_mask(issue_of(MISSING_DATA, 100), 75).to_ulong(), 27U);
}

TEST(IssueMasks, TotalsKnowNoBands) {
  EXPECT_EQ(total_count_mask(issue_of(DIAGNOSES, 0), 75).to_ulong(), 0U);
  EXPECT_EQ(total_count_mask(issue_of(OBSERVATIONS, 50), 75).to_ulong(), 3U);
  EXPECT_EQ(total_count_mask(issue_of(DIAGNOSES, 75), 75).to_ulong(), 16U);
  EXPECT_EQ(total_count_mask(issue_of(MISSING_DATA, 100), 75).to_ulong(), 19U);
}

TEST(IssueMasks, AllHaveTheFailBitWhenTheBandReachesTheThreshold) {
  const CollapsedIssue lowest_warning = issue_of(OBSERVATIONS, 25);
  for (const int threshold : {0, 25, 74}) {
    EXPECT_EQ(file_mask(lowest_warning, threshold).to_ulong(), 21U) << threshold;
    EXPECT_EQ(definition_count_mask(lowest_warning, threshold).to_ulong(), 23U) << threshold;
    EXPECT_EQ(total_count_mask(lowest_warning, threshold).to_ulong(), 19U) << threshold;
  }
  EXPECT_EQ(file_mask(lowest_warning, 75).to_ulong(), 5U);
}

}  // namespace
