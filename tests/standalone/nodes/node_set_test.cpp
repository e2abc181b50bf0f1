#include "standalone/nodes/node_set.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

using testing::ElementsAre;
using vond::standalone::expand_node_set;
using vond::standalone::MAX_NODE_SET_SIZE;
using vond::standalone::NodeSetError;

/// Returns the error as "OFFSET: MESSAGE", "" when there is none.
std::string error_of(std::string_view text) {
  try {
    expand_node_set(text);
  } catch (const NodeSetError& error) {
    return std::to_string(error.offset) + ": " + error.what();
  }
  return "";
}

TEST(NodeSet, OfPlainNamesIsThoseInTheirOrder) {
  EXPECT_THAT(expand_node_set("login1"), ElementsAre("login1"));
  EXPECT_THAT(expand_node_set("b,a,c2,b"), ElementsAre("b", "a", "c2", "b"));
  EXPECT_THAT(expand_node_set("n-1,10.0.0.1,a_b:c+d=e%f"),
              ElementsAre("n-1", "10.0.0.1", "a_b:c+d=e%f"));
  EXPECT_THAT(expand_node_set("none"), ElementsAre("none"));
  EXPECT_THAT(expand_node_set("caf\xC3\xA9[1-2]"), ElementsAre("caf\xC3\xA9"
                                                               "1",
                                                               "caf\xC3\xA9"
                                                               "2"));
}

TEST(NodeSet, ExpandsRangesAndSingleNumbers) {
  EXPECT_THAT(expand_node_set("node[1-3,7],login1"),
              ElementsAre("node1", "node2", "node3", "node7", "login1"));
  EXPECT_THAT(expand_node_set("n[5]"), ElementsAre("n5"));
  EXPECT_THAT(expand_node_set("n[5-5]"), ElementsAre("n5"));
  EXPECT_THAT(expand_node_set("n[3,1,2,1]"), ElementsAre("n3", "n1", "n2", "n1"));
  EXPECT_THAT(expand_node_set("[1-2]"), ElementsAre("1", "2"));
}

TEST(NodeSet, ExpandsAWholeCluster) {
  const std::vector<std::string> names = expand_node_set("node[001-128,130],login1");
  ASSERT_EQ(names.size(), 130U);
  EXPECT_EQ(names[0], "node001");
  EXPECT_EQ(names[98], "node099");
  EXPECT_EQ(names[127], "node128");
  EXPECT_EQ(names[128], "node130");
  EXPECT_EQ(names[129], "login1");
}

TEST(NodeSet, KeepsThePaddingOfTheFirstNumber) {
  EXPECT_THAT(expand_node_set("n[08-11]"), ElementsAre("n08", "n09", "n10", "n11"));
  EXPECT_THAT(expand_node_set("n[098-101]"), ElementsAre("n098", "n099", "n100", "n101"));
  EXPECT_THAT(expand_node_set("n[00-01]"), ElementsAre("n00", "n01"));
  EXPECT_THAT(expand_node_set("n[1-2,01,001]"), ElementsAre("n1", "n2", "n01", "n001"));
}

TEST(NodeSet, WithoutPaddingNumbersGrow) {
  EXPECT_THAT(expand_node_set("n[9-11]"), ElementsAre("n9", "n10", "n11"));
  EXPECT_THAT(expand_node_set("n[0-1]"), ElementsAre("n0", "n1"));
}

TEST(NodeSet, LetsPaddedNumbersOutgrowTheirPaddingAsPdshWritesThem) {
  EXPECT_THAT(expand_node_set("n[098-1001/902]"), ElementsAre("n098", "n1000"));
  EXPECT_THAT(expand_node_set("n[08-101/31]"), ElementsAre("n08", "n39", "n70", "n101"));
}

TEST(NodeSet, ExpandsSteps) {
  EXPECT_THAT(expand_node_set("n[0-8/2]"), ElementsAre("n0", "n2", "n4", "n6", "n8"));
  EXPECT_THAT(expand_node_set("n[1-9/5,20]"), ElementsAre("n1", "n6", "n20"));
  EXPECT_THAT(expand_node_set("n[1-3/999999999]"), ElementsAre("n1"));
  EXPECT_THAT(expand_node_set("n[08-12/02]"), ElementsAre("n08", "n10", "n12"));
}

