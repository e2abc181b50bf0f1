#include "standalone/patterns/pattern_group.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "standalone/patterns/text_pattern.h"
#include "standalone/patterns/value_table.h"

namespace {

using testing::ElementsAreArray;
using vond::standalone::PatternGroup;
using vond::standalone::TextPattern;
using vond::standalone::ValueTable;

TEST(ValueTable, NumbersValuesAndKeepsThem) {
  ValueTable table;
  for (int round = 0; round < 2; ++round) {
    for (unsigned i = 0; i < 20000; ++i) {
      ASSERT_EQ(table.id_of("value " + std::to_string(i)), i);
    }
  }
  EXPECT_EQ(table.size(), 20000U);
  EXPECT_EQ(table[0], "value 0");
  EXPECT_EQ(table[19999], "value 19999");
}

TEST(PatternGroup, KeepsSeveritiesApart) {
  ValueTable table;
  PatternGroup group("text\x04");
  std::vector<PatternGroup::Entry> entries;
  entries.reserve(101);
  for (int severity = 0; severity <= 100; ++severity) {
    entries.push_back(group.entry_of({}, severity, table));
  }
  for (int severity = 0; severity <= 100; ++severity) {
    EXPECT_EQ(group.entry_of({}, severity, table), entries[static_cast<std::size_t>(severity)]);
    EXPECT_EQ(group.severity(entries[static_cast<std::size_t>(severity)]), severity);
  }
  EXPECT_EQ(group.entries(), 101U);
}

TEST(PatternGroup, KeepsHowManyFindingsEachOneStandsFor) {
  constexpr std::uint64_t MANY = 9007199254740991;
  ValueTable table;
  PatternGroup group("text\x04");
  const auto entry = group.entry_of({}, 0, table);
  const std::vector<std::uint32_t> nodes = {7, 8};
  const std::vector<int> rows = {-1};
  for (const std::uint64_t count : {std::uint64_t{0}, std::uint64_t{1}, MANY}) {
    group.add(entry, nodes, rows, count);
    group.add(entry, std::span(nodes).first(1), {}, count);
  }
  std::vector<std::uint64_t> counts;
  group.for_each([&](const PatternGroup::Occurrence& finding) {
    counts.push_back(finding.count);
    EXPECT_EQ(finding.nodes[0], 7U);
    EXPECT_EQ(finding.nodes.size() + finding.row_ids.size(), counts.size() % 2 == 1 ? 3U : 1U);
  });
  EXPECT_EQ(counts, (std::vector<std::uint64_t>{0, 0, 1, 1, MANY, MANY}));
  EXPECT_EQ(group.findings(), 2 * MANY + 2);
}

TEST(ValueTable, TakesValuesOfAnyLength) {
  ValueTable table;
  for (const std::size_t size : {0U, 1U, 8000U, 9000U, 70000U, 200000U, 2U, 65000U}) {
    const std::string value(size, 'x');
    EXPECT_EQ(table[table.id_of(value)], value);
  }
  EXPECT_EQ(table.size(), 8U);
  EXPECT_EQ(table[0], "");
}

/// A group of a pattern with so many places.
PatternGroup group_of(std::size_t places) {
  std::string text;
  for (std::size_t i = 0; i < places; ++i) {
    text += "5 ";
  }
  TextPattern pattern;
  pattern.read("", {text});
  return PatternGroup(pattern.pattern());
}

TEST(PatternGroup, HasOneEntryForTheSameValues) {
  ValueTable table;
  for (std::uint32_t i = 0; i < 100; ++i) {
    table.id_of(std::to_string(i));
  }
  PatternGroup group = group_of(2);
  for (int round = 0; round < 2; ++round) {
    for (std::uint32_t i = 0; i < 10000; ++i) {
      ASSERT_EQ(group.entry_of(std::vector<ValueTable::Id>{i / 100, i % 100}, 0, table), i);
    }
  }
  EXPECT_EQ(group.entries(), 10000U);
  EXPECT_EQ(group.value(1234, 0), 12U);
  EXPECT_EQ(group.value(1234, 1), 34U);
}

TEST(PatternGroup, HasOneEntryForTextsWithoutValues) {
  ValueTable table;
  PatternGroup group = group_of(0);
  EXPECT_EQ(group.entry_of({}, 0, table), 0U);
  EXPECT_EQ(group.entry_of({}, 0, table), 0U);
  EXPECT_EQ(group.entries(), 1U);
}

TEST(PatternGroup, KnowsWhetherValuesHoldTheOwnNode) {
  const auto group_with = [](const std::string& text) {
    ValueTable table;
    TextPattern pattern;
    pattern.read("cn1", {text});
    PatternGroup group(pattern.pattern());
    std::vector<ValueTable::Id> values;
    for (const std::string_view value : pattern.values()) {
      values.push_back(table.id_of(value));
    }
    group.entry_of(values, 0, table);
    return group;
  };
  EXPECT_TRUE(group_with("cn1 5").has_name());
  EXPECT_FALSE(group_with("cn1 5").has_value_with_name());
  EXPECT_FALSE(group_with("cn1-5").has_name());
  EXPECT_TRUE(group_with("cn1-5").has_value_with_name());
  EXPECT_FALSE(group_with("cn2 5").has_name());
  EXPECT_FALSE(group_with("\x02 5\x02").has_name());
  EXPECT_FALSE(group_with("\x02 5\x02").has_value_with_name());
}

TEST(PatternGroup, KeepsNodesAndRowsOfEveryFinding) {
  const std::vector<std::vector<std::uint32_t>> nodes = {{}, {7}, {4294967295}, {1, 2, 1}};
  const int least = std::numeric_limits<int>::min();
  const std::vector<std::vector<int>> row_ids = {{}, {-1}, {least}, {3, 2, 2147483647}};
  ValueTable table;
  PatternGroup group = group_of(0);
  const auto entry = group.entry_of({}, 0, table);
  for (const auto& some_nodes : nodes) {
    for (const auto& some_rows : row_ids) {
      group.add(entry, some_nodes, some_rows);
    }
  }
  group.settle();
  std::size_t number = 0;
  group.for_each([&](const PatternGroup::Occurrence& finding) {
    EXPECT_EQ(finding.entry, 0U);
    EXPECT_THAT(finding.nodes, ElementsAreArray(nodes[number / row_ids.size()]));
    EXPECT_THAT(finding.row_ids, ElementsAreArray(row_ids[number % row_ids.size()]));
    ++number;
  });
  EXPECT_EQ(number, nodes.size() * row_ids.size());
  EXPECT_EQ(group.findings(), number);
}

TEST(PatternGroup, JoinsWhatIsSaidOfTheSameNodesAgainAndAgain) {
  constexpr int ROUNDS = 20'000;
  ValueTable table;
  PatternGroup group("text\x04");
  const std::vector<PatternGroup::Entry> entries = {group.entry_of({}, 0, table),
                                                    group.entry_of({}, 1, table)};
  const std::vector<std::vector<std::uint32_t>> places = {{1}, {2}, {1, 2}, {1, 1}, {}};
  for (int round = 0; round < ROUNDS; ++round) {
    for (const auto entry : entries) {
      for (const auto& nodes : places) {
        // The first of them come twice.
        const std::vector<int> rows = {round % (ROUNDS / 2)};
        group.add(entry, nodes, rows, nodes.size() > 1 ? 3 : 1);
      }
    }
  }

  std::size_t occurrences = 0;
  std::map<std::pair<PatternGroup::Entry, std::vector<std::uint32_t>>, std::uint64_t> counts;
  std::map<std::pair<PatternGroup::Entry, std::vector<std::uint32_t>>, std::set<int>> rows;
  group.for_each([&](const PatternGroup::Occurrence& finding) {
    ++occurrences;
    const std::vector<std::uint32_t> nodes(finding.nodes.begin(), finding.nodes.end());
    counts[{finding.entry, nodes}] += finding.count;
    rows[{finding.entry, nodes}].insert(finding.row_ids.begin(), finding.row_ids.end());
  });
  EXPECT_LT(occurrences, entries.size() * places.size() * ROUNDS / 2);
  ASSERT_EQ(counts.size(), entries.size() * places.size());
  for (const auto& [place, count] : counts) {
    EXPECT_EQ(count, (place.second.size() > 1 ? 3U : 1U) * ROUNDS);
    EXPECT_EQ(rows[place].size(), ROUNDS / 2U);
    EXPECT_EQ(*rows[place].rbegin(), ROUNDS / 2 - 1);
  }
  EXPECT_EQ(group.findings(), 2 * (3 * ROUNDS + 2 * 3 * ROUNDS));
}

TEST(PatternGroup, KeepsTheOrderOfFindingsThatCannotBeJoined) {
  constexpr std::uint32_t NODES = 200'000;
  ValueTable table;
  PatternGroup group("text\x04");
  const auto entry = group.entry_of({}, 0, table);
  for (std::uint32_t node = NODES; node > 0; --node) {
    const std::vector<std::uint32_t> nodes = {node};
    group.add(entry, nodes, {});
  }
  std::uint32_t expected = NODES;
  group.for_each([&](const PatternGroup::Occurrence& finding) {
    EXPECT_EQ(finding.count, 1U);
    EXPECT_EQ(finding.nodes[0], expected--);
  });
  EXPECT_EQ(expected, 0U);
}

}  // namespace
