#include "standalone/nodes/number_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace vond::standalone {
namespace {

const std::string LONGEST_PACKED = "99999999999999999";
const std::string SHORTEST_LONG = "100000000000000000";

/// A table of numbers, and the key of each.
struct FilledTable {
  explicit FilledTable(std::vector<std::string> digits_of_numbers)
      : numbers(std::move(digits_of_numbers)) {
    for (const std::string& digits : numbers) {
      const bool fits = digits.size() <= MAX_PACKED_DIGITS;
      keys.push_back(table.add(digits, fits ? std::stoull(digits) : 0));
    }
    table.finish();
    for (NumberKey& key : keys) {
      key = table.final_key(key);
    }
  }

  /// The table holds views of them.
  std::vector<std::string> numbers;
  NumberTable table;
  std::vector<NumberKey> keys;
};

std::string text_of(const NumberTable& table, NumberKey key) {
  std::string text;
  table.append(key, text);
  return text;
}

TEST(NumberTable, GivesBackTheDigits) {
  const std::vector<std::string> numbers = {"0",
                                            "00",
                                            "7",
                                            "007",
                                            LONGEST_PACKED,
                                            SHORTEST_LONG,
                                            "0" + SHORTEST_LONG,
                                            std::string(40, '9')};
  const FilledTable filled(numbers);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    EXPECT_EQ(text_of(filled.table, filled.keys[i]), numbers[i]);
    EXPECT_EQ(filled.table.digit_count(filled.keys[i]), numbers[i].size());
  }
}

TEST(NumberTable, OrdersKeysByLengthThenDigits) {
  const std::vector<std::string> sorted = {"0",
                                           "1",
                                           "9",
                                           "00",
                                           "01",
                                           "10",
                                           "000",
                                           LONGEST_PACKED,
                                           SHORTEST_LONG,
                                           "100000000000000001",
                                           "999999999999999999",
                                           "0" + SHORTEST_LONG,
                                           std::string(40, '1')};
  std::vector<std::string> backwards(sorted.rbegin(), sorted.rend());
  FilledTable filled(backwards);
  std::reverse(filled.keys.begin(), filled.keys.end());
  EXPECT_TRUE(std::is_sorted(filled.keys.begin(), filled.keys.end()));
  EXPECT_EQ(std::adjacent_find(filled.keys.begin(), filled.keys.end()), filled.keys.end());
}

TEST(NumberTable, GivesEqualLongNumbersOneKey) {
  const FilledTable filled({SHORTEST_LONG, std::string(20, '1'), SHORTEST_LONG});
  EXPECT_EQ(filled.keys[0], filled.keys[2]);
  EXPECT_NE(filled.keys[0], filled.keys[1]);
}

TEST(NumberTable, KnowsWhichNumbersArePadded) {
  const FilledTable padded({"00", "01", "0999", "0" + LONGEST_PACKED, "0" + SHORTEST_LONG});
  for (const NumberKey key : padded.keys) {
    EXPECT_TRUE(padded.table.is_padded(key)) << text_of(padded.table, key);
  }
  const FilledTable others({"0", "10", "1000", LONGEST_PACKED, SHORTEST_LONG});
  for (const NumberKey key : others.keys) {
    EXPECT_FALSE(others.table.is_padded(key)) << text_of(others.table, key);
  }
}

void expect_follows(const std::string& last, const std::string& next, bool follows) {
  const FilledTable filled({last, next});
  EXPECT_EQ(filled.table.follows(filled.keys[0], filled.keys[1]), follows) << last << ' ' << next;
}

TEST(NumberTable, KnowsWhichNumberFollowsAnother) {
  expect_follows("9", "10", true);
  expect_follows("009", "010", true);
  expect_follows("9", "11", false);
  expect_follows(LONGEST_PACKED, SHORTEST_LONG, true);
  expect_follows(SHORTEST_LONG, "100000000000000001", true);
  expect_follows(SHORTEST_LONG, "100000000000000002", false);
  expect_follows(std::string(20, '9'), "1" + std::string(20, '0'), true);
}

TEST(NumberTable, TellsWhetherItHoldsLongNumbers) {
  NumberTable table;
  table.add(LONGEST_PACKED, std::stoull(LONGEST_PACKED));
  EXPECT_FALSE(table.has_long_numbers());
  table.add(SHORTEST_LONG, 0);
  EXPECT_TRUE(table.has_long_numbers());
}

}  // namespace
}  // namespace vond::standalone
