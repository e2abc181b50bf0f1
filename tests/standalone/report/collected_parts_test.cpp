#include "standalone/report/collected_parts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using vond::standalone::CollectedParts;

TEST(CollectedParts, RawFindingsAreNotChecked) {
  CollectedParts parts;
  parts.add_findings(5);
  EXPECT_FALSE(parts.is_cut_off());
  EXPECT_EQ(parts.oldest(), std::nullopt);
}

TEST(CollectedParts, AreWholeWhenTheEndsCountWhatIsThereInWhateverOrder) {
  CollectedParts parts;
  parts.begin({200, {"b", "a"}});
  parts.add_findings(3);
  parts.end({2, 1, true});
  parts.begin({100, {"a"}});
  parts.end({4, 2, true});
  parts.add_findings(3);
  EXPECT_FALSE(parts.is_cut_off());
  ASSERT_EQ(parts.begins().size(), 2U);
  EXPECT_THAT(parts.begins()[0].parts, ElementsAre("b", "a"));
  EXPECT_THAT(parts.begins()[1].parts, ElementsAre("a"));
  EXPECT_EQ(parts.oldest(), 100);
  EXPECT_EQ(parts.lines_rejected(), 3U);
}

TEST(CollectedParts, AreCutOffWithoutAnEndOrABeginning) {
  CollectedParts without_end;
  without_end.begin({0, {}});
  EXPECT_TRUE(without_end.is_cut_off());
  CollectedParts without_begin;
  without_begin.end({0, 0, true});
  EXPECT_TRUE(without_begin.is_cut_off());
}

TEST(CollectedParts, AreCutOffWhenFindingsAreMissingOrTooMany) {
  for (const std::uint64_t findings : {2U, 4U}) {
    CollectedParts parts;
    parts.begin({0, {}});
    parts.add_findings(findings);
    parts.end({3, 0, true});
    EXPECT_TRUE(parts.is_cut_off()) << findings;
  }
}

TEST(CollectedParts, AreCutOffWhenExaminedNodesAreMissing) {
  CollectedParts parts;
  parts.begin({0, {}});
  parts.end({0, 0, true, 66});
  parts.add_examined(60);
  EXPECT_TRUE(parts.is_cut_off());
  parts.add_examined(6);
  EXPECT_FALSE(parts.is_cut_off());
  // Lines may name a node again.
  parts.add_examined(1);
  EXPECT_FALSE(parts.is_cut_off());
}

TEST(CollectedParts, AreCutOffWhenAnEndSaysSo) {
  CollectedParts parts;
  parts.begin({0, {}});
  parts.end({0, 0, false});
  EXPECT_TRUE(parts.is_cut_off());
}

}  // namespace