TEST(NodeSet, ExpandsTheLastBracketsFastest) {
  EXPECT_THAT(expand_node_set("c[1-2]n[1-2]"), ElementsAre("c1n1", "c1n2", "c2n1", "c2n2"));
  EXPECT_THAT(
      expand_node_set("x[1-2]y[1-2]z[3,1]"),
      ElementsAre("x1y1z3", "x1y1z1", "x1y2z3", "x1y2z1", "x2y1z3", "x2y1z1", "x2y2z3", "x2y2z1"));
  EXPECT_THAT(expand_node_set("n[1-2][3-4]"), ElementsAre("n13", "n14", "n23", "n24"));
}

TEST(NodeSet, KeepsWhatStandsAroundBrackets) {
  EXPECT_THAT(expand_node_set("n[1-2]-ib0"), ElementsAre("n1-ib0", "n2-ib0"));
  EXPECT_THAT(expand_node_set("n1[2-3]4"), ElementsAre("n124", "n134"));
  EXPECT_THAT(expand_node_set("c[1-2]n[5]"), ElementsAre("c1n5", "c2n5"));
}

TEST(NodeSet, TakesNumbersOfAnyLength) {
  EXPECT_THAT(
      expand_node_set("n[18446744073709551615-18446744073709551617]"),
      ElementsAre("n18446744073709551615", "n18446744073709551616", "n18446744073709551617"));
  EXPECT_THAT(expand_node_set("n[99999999999999999999-100000000000000000000]"),
              ElementsAre("n99999999999999999999", "n100000000000000000000"));
}

TEST(NodeSet, ReadsNamesInSingleQuotesAsTheyAre) {
  EXPECT_THAT(expand_node_set("'odd name'"), ElementsAre("odd name"));
  EXPECT_THAT(expand_node_set("n1,'a[1-2],b','','it'\\''s',n2"),
              ElementsAre("n1", "a[1-2],b", "", "it's", "n2"));
  EXPECT_THAT(expand_node_set("''\\'''"), ElementsAre("'"));
  EXPECT_THAT(expand_node_set("'!&^@-'"), ElementsAre("!&^@-"));
}

TEST(NodeSet, RefusesMissingNames) {
  EXPECT_EQ(error_of(""), "0: found the end of the node set, expected a node name");
  EXPECT_EQ(error_of("n1,"), "3: found the end of the node set, expected a node name");
  EXPECT_EQ(error_of(",n1"), "0: found \",\", expected a node name");
  EXPECT_EQ(error_of("n[1],,n2"), "5: found \",\", expected a node name");
}

TEST(NodeSet, RefusesUnbalancedBrackets) {
  EXPECT_EQ(error_of("n1]"), "2: found \"]\", expected \"[\" before it");
  EXPECT_EQ(error_of("]"), "0: found \"]\", expected \"[\" before it");
  EXPECT_EQ(error_of("n[1]]"), "4: found \"]\", expected \"[\" before it");
  EXPECT_EQ(error_of("n["), "2: found the end of the node set, expected a number");
  EXPECT_EQ(error_of("n[1"), "3: found the end of the node set, expected \"-\", \",\" or \"]\"");
  EXPECT_EQ(error_of("n[1-2"), "5: found the end of the node set, expected \"/\", \",\" or \"]\"");
  EXPECT_EQ(error_of("n[1-2/2"), "7: found the end of the node set, expected \",\" or \"]\"");
}

TEST(NodeSet, RefusesNestedBrackets) {
  EXPECT_EQ(error_of("n[[1]]"), "2: found \"[\", expected a number");
  EXPECT_EQ(error_of("n[1[2]]"), "3: found \"[\", expected \"-\", \",\" or \"]\"");
}

