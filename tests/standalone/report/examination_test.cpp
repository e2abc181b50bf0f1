#include "standalone/report/examination.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace {

using vond::standalone::Examination;
using vond::standalone::StringInterner;

using Names = std::vector<std::string>;

StringInterner interned(std::initializer_list<std::string_view> names) {
  StringInterner nodes;
  for (const std::string_view name : names) {
    nodes.id_of(name);
  }
  return nodes;
}

TEST(Examination, NothingIsKnownAtFirst) {
  const Examination examination;
  EXPECT_FALSE(examination.is_known());
  EXPECT_EQ(examination.examined(), 0U);
  EXPECT_EQ(examination.expected_and_not_in({}), Names());
  EXPECT_EQ(examination.seen(interned({})), Names());
}

TEST(Examination, OneExaminedNodeMakesItKnown) {
  Examination examination;
  examination.add_examined("n1");
  EXPECT_TRUE(examination.is_known());
}

TEST(Examination, MayBeKnownToHaveExaminedNothing) {
  Examination examination;
  examination.set_known();
  EXPECT_TRUE(examination.is_known());
  EXPECT_EQ(examination.examined(), 0U);
  EXPECT_EQ(examination.not_examined(interned({"n1"})), Names{"n1"});
}

TEST(Examination, ExpectedNodesTellNothingAboutWhatWasExamined) {
  Examination examination;
  examination.add_expected("n1");
  EXPECT_FALSE(examination.is_known());
  EXPECT_EQ(examination.expected_and_not_in({}), Names{"n1"});
}

TEST(Examination, CountsANodeOnceHoweverOftenItIsNamed) {
  Examination examination;
  for (const std::string_view name : {"n2", "n1", "n2", "n2"}) {
    examination.add_examined(name);
    examination.add_expected(name);
  }
  EXPECT_EQ(examination.examined(), 2U);
  EXPECT_EQ(examination.seen(interned({})), (Names{"n1", "n2"}));
  EXPECT_EQ(examination.expected_and_not_in({}), (Names{"n1", "n2"}));
}

TEST(Examination, NamesTheNodesThatWereNotExaminedInByteOrder) {
  Examination examination;
  examination.add_examined("n1");
  examination.add_examined("unheard-of");
  EXPECT_EQ(examination.not_examined(interned({"n9", "n1", "n10", "N1"})),
            (Names{"N1", "n10", "n9"}));
}

TEST(Examination, ExaminedNodesAreTheOnesThatWereSeen) {
  Examination examination;
  examination.add_examined("n2");
  examination.add_examined("n10");
  EXPECT_EQ(examination.seen(interned({"n9"})), (Names{"n10", "n2"}));
}

TEST(Examination, NodesWithFindingsCountAsSeenWhereNobodyToldWhoWasExamined) {
  EXPECT_EQ(Examination().seen(interned({"n9", "n10"})), (Names{"n10", "n9"}));
}

TEST(Examination, NobodyWasSeenWhereItIsKnownThatNoneWasExamined) {
  Examination examination;
  examination.set_known();
  EXPECT_EQ(examination.seen(interned({"n9"})), Names());
}

TEST(Examination, ComparesExpectedAndSeenNodesBothWaysInByteOrder) {
  Examination examination;
  for (const std::string_view name : {"n9", "n1", "n10", "N1"}) {
    examination.add_expected(name);
  }
  const Names seen = {"a", "n1", "n11"};
  EXPECT_EQ(examination.expected_and_not_in(seen), (Names{"N1", "n10", "n9"}));
  EXPECT_EQ(examination.not_expected_of(seen), (Names{"a", "n11"}));
}

TEST(Examination, KeepsNamesWhoseTextIsGone) {
  Examination examination;
  {
    const std::string name = "a name that is too long to be kept in place";
    examination.add_expected(name);
  }
  EXPECT_EQ(examination.expected_and_not_in({}),
            Names{"a name that is too long to be kept in place"});
}

}  // namespace
