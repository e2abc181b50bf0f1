#include "standalone/text/columns.h"

#include <gtest/gtest.h>

namespace vond::standalone {
namespace {

void expect_cluster(std::string_view text, std::size_t size, std::size_t columns) {
  const Cluster cluster = first_cluster(text);
  EXPECT_EQ(cluster.size, size) << text;
  EXPECT_EQ(cluster.columns, columns) << text;
}

TEST(FirstCluster, IsOneAsciiCharacter) {
  expect_cluster("a", 1, 1);
  expect_cluster("ab", 1, 1);
  expect_cluster("\tb", 1, 0);
  expect_cluster(
      "\x7F"
      "b",
      1, 0);
}

TEST(FirstCluster, HoldsTheMarksThatFollowItsLetter) {
  expect_cluster("e\u0301x", 3, 1);
  expect_cluster("e\u0301\u0301x", 5, 1);
}

TEST(FirstCluster, CountsWideCharactersTwice) { expect_cluster("\u65e5\u672c", 3, 2); }

TEST(FirstCluster, PairsRegionalIndicatorsAndNoMore) {
  expect_cluster("\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7", 8, 2);
}

TEST(FirstCluster, IsOneByteWhereTextIsNotUtf8) {
  expect_cluster("\xFF\u0301", 1, 1);
  expect_cluster("a\xFF", 1, 1);
}

TEST(CountColumns, CountsWhatATerminalShows) {
  EXPECT_EQ(count_columns(""), 0);
  EXPECT_EQ(count_columns("abc"), 3);
  EXPECT_EQ(count_columns("a\tb\x7F"), 2);
  EXPECT_EQ(count_columns("e\u0301"), 1);
  EXPECT_EQ(count_columns("\u65e5\u672c"), 4);
  EXPECT_EQ(count_columns("a\xFF"), 2);
}

TEST(CountColumns, StopsAboveTheLimit) {
  EXPECT_EQ(count_columns("abcdef", 6), 6);
  EXPECT_EQ(count_columns("abcdef", 3), 4);
  EXPECT_EQ(count_columns("\u65e5\u672c\u65e5", 2), 4);
}

}  // namespace
}  // namespace vond::standalone