TEST(NodeSet, RefusesMissingNumbers) {
  EXPECT_EQ(error_of("n[]"), "2: found \"]\", expected a number");
  EXPECT_EQ(error_of("n[1,]"), "4: found \"]\", expected a number");
  EXPECT_EQ(error_of("n[,1]"), "2: found \",\", expected a number");
  EXPECT_EQ(error_of("n[1,,2]"), "4: found \",\", expected a number");
  EXPECT_EQ(error_of("n[1-]"), "4: found \"]\", expected a number");
  EXPECT_EQ(error_of("n[-1]"), "2: found \"-\", expected a number");
  EXPECT_EQ(error_of("n[1--2]"), "4: found \"-\", expected a number");
  EXPECT_EQ(error_of("n[1-2/]"), "6: found \"]\", expected a number");
}

TEST(NodeSet, RefusesOtherThingsThanNumbersInBrackets) {
  EXPECT_EQ(error_of("n[a]"), "2: found \"a\", expected a number");
  EXPECT_EQ(error_of("n[1a]"), "3: found \"a\", expected \"-\", \",\" or \"]\"");
  EXPECT_EQ(error_of("n[1-2-3]"), "5: found \"-\", expected \"/\", \",\" or \"]\"");
  EXPECT_EQ(error_of("n[1-2/2/2]"), "7: found \"/\", expected \",\" or \"]\"");
  EXPECT_EQ(error_of("n[5/2]"), "3: found \"/\", expected \"-\", \",\" or \"]\"");
  EXPECT_EQ(error_of("n[\xC3\xA9]"), "2: found the byte 0xC3, expected a number");
}

TEST(NodeSet, RefusesRangesThatRunBackwards) {
  EXPECT_EQ(error_of("n[1,5-1]"), "4: found the range \"5-1\", expected its lower number first");
  EXPECT_EQ(error_of("n[10-9]"), "2: found the range \"10-9\", expected its lower number first");
  EXPECT_EQ(error_of("n[10-09]"), "2: found the range \"10-09\", expected its lower number first");
  EXPECT_EQ(error_of("n[100000000000000000000-99999999999999999999]"),
            "2: found the range \"100000000000000000000-99999999999999999999\", expected its lower "
            "number first");
}

TEST(NodeSet, RefusesPaddingThatCanBeReadInTwoWays) {
  const std::string expected = ", expected both numbers with the same leading zeros";
  EXPECT_EQ(error_of("n[01-2]"), "2: found the range \"01-2\"" + expected);
  EXPECT_EQ(error_of("n[1-010]"), "2: found the range \"1-010\"" + expected);
  EXPECT_EQ(error_of("n[01-010]"), "2: found the range \"01-010\"" + expected);
  EXPECT_EQ(error_of("n[7,001-10]"), "4: found the range \"001-10\"" + expected);
  EXPECT_EQ(error_of("n[0-05]"), "2: found the range \"0-05\"" + expected);
}

TEST(NodeSet, RefusesStepsOutsideTheirLimits) {
  EXPECT_EQ(error_of("n[0-8/0]"), "6: found the step \"0\", expected 1 to 999999999");
  EXPECT_EQ(error_of("n[0-8/1000000000]"),
            "6: found the step \"1000000000\", expected 1 to 999999999");
}

TEST(NodeSet, RefusesBlanksAndControlCharacters) {
  const std::string expected = ", expected a name without it, or one in single quotes";
  EXPECT_EQ(error_of("n1, n2"), "3: found a blank" + expected);
  EXPECT_EQ(error_of("n[1] "), "4: found a blank" + expected);
  EXPECT_EQ(error_of("a b"), "1: found a blank" + expected);
  EXPECT_EQ(error_of("a\tb"), "1: found the byte 0x09" + expected);
  EXPECT_EQ(error_of("a\x7F"), "1: found the byte 0x7F" + expected);
  EXPECT_EQ(error_of("n[1, 2]"), "4: found a blank, expected a number");
  EXPECT_EQ(error_of("n[1 - 2]"), "3: found a blank, expected \"-\", \",\" or \"]\"");
}

