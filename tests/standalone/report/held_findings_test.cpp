#include "standalone/report/held_findings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/standalone/support/findings.h"

namespace {

using vond::standalone::Finding;
using vond::standalone::HeldFindings;
using vond::standalone::owned;
using vond::standalone::OwnedWording;
using vond::test::make_finding;

/// A finding that keeps its texts.
struct Kept {
  OwnedWording wording;
  std::vector<std::string> nodes;
  std::vector<int> row_ids;
  std::uint64_t count;

  bool operator==(const Kept&) const = default;
};

Kept kept(const Finding& finding) {
  return {owned(finding.wording),
          {finding.nodes.begin(), finding.nodes.end()},
          finding.row_ids,
          finding.count};
}

std::vector<Kept> release(HeldFindings& held) {
  std::vector<Kept> findings;
  held.release([&findings](const Finding& finding) {
    EXPECT_EQ(finding.pattern_number, Finding::UNKNOWN_PATTERN);
    findings.push_back(kept(finding));
  });
  return findings;
}

TEST(HeldFindings, ComeBackAsTheyWere) {
  const Finding first = make_finding({.type = vond::postprocessor::MISSING_DATA,
                                      .id = "a",
                                      .severity = 7,
                                      .category = "c",
                                      .message = "m",
                                      .remedy = "r",
                                      .nodes = {"n2", "n1", "n2"},
                                      .row_ids = {3, 1},
                                      .definitions = {"d", "e"},
                                      .based_on = {"x", "y"},
                                      .count = 41});
  const Finding second = make_finding({.id = "b"});
  const Finding third = make_finding({.id = "a", .nodes = {"n1"}, .row_ids = {9}});
  HeldFindings held;
  for (const Finding& finding : {first, second, third}) {
    held.add(finding);
  }
  EXPECT_EQ(release(held), (std::vector{kept(first), kept(second), kept(third)}));
}

TEST(HeldFindings, AreForgottenWhenTheyCameBack) {
  HeldFindings held;
  held.add(make_finding({.nodes = {"n1"}, .row_ids = {1}}));
  EXPECT_EQ(release(held).size(), 1U);
  EXPECT_EQ(release(held).size(), 0U);
}

TEST(HeldFindings, HaveNumbersOfTheirWordingsThatNoReaderGives) {
  HeldFindings held;
  for (const char* id : {"a", "b", "a"}) {
    held.add(make_finding({.id = id}));
  }
  std::vector<std::uint64_t> numbers;
  held.release([&numbers](const Finding& finding) { numbers.push_back(finding.wording_number); });
  ASSERT_EQ(numbers.size(), 3U);
  EXPECT_EQ(numbers[0], numbers[2]);
  EXPECT_NE(numbers[0], numbers[1]);
  EXPECT_GT(std::min(numbers[0], numbers[1]), std::uint64_t{1} << 63U);
}

TEST(HeldFindings, OfOneWordingNumberShareTheirWording) {
  Finding first = make_finding({.id = "a", .nodes = {"n1"}});
  first.wording_number = 5;
  Finding second = first;
  second.nodes = {"n2"};
  Finding other = make_finding({.id = "b"});
  other.wording_number = 6;
  HeldFindings held;
  for (const Finding& finding : {first, second, other}) {
    held.add(finding);
  }
  EXPECT_EQ(release(held), (std::vector{kept(first), kept(second), kept(other)}));
}

}  // namespace
