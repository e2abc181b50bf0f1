// Lists of at most two lines, cut node sets and cut texts.
#include "standalone/libvond_host/blocks/limited_text.h"

#include <gtest/gtest.h>

#include "standalone/nodes/node_set.h"
#include "standalone/text/columns.h"
#include "tests/standalone/libvond_host/report_blocks.h"

namespace vond::standalone {
namespace {

using test::numbered;

std::size_t lines_in(const std::string& text) {
  return 1 + static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

TEST(CutText, LeavesWhatFits) {
  EXPECT_EQ(cut_text("", 0), "");
  EXPECT_EQ(cut_text("abcde", 5), "abcde");
  EXPECT_EQ(cut_text("abcdef", 5), "ab...");
}

TEST(CutText, CountsColumnsAndKeepsGraphemeClustersWhole) {
  EXPECT_EQ(cut_text("日本語日本", 10), "日本語日本");
  EXPECT_EQ(cut_text("日本語日本", 9), "日本語...");
  EXPECT_EQ(cut_text("日本語日本", 8), "日本...");
  EXPECT_EQ(cut_text("e\u0301e\u0301e\u0301e\u0301e\u0301", 4), "e\u0301...");
}

TEST(LimitedList, ShowsAllThatFitsIntoTwoLines) {
  EXPECT_EQ(limited_list({.lead = "  Names: ", .width = 20}, {"aaaa", "bbbb", "cccc", "dddd"}),
            "  Names: aaaa, bbbb,\n"
            "    cccc, dddd");
}

TEST(LimitedList, CountsWhatDoesNotFit) {
  EXPECT_EQ(limited_list({.lead = "  Names: ", .width = 20}, numbered("a", 100)),
            "  Names: a0001 and\n"
            "    99 more");
}

TEST(LimitedList, NeverTakesMoreThanTwoLinesAndIsNeverWider) {
  const std::vector<std::string> names = numbered("name", 300);
  for (int width = 40; width <= 200; ++width) {
    const std::string list = limited_list({.lead = "  Names: ", .width = width}, names);
    EXPECT_EQ(lines_in(list), 2U) << list;
    EXPECT_NE(list.find(" and "), std::string::npos) << list;
    EXPECT_TRUE(list.ends_with(" more")) << list;
    EXPECT_LE(list.find('\n'), static_cast<std::size_t>(width)) << list;
  }
}

TEST(LimitedList, HasOneLineMoreThanALongLead) {
  const ListLayout layout{.lead = "  A label that takes two lines of its own here: ", .width = 30};
  EXPECT_EQ(lines_in(limited_list(layout, numbered("name", 300))), 3U);
}

TEST(LimitedList, CutsAnItemThatDoesNotFitAlone) {
  const std::string one = limited_list({.lead = "  Names: ", .width = 40}, {std::string(500, 'x')});
  EXPECT_EQ(lines_in(one), 2U) << one;
  EXPECT_TRUE(one.ends_with("xxx...")) << one;
  const std::string two =
      limited_list({.lead = "  Names: ", .width = 40}, {std::string(500, 'x'), "y"});
  EXPECT_EQ(lines_in(two), 2U) << two;
  EXPECT_TRUE(two.ends_with("xxx...\n    and 1 more")) << two;
}

TEST(LimitedList, EndsAt160ColumnsWithoutWrapping) {
  for (const int width : {0, -1}) {
    const std::string list = limited_list({.lead = "  Names: ", .width = width}, numbered("n", 99));
    EXPECT_EQ(lines_in(list), 1U);
    EXPECT_LE(list.size(), 160U);
    EXPECT_GT(list.size(), 150U);
    EXPECT_TRUE(list.ends_with(" more")) << list;
  }
}

TEST(LimitedNodeSet, ShowsAWholeSetFolded) {
  EXPECT_EQ(limited_node_set({.lead = "  ", .width = 40}, numbered("cn", 1000)), "  cn[0001-1000]");
  EXPECT_EQ(limited_node_set({.lead = "  ", .width = 40}, {}), "  none");
}

TEST(LimitedNodeSet, FoldsTheFirstNamesAloneWhenItIsCut) {
  std::vector<std::string> names;
  for (int number = 1; number < 1000; number += 7) {
    names.push_back("cn" + std::to_string(100'000 + number).substr(1));
  }
  EXPECT_EQ(limited_node_set({.lead = "  ", .width = 40}, names),
            "  cn[00001,00008,00015,00022,00029,\n"
            "    00036,00043,00050] and 135 more");
}

TEST(LimitedNodeSet, ShowsAndCountsEveryNodeOnce) {
  std::vector<std::string> names = numbered("cn", 40);
  for (const std::string& name : numbered("a-ib", 60)) {
    names.push_back(name + "x" + name.substr(6));
  }
  names.push_back("it's odd");
  for (int width = 20; width <= 60; ++width) {
    std::string list = limited_node_set({.lead = "", .indent = "", .width = width}, names);
    std::erase(list, '\n');
    const std::size_t tail = list.find("and ");
    ASSERT_NE(tail, std::string::npos) << list;
    const std::string set = list.substr(0, list.find_last_not_of(' ', tail - 1) + 1);
    const std::size_t more = std::stoul(list.substr(tail + 4));
    EXPECT_EQ(expand_node_set(set).size() + more, names.size()) << list;
  }
}

}  // namespace
}  // namespace vond::standalone