TEST(NodeSet, RefusesTheOperatorsOfOtherTools) {
  const std::string expected = ", expected a name without it, or one in single quotes";
  EXPECT_EQ(error_of("n[1-9]!n[2-3]"), "6: found \"!\"" + expected);
  EXPECT_EQ(error_of("n[1-9]&n2"), "6: found \"&\"" + expected);
  EXPECT_EQ(error_of("n1,^hosts"), "3: found \"^\"" + expected);
  EXPECT_EQ(error_of("n1,@all"), "3: found \"@\"" + expected);
  EXPECT_EQ(error_of("n[1-9],-n3"),
            "7: found \"-\", expected a name that begins otherwise, or one in single quotes");
}

TEST(NodeSet, RefusesQuotesThatAreNotAroundAWholeName) {
  EXPECT_EQ(error_of("n1,'a"),
            "5: found the end of the node set, expected \"'\" to close the one at byte 4");
  EXPECT_EQ(error_of("'a'\\''"),
            "6: found the end of the node set, expected \"'\" to close the one at byte 1");
  EXPECT_EQ(error_of("'a'b"),
            "3: found \"b\", expected \",\" or the end after a name in single quotes");
  EXPECT_EQ(error_of("'a'[1-2]"),
            "3: found \"[\", expected \",\" or the end after a name in single quotes");
  EXPECT_EQ(error_of("it's"),
            "2: found \"'\", expected a name without it, or one in single quotes");
}

TEST(NodeSet, HoldsAsManyNamesAsAllowed) {
  EXPECT_EQ(expand_node_set("n[1-1048576]").size(), MAX_NODE_SET_SIZE);
  EXPECT_EQ(expand_node_set("a[1-1024]b[1-1024]").back(), "a1024b1024");
}

TEST(NodeSet, RefusesMoreNamesBeforeItExpandsAny) {
  const std::string message =
      "found more than 1048576 names up to this name's end, expected a node set of at most 1048576";
  EXPECT_EQ(error_of("n[0-1048576]"), "0: " + message);
  EXPECT_EQ(error_of("n[1-1048576],login1"), "13: " + message);
  EXPECT_EQ(error_of("a[1-1024]b[1-1025]"), "0: " + message);
  EXPECT_EQ(error_of("n[1-1000000,1-1000000]"), "0: " + message);
  const std::string huge(100, '9');
  EXPECT_EQ(error_of("n[1-" + huge + "/999999999]"), "0: " + message);
  std::string product;
  for (int i = 0; i < 100; ++i) {
    product += "[0-" + huge + "]";
  }
  EXPECT_EQ(error_of(product), "0: " + message);
}

TEST(NodeSet, RefusesMoreBytesBeforeItExpandsAny) {
  EXPECT_EQ(
      error_of("n1," + std::string(1000, 'n') + "[1-1000000]"),
      "3: found more than 268435456 bytes of names up to this name's end, expected a node set "
      "of at most 268435456");
}

TEST(NodeSet, BlanksSeparateNamesWhereThatIsAskedFor) {
  const auto names = [](std::string_view text) {
    return expand_node_set(text, vond::standalone::Blanks::SEPARATORS);
  };
  EXPECT_THAT(names("a b"), ElementsAre("a", "b"));
  EXPECT_THAT(names(" a,\tb , c\r\nd[1-2]\n"), ElementsAre("a", "b", "c", "d1", "d2"));
  EXPECT_THAT(names("'a b' c"), ElementsAre("a b", "c"));
  EXPECT_THROW(names("a,,b"), NodeSetError);
  EXPECT_THROW(names("a b,"), NodeSetError);
  EXPECT_THROW(names(" "), NodeSetError);
  EXPECT_THROW(names("n[1, 2]"), NodeSetError);
  EXPECT_THROW(names("'a'b"), NodeSetError);
}

TEST(NodeSet, IsKnownWithoutExpandingIt) {
  EXPECT_TRUE(vond::standalone::is_node_set("n[1-2],m"));
  EXPECT_FALSE(vond::standalone::is_node_set("n[1-"));
  EXPECT_FALSE(vond::standalone::is_node_set("a b"));
  EXPECT_FALSE(vond::standalone::is_node_set(""));
}

}  // namespace
