#include "vond/extension/issue_numbers.h"

#include <gtest/gtest.h>

#include "tests/support/records.h"
#include "vond/extension/text.h"
#include "vond/extension/words.h"
#include "vond/vocabulary/severity_bands.h"

namespace {

using vond::extension::as_field;
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

TEST(Fields, HoldNeitherTabsNorLineEndsNorOtherControlCharacters) {
  EXPECT_EQ(as_field("a\tb\nc\rd\x1b[0m\x7f"), "a b c d [0m ");
  EXPECT_EQ(as_field("caf\xC3\xA9"), "caf\xC3\xA9");
}

}  // namespace
