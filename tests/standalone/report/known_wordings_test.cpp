#include "standalone/report/known_wordings.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

using vond::standalone::Finding;
using vond::standalone::KnownWordings;

/// Known wordings, with a search that counts how often it is asked.
class CountedSearches {
 public:
  /// `issue` is what a search would find.
  std::uint32_t issue_of(std::uint64_t wording_number, std::uint32_t issue) {
    Finding finding;
    finding.wording_number = wording_number;
    return known_.issue_of(finding, [&] {
      ++searches_;
      return issue;
    });
  }
  int searches() const { return searches_; }

 private:
  KnownWordings known_;
  int searches_ = 0;
};

TEST(KnownWordings, SearchOnceForANumber) {
  CountedSearches known;
  EXPECT_EQ(known.issue_of(7, 70), 70U);
  EXPECT_EQ(known.issue_of(7, 71), 70U);
  EXPECT_EQ(known.issue_of(8, 80), 80U);
  EXPECT_EQ(known.issue_of(7, 72), 70U);
  EXPECT_EQ(known.searches(), 2);
}

TEST(KnownWordings, SearchEveryTimeWithoutANumber) {
  CountedSearches known;
  EXPECT_EQ(known.issue_of(Finding::UNKNOWN_WORDING, 1), 1U);
  EXPECT_EQ(known.issue_of(Finding::UNKNOWN_WORDING, 2), 2U);
  EXPECT_EQ(known.searches(), 2);
}

TEST(KnownWordings, SearchAgainForWhatWasForgottenAndMixNothingUp) {
  CountedSearches known;
  for (int round = 0; round < 3; ++round) {
    for (std::uint64_t number = 1; number <= 5000; ++number) {
      const auto issue = static_cast<std::uint32_t>(number * 2);
      ASSERT_EQ(known.issue_of(number, issue), issue);
    }
  }
  EXPECT_GT(known.searches(), 5000);
}

}  // namespace
