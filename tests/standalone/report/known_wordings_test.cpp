#include "standalone/report/known_wordings.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

using vond::standalone::Finding;
using Known = vond::standalone::KnownWordings<std::uint64_t>;

Finding finding_of(std::uint64_t wording_number) {
  Finding finding;
  finding.wording_number = wording_number;
  return finding;
}

TEST(KnownWordings, AreFoundByTheirNumbers) {
  Known known;
  EXPECT_EQ(known.find(finding_of(7)), nullptr);
  known.remember(finding_of(7), 70);
  known.remember(finding_of(8), 80);
  ASSERT_NE(known.find(finding_of(7)), nullptr);
  EXPECT_EQ(*known.find(finding_of(7)), 70U);
  EXPECT_EQ(*known.find(finding_of(8)), 80U);
  EXPECT_EQ(known.find(finding_of(9)), nullptr);
}

TEST(KnownWordings, AreNotKnownWithoutANumber) {
  Known known;
  EXPECT_EQ(known.find(finding_of(Finding::UNKNOWN_WORDING)), nullptr);
  known.remember(finding_of(Finding::UNKNOWN_WORDING), 1);
  EXPECT_EQ(known.find(finding_of(Finding::UNKNOWN_WORDING)), nullptr);
}

TEST(KnownWordings, MayBeForgottenButNotMixedUp) {
  Known known;
  int forgotten = 0;
  for (int round = 0; round < 3; ++round) {
    for (std::uint64_t number = 1; number <= 5000; ++number) {
      const std::uint64_t* const found = known.find(finding_of(number));
      forgotten += found == nullptr ? 1 : 0;
      ASSERT_TRUE(found == nullptr || *found == number * 2);
      known.remember(finding_of(number), number * 2);
    }
  }
  EXPECT_GT(forgotten, 5000);
}

}  // namespace
