#include "standalone/report/alike_names.h"

#include <gtest/gtest.h>

namespace {

using vond::standalone::find_alike_names;

using Names = std::vector<std::string>;
using Pairs = std::vector<std::pair<std::string, std::string>>;

TEST(AlikeNames, DifferInDomainCaseOrZerosAlone) {
  EXPECT_EQ(find_alike_names({"cn001"}, {"cn001.cluster.example"}),
            (Pairs{{"cn001", "cn001.cluster.example"}}));
  EXPECT_EQ(find_alike_names({"cn001.a"}, {"cn001.b"}), (Pairs{{"cn001.a", "cn001.b"}}));
  EXPECT_EQ(find_alike_names({"cn001"}, {"CN001"}), (Pairs{{"cn001", "CN001"}}));
  EXPECT_EQ(find_alike_names({"r01n001"}, {"r1n1"}), (Pairs{{"r01n001", "r1n1"}}));
  EXPECT_EQ(find_alike_names({"n000"}, {"n0"}), (Pairs{{"n000", "n0"}}));
  EXPECT_EQ(find_alike_names({"cn001"}, {"CN1.cluster"}), (Pairs{{"cn001", "CN1.cluster"}}));
}

TEST(AlikeNames, OfDifferentNodesAreNotAlike) {
  for (const char* const name : {"cn1", "cn100", "cn01", "cn", "xcn10", "cn-10", ""}) {
    EXPECT_EQ(find_alike_names({"cn10"}, {name}), Pairs()) << name;
  }
  EXPECT_EQ(find_alike_names({"n0"}, {"n"}), Pairs());
  EXPECT_EQ(find_alike_names({"n10"}, {"n1"}), Pairs());
  EXPECT_EQ(find_alike_names({"n1-0"}, {"n1-"}), Pairs());
}

TEST(AlikeNames, AddressesHaveNoDomain) {
  EXPECT_EQ(find_alike_names({"10.0.0.1"}, {"10.0.0.2", "10.1.0.1", "10"}), Pairs());
  EXPECT_EQ(find_alike_names({"10.0.0.1"}, {"010.000.000.001"}),
            (Pairs{{"10.0.0.1", "010.000.000.001"}}));
}

TEST(AlikeNames, ThatBeginWithADotKeepIt) {
  EXPECT_EQ(find_alike_names({".a"}, {".b", ""}), Pairs());
}

TEST(AlikeNames, GiveEveryExpectedNameOnePair) {
  EXPECT_EQ(find_alike_names({"n01", "n2", "n1"}, {"n001", "n0001", "x"}),
            (Pairs{{"n01", "n001"}, {"n1", "n001"}}));
}

TEST(AlikeNames, OfACrowdOfLikeNamesAreFoundAtOnce) {
  Names expected;
  Names seen;
  for (int i = 0; i < 100'000; ++i) {
    expected.push_back("n.a" + std::to_string(i));
    seen.push_back("n.b" + std::to_string(i));
  }
  EXPECT_EQ(find_alike_names(expected, seen).size(), expected.size());
}

}  // namespace
