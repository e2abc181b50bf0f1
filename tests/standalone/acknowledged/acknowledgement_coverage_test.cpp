#include "standalone/acknowledged/acknowledgement_coverage.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using vond::standalone::Acknowledgement;
using vond::standalone::AcknowledgementCoverage;

constexpr std::time_t NOW = 1000;

Acknowledgement entry_of(const std::string& id, const std::vector<std::string>& nodes) {
  return {.id = id, .nodes = nodes, .is_everywhere = nodes.empty(), .until = NOW, .reason = "r"};
}

TEST(AcknowledgementCoverage, IsOfAnIdOnNodes) {
  const std::vector<Acknowledgement> entries = {entry_of("a", {"n1", "n3"})};
  const AcknowledgementCoverage coverage(entries, NOW);
  EXPECT_TRUE(coverage.covers("a", 100, "n1"));
  EXPECT_TRUE(coverage.covers("a", 0, "n3"));
  EXPECT_FALSE(coverage.covers("a", 0, "n2"));
  EXPECT_FALSE(coverage.covers("a", 0, ""));
  EXPECT_FALSE(coverage.covers("a#1", 0, "n1"));
}

TEST(AcknowledgementCoverage, OfEveryNodeIncludesFindingsWithoutNodes) {
  const std::vector<Acknowledgement> entries = {entry_of("a", {})};
  const AcknowledgementCoverage coverage(entries, NOW);
  EXPECT_TRUE(coverage.covers("a", 100, "anywhere"));
  EXPECT_TRUE(coverage.covers("a", 100, ""));
}

TEST(AcknowledgementCoverage, EndsAboveABand) {
  std::vector<Acknowledgement> entries = {entry_of("a", {"n1"})};
  entries[0].up_to = 74;
  const AcknowledgementCoverage coverage(entries, NOW);
  EXPECT_TRUE(coverage.covers("a", 74, "n1"));
  EXPECT_FALSE(coverage.covers("a", 75, "n1"));
}

TEST(AcknowledgementCoverage, EndsBehindItsLastSecond) {
  const std::vector<Acknowledgement> entries = {entry_of("a", {"n1"})};
  EXPECT_TRUE(AcknowledgementCoverage(entries, NOW).covers("a", 1, "n1"));
  const AcknowledgementCoverage later(entries, NOW + 1);
  EXPECT_FALSE(later.covers("a", 1, "n1"));
  std::vector<std::size_t> expired;
  later.for_each_expired("a", 1, "n1", [&](std::size_t number) { expired.push_back(number); });
  EXPECT_EQ(expired, std::vector<std::size_t>{0});
}

class CoverageWithObservations : public ::testing::Test {
 protected:
  CoverageWithObservations() {
    entries[0].with_observations = true;
    entries[0].up_to = 74;
  }

  std::vector<Acknowledgement> entries = {entry_of("d", {"n1", "n2"})};
};

TEST_F(CoverageWithObservations, IsOfThoseThatAnAcknowledgedDiagnosisIsBasedOn) {
  AcknowledgementCoverage coverage(entries, NOW);
  EXPECT_FALSE(coverage.covers_with_diagnosis("o", 50, "n1"));
  coverage.add_diagnosis("d", 50, "n1", {"o", "p"});
  EXPECT_TRUE(coverage.covers_with_diagnosis("o", 74, "n1"));
  EXPECT_TRUE(coverage.covers_with_diagnosis("p", 0, "n1"));
  EXPECT_FALSE(coverage.covers_with_diagnosis("o", 75, "n1"));
  EXPECT_FALSE(coverage.covers_with_diagnosis("o", 50, "n2"));
  EXPECT_FALSE(coverage.covers_with_diagnosis("q", 50, "n1"));
}

TEST_F(CoverageWithObservations, NeedsTheDiagnosisToBeCovered) {
  AcknowledgementCoverage coverage(entries, NOW);
  coverage.add_diagnosis("d", 75, "n1", {"o"});
  coverage.add_diagnosis("d", 50, "n3", {"o"});
  coverage.add_diagnosis("e", 50, "n1", {"o"});
  for (const char* node : {"n1", "n2", "n3"}) {
    EXPECT_FALSE(coverage.covers_with_diagnosis("o", 50, node)) << node;
  }
}

TEST_F(CoverageWithObservations, NeedsTheEntryToSaySo) {
  entries[0].with_observations = false;
  AcknowledgementCoverage coverage(entries, NOW);
  coverage.add_diagnosis("d", 50, "n1", {"o"});
  EXPECT_FALSE(coverage.covers_with_diagnosis("o", 50, "n1"));
}

TEST_F(CoverageWithObservations, ReachesAsFarAsTheWidestEntry) {
  entries.push_back(entries[0]);
  entries[1].up_to = 24;
  AcknowledgementCoverage coverage(entries, NOW);
  coverage.add_diagnosis("d", 10, "n1", {"o"});
  EXPECT_TRUE(coverage.covers_with_diagnosis("o", 74, "n1"));
}

TEST_F(CoverageWithObservations, IsPossibleOnTheNodesOfSuchEntriesAlone) {
  const AcknowledgementCoverage coverage(entries, NOW);
  EXPECT_TRUE(coverage.may_cover_with_diagnosis(74, "n1"));
  EXPECT_FALSE(coverage.may_cover_with_diagnosis(75, "n1"));
  EXPECT_FALSE(coverage.may_cover_with_diagnosis(74, "n3"));
  EXPECT_FALSE(AcknowledgementCoverage(entries, NOW + 1).may_cover_with_diagnosis(74, "n1"));
}

}  // namespace
