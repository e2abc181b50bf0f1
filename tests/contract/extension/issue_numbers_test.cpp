#include "vond/extension/issue_numbers.h"

#include <gtest/gtest.h>

#include "tests/support/records.h"
#include "vond/extension/words.h"
#include "vond/vocabulary/severity_bands.h"

namespace {

using vond::extension::IssueNumbers;
using vond::extension::status_word;
using vond::extension::type_word;
using vond::postprocessor::FAIL_BIT;
using vond::postprocessor::Severity;
using vond::test::add_issue;
using vond::test::make_issue;
using vond::vocabulary::SEVERITY_BANDS;

TEST(IssueNumbers, CountFromOneInTheOrderOfTheReport) {
  auto data = vond::test::make_record();
  const auto passing = make_issue({.id = "passing"});
  const auto failing = make_issue({.id = "failing"});
  const auto diagnosis = make_issue({.id = "diagnosis"});
  const auto critical = static_cast<unsigned>(Severity::CRITICAL) | FAIL_BIT;
  add_issue(data, vond::postprocessor::OBSERVATIONS, passing);
  add_issue(data, critical | vond::postprocessor::OBSERVATIONS, failing);
  add_issue(data, critical | vond::postprocessor::DIAGNOSES, diagnosis);
  const IssueNumbers numbers(data, SEVERITY_BANDS);
  EXPECT_EQ(numbers.of(diagnosis.get()), 1U);
  EXPECT_EQ(numbers.of(failing.get()), 2U);
  EXPECT_EQ(numbers.of(passing.get()), 3U);
  EXPECT_EQ(numbers.size(), 3U);
}

TEST(IssueNumbers, AnIssueThatIsFiledTwiceHasOneNumberAndAStrangerNone) {
  auto data = vond::test::make_record();
  const auto twice = make_issue({.id = "twice"});
  const auto once = make_issue({.id = "once"});
  const auto critical = static_cast<unsigned>(Severity::CRITICAL) | FAIL_BIT;
  add_issue(data, critical, twice);
  add_issue(data, 0, twice);
  add_issue(data, 0, once);
  const IssueNumbers numbers(data, SEVERITY_BANDS);
  EXPECT_EQ(numbers.of(twice.get()), 1U);
  EXPECT_EQ(numbers.of(once.get()), 2U);
  EXPECT_EQ(numbers.size(), 2U);
  EXPECT_EQ(numbers.of(nullptr), 0U);
}

TEST(IssueNumbers, KnowWhereAnIssueStands) {
  auto data = vond::test::make_record();
  const auto failing = make_issue({.id = "failing"});
  const auto passing = make_issue({.id = "passing"});
  add_issue(data, static_cast<unsigned>(Severity::CRITICAL) | FAIL_BIT, failing);
  add_issue(data, static_cast<unsigned>(Severity::WARNING) | vond::postprocessor::MISSING_DATA,
            passing);
  const IssueNumbers numbers(data);
  const auto* place = numbers.place_of(failing.get());
  ASSERT_NE(place, nullptr);
  EXPECT_EQ(place->number, 1U);
  EXPECT_EQ(place->band, "critical");
  EXPECT_EQ(place->type, vond::postprocessor::DIAGNOSES);
  EXPECT_TRUE(place->fails);
  place = numbers.place_of(passing.get());
  ASSERT_NE(place, nullptr);
  EXPECT_EQ(place->number, 2U);
  EXPECT_EQ(place->band, "warning");
  EXPECT_EQ(place->type, vond::postprocessor::MISSING_DATA);
  EXPECT_FALSE(place->fails);
}

TEST(IssueNumbers, AnIssueThatIsFiledTwiceStandsWhereItIsFirst) {
  auto data = vond::test::make_record();
  const auto twice = make_issue({.id = "twice"});
  add_issue(data, static_cast<unsigned>(Severity::WARNING), twice);
  add_issue(data, static_cast<unsigned>(Severity::CRITICAL), twice);
  EXPECT_EQ(IssueNumbers(data).place_of(twice.get())->band, "critical");
}

TEST(IssueNumbers, KnowNoPlaceOfAStranger) {
  const IssueNumbers numbers(vond::test::make_record());
  EXPECT_EQ(numbers.place_of(make_issue({.id = "stranger"}).get()), nullptr);
  EXPECT_EQ(numbers.place_of(nullptr), nullptr);
}

TEST(Words, AreThoseOfFindings) {
  EXPECT_EQ(type_word(vond::postprocessor::DIAGNOSES), "diagnosis");
  EXPECT_EQ(type_word(vond::postprocessor::OBSERVATIONS), "observation");
  EXPECT_EQ(type_word(vond::postprocessor::MISSING_DATA), "missing_data");
}

TEST(Words, OfADefinitionThatIsSkippedDoNotTellWhetherItPassed) {
  vond::Fwd definition;
  EXPECT_EQ(status_word(definition), "FAIL");
  definition.passed = true;
  EXPECT_EQ(status_word(definition), "PASS");
  definition.skipped = true;
  EXPECT_EQ(status_word(definition), "SKIPPED");
}

}  // namespace
