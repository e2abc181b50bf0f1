#include "standalone/report/collapser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <ostream>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "standalone/model/type_names.h"
#include "tests/standalone/support/findings.h"

namespace {

using vond::postprocessor::DIAGNOSES;
using vond::postprocessor::MISSING_DATA;
using vond::postprocessor::OBSERVATIONS;
using vond::postprocessor::TypeCode;
using vond::standalone::CollapseBy;
using vond::standalone::CollapsedIssue;
using vond::standalone::CollapsedOutput;
using vond::standalone::Collapser;
using vond::standalone::type_name;
using vond::test::FindingParts;
using vond::test::make_finding;

// ---- Pictures of issues ------------------------------------------------------------------------

template <typename Items>
std::string list(const Items& items) {
  std::string text = "{";
  for (const auto& item : items) {
    text += (text.size() == 1 ? "" : " ") + std::string(item);
  }
  return text + "}";
}

std::string list(const std::vector<int>& numbers) {
  std::vector<std::string> items;
  items.reserve(numbers.size());
  for (const int number : numbers) {
    items.push_back(std::to_string(number));
  }
  return list(items);
}

enum class NodeOrder { AS_COLLAPSED, SORTED };

std::vector<std::string> nodes_of(const CollapsedOutput& output, const Collapser& collapser,
                                  NodeOrder order) {
  std::vector<std::string> names;
  for (const auto node : output.nodes) {
    names.push_back(collapser.node_names()[node]);
  }
  if (order == NodeOrder::SORTED) {
    std::sort(names.begin(), names.end());
  }
  return names;
}

/// One line an issue, and one more for each of its outputs:
///
///     diagnosis disk 80 on 2, definitions {a b}, based on {x}
///       80 category|message|remedy, nodes {n1 n2}, rows {1 2}
std::string picture(const std::vector<CollapsedIssue>& issues, const Collapser& collapser,
                    NodeOrder order = NodeOrder::AS_COLLAPSED) {
  std::string text;
  for (const CollapsedIssue& issue : issues) {
    text += std::string(type_name(issue.type)) + " " + issue.id + " " +
            std::to_string(issue.severity) + " on " + std::to_string(issue.distinct_nodes) +
            ", definitions " + list(issue.definitions) + ", based on " + list(issue.based_on) +
            "\n";
    for (const CollapsedOutput& output : issue.outputs) {
      const auto& [message, remedy, category] = output.texts;
      text += "  " + std::to_string(output.severity) + " " + category + "|" + message +
              output.note + "|" + remedy + ", nodes " + list(nodes_of(output, collapser, order)) +
              ", rows " + list(output.row_ids) + "\n";
    }
  }
  return text;
}

std::string collapse(const std::vector<FindingParts>& findings,
                     CollapseBy collapse_by = CollapseBy::TEXT,
                     NodeOrder order = NodeOrder::AS_COLLAPSED) {
  Collapser collapser(collapse_by);
  for (const FindingParts& finding : findings) {
    collapser.add(make_finding(finding));
  }
  return picture(collapser.finish(), collapser, order);
}

/// One word an issue: what `word` says of it. For tests of nothing but the order.
template <typename Word>
std::string order_of(const std::vector<FindingParts>& findings, Word word) {
  Collapser collapser(CollapseBy::TEXT);
  for (const FindingParts& finding : findings) {
    collapser.add(make_finding(finding));
  }
  std::vector<std::string> words;
  for (const CollapsedIssue& issue : collapser.finish()) {
    words.push_back(word(issue));
  }
  return list(words);
}

/// A finding in which no key has its default.
FindingParts full_finding() {
  return {.type = DIAGNOSES,
          .id = "disk",
          .severity = 80,
          .category = "STORAGE",
          .message = "Disk is full.",
          .remedy = "Empty it.",
          .nodes = {"n1"},
          .row_ids = {1},
          .definitions = {"a", "b"},
          .based_on = {"x", "y"}};
}

// ---- Collapse by text: what joins --------------------------------------------------------------

TEST(CollapseByText, NothingGivesNoIssues) {
  for (const CollapseBy way : {CollapseBy::PATTERN, CollapseBy::TEXT, CollapseBy::ID}) {
    Collapser collapser(way);
    EXPECT_TRUE(collapser.finish().empty());
    EXPECT_EQ(collapser.findings(), 0U);
    EXPECT_EQ(collapser.node_names().size(), 0U);
  }
}

TEST(CollapseByText, AFindingBecomesAnIssueThatSaysTheSame) {
  EXPECT_EQ(collapse({full_finding()}),
            "diagnosis disk 80 on 1, definitions {a b}, based on {x y}\n"
            "  80 STORAGE|Disk is full.|Empty it., nodes {n1}, rows {1}\n");
}

TEST(CollapseByText, AFindingWithoutAnythingOptionalIsAnIssue) {
  EXPECT_EQ(collapse({{.id = "disk"}}),
            "observation disk 50 on 0, definitions {}, based on {}\n"
            "  50 ||, nodes {}, rows {}\n");
}

TEST(CollapseByText, EqualFindingsAreOneIssueOnTheNodesAndRowsOfAll) {
  FindingParts second = full_finding();
  second.nodes = {"n3", "n2"};
  second.row_ids = {7, -4};
  EXPECT_EQ(collapse({full_finding(), second}),
            "diagnosis disk 80 on 3, definitions {a b}, based on {x y}\n"
            "  80 STORAGE|Disk is full.|Empty it., nodes {n1 n3 n2}, rows {-4 1 7}\n");
}

TEST(CollapseByText, NodeNamesStandInInputOrderAndCountOnce) {
  EXPECT_EQ(collapse({{.nodes = {"n2", "n1"}}, {.nodes = {"n3", "n2"}}, {.nodes = {"n1", "n1"}}}),
            "observation id 50 on 3, definitions {}, based on {}\n"
            "  50 ||, nodes {n2 n1 n3 n2 n1 n1}, rows {}\n");
}

TEST(CollapseByText, NodeNamesThatComeAgainAndAgainTakeNoMoreMemoryAndKeepTheirOrder) {
  constexpr int ROUNDS = 30'000;
  for (const CollapseBy way : {CollapseBy::PATTERN, CollapseBy::TEXT, CollapseBy::ID}) {
    Collapser collapser(way);
    for (int round = 0; round < ROUNDS; ++round) {
      for (const char* const node : {"n3", "n1", "n2"}) {
        collapser.add(make_finding({.nodes = {node}, .row_ids = {round / 10}}));
      }
    }
    const std::vector<CollapsedIssue> issues = collapser.finish();
    ASSERT_EQ(issues.size(), 1U);
    EXPECT_EQ(issues[0].distinct_nodes, 3U);
    EXPECT_EQ(collapser.findings(), 3U * ROUNDS);
    const CollapsedOutput& output = issues[0].outputs.at(0);
    EXPECT_LT(output.nodes.size(), std::size_t{ROUNDS});
    EXPECT_EQ(output.row_ids.size(), ROUNDS / 10U);
    std::vector<std::string> names = nodes_of(output, collapser, NodeOrder::AS_COLLAPSED);
    names.resize(3);
    EXPECT_EQ(list(names), "{n3 n1 n2}");
  }
}

TEST(CollapseByText, NodeNamesStandInInputOrderWhenOtherIssuesNamedThemBefore) {
  EXPECT_EQ(collapse({{.id = "a", .nodes = {"n3", "n2", "n1"}},
                      {.id = "b", .nodes = {"n1"}},
                      {.id = "b", .nodes = {"n3"}}}),
            "observation a 50 on 3, definitions {}, based on {}\n"
            "  50 ||, nodes {n3 n2 n1}, rows {}\n"
            "observation b 50 on 2, definitions {}, based on {}\n"
            "  50 ||, nodes {n1 n3}, rows {}\n");
}

TEST(CollapseByText, RowIdsAreAscendingAndEachStandsOnce) {
  EXPECT_EQ(collapse({{.row_ids = {9, 2, 9}}, {.row_ids = {10, 2, -2147483648}}, {.row_ids = {}}}),
            "observation id 50 on 0, definitions {}, based on {}\n"
            "  50 ||, nodes {}, rows {-2147483648 2 9 10}\n");
}

TEST(CollapseByText, OrderAndRepetitionOfDefinitionsDoNotMatter) {
  EXPECT_EQ(
      collapse(
          {{.definitions = {"b", "a"}}, {.definitions = {"a", "b", "a"}}, {.definitions = {"a"}}}),
      "observation id 50 on 0, definitions {a}, based on {}\n"
      "  50 ||, nodes {}, rows {}\n"
      "observation id 50 on 0, definitions {a b}, based on {}\n"
      "  50 ||, nodes {}, rows {}\n");
}

TEST(CollapseByText, OrderAndRepetitionOfBasedOnDoNotMatter) {
  EXPECT_EQ(
      collapse({{.based_on = {"y", "x"}}, {.based_on = {"x", "y", "y"}}, {.based_on = {"x"}}}),
      "observation id 50 on 0, definitions {}, based on {x}\n"
      "  50 ||, nodes {}, rows {}\n"
      "observation id 50 on 0, definitions {}, based on {x y}\n"
      "  50 ||, nodes {}, rows {}\n");
}

TEST(CollapseByText, KeepsWhatFindingsSaidWhenTheirTextIsGone) {
  Collapser collapser(CollapseBy::TEXT);
  std::string buffer = "a text that is too long to be stored in place";
  collapser.add(make_finding({.id = buffer,
                              .category = buffer,
                              .message = buffer,
                              .remedy = buffer,
                              .nodes = {buffer},
                              .definitions = {buffer},
                              .based_on = {buffer}}));
  const std::string kept = buffer;
  buffer.assign(buffer.size(), 'x');
  EXPECT_EQ(picture(collapser.finish(), collapser),
            "observation " + kept + " 50 on 1, definitions {" + kept + "}, based on {" + kept +
                "}\n  50 " + kept + "|" + kept + "|" + kept + ", nodes {" + kept + "}, rows {}\n");
}

TEST(CollapseByText, CountsFindingsAndNodesOfAll) {
  Collapser collapser;
  collapser.add(make_finding({.nodes = {"n1", "n2"}}));
  collapser.add(make_finding({.nodes = {"n2", "n2"}}));
  collapser.add(make_finding({.id = "other", .nodes = {"n3"}}));
  EXPECT_EQ(collapser.findings(), 3U);
  EXPECT_EQ(collapser.node_names().size(), 3U);
}

TEST(CollapseByText, LeavesTheCollapserWithoutIssuesAndReadyForMore) {
  Collapser collapser(CollapseBy::TEXT);
  collapser.add(make_finding({.id = "a", .message = "before"}));
  collapser.add(make_finding({.id = "b", .message = "before"}));
  EXPECT_EQ(collapser.finish().size(), 2U);
  EXPECT_TRUE(collapser.finish().empty());
  collapser.add(make_finding({.id = "a", .message = "before", .nodes = {"n1"}}));
  EXPECT_EQ(picture(collapser.finish(), collapser),
            "observation a 50 on 1, definitions {}, based on {}\n"
            "  50 |before|, nodes {n1}, rows {}\n");
}

// ---- Collapse by text: what separates ----------------------------------------------------------

struct Difference {
  std::string name;
  FindingParts other;
};

std::ostream& operator<<(std::ostream& stream, const Difference& difference) {
  return stream << difference.name;
}

FindingParts full_finding_with(void (*change)(FindingParts&)) {
  FindingParts finding = full_finding();
  change(finding);
  return finding;
}

class CollapseByTextSeparates : public testing::TestWithParam<Difference> {};

TEST_P(CollapseByTextSeparates, FindingsThatDifferInOneKey) {
  Collapser collapser(CollapseBy::TEXT);
  collapser.add(make_finding(full_finding()));
  collapser.add(make_finding(GetParam().other));
  collapser.add(make_finding(full_finding()));
  EXPECT_EQ(collapser.finish().size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, CollapseByTextSeparates,
    testing::Values(
        Difference{"Type", full_finding_with([](auto& f) { f.type = OBSERVATIONS; })},
        Difference{"TypeMissingData", full_finding_with([](auto& f) { f.type = MISSING_DATA; })},
        Difference{"Id", full_finding_with([](auto& f) { f.id = "disk#sda"; })},
        Difference{"SeverityInOneBand", full_finding_with([](auto& f) { f.severity = 81; })},
        Difference{"SeverityAcrossBands", full_finding_with([](auto& f) { f.severity = 8; })},
        Difference{"Category", full_finding_with([](auto& f) { f.category = "storage"; })},
        Difference{"Message", full_finding_with([](auto& f) { f.message = "Disk is full. "; })},
        Difference{"MessageEmpty", full_finding_with([](auto& f) { f.message = ""; })},
        Difference{"Remedy", full_finding_with([](auto& f) { f.remedy = "Empty it"; })},
        Difference{"FewerDefinitions", full_finding_with([](auto& f) { f.definitions = {"a"}; })},
        Difference{"MoreDefinitions", full_finding_with([](auto& f) {
                     f.definitions = {"a", "b", "c"};
                   })},
        Difference{"OtherDefinition", full_finding_with([](auto& f) {
                     f.definitions = {"a", "b/"};
                   })},
        Difference{"NoDefinitions", full_finding_with([](auto& f) { f.definitions = {}; })},
        Difference{"FewerBasedOn", full_finding_with([](auto& f) { f.based_on = {"y"}; })},
        Difference{"MoreBasedOn", full_finding_with([](auto& f) {
                     f.based_on = {"x", "y", "z"};
                   })},
        Difference{"NoBasedOn", full_finding_with([](auto& f) { f.based_on = {}; })},
        Difference{"BasedOnAndDefinitionsSwapped",
                   full_finding_with([](auto& f) { std::swap(f.definitions, f.based_on); })},
        Difference{"MessageAndRemedySwapped",
                   full_finding_with([](auto& f) { std::swap(f.message, f.remedy); })}),
    [](const auto& test) { return test.param.name; });

TEST(CollapseByText, TextIsNotMovedAcrossKeys) {
  // The same bytes in sum, cut at different places.
  EXPECT_EQ(collapse({{.id = "ab", .category = "c", .message = "d"},
                      {.id = "a", .category = "bc", .message = "d"},
                      {.id = "a", .category = "b", .message = "cd"}}),
            "observation a 50 on 0, definitions {}, based on {}\n"
            "  50 b|cd|, nodes {}, rows {}\n"
            "observation a 50 on 0, definitions {}, based on {}\n"
            "  50 bc|d|, nodes {}, rows {}\n"
            "observation ab 50 on 0, definitions {}, based on {}\n"
            "  50 c|d|, nodes {}, rows {}\n");
}

TEST(CollapseByText, NamesAreNotMovedAcrossTheirList) {
  EXPECT_EQ(collapse({{.definitions = {"ab", "c"}}, {.definitions = {"a", "bc"}}}),
            "observation id 50 on 0, definitions {a bc}, based on {}\n"
            "  50 ||, nodes {}, rows {}\n"
            "observation id 50 on 0, definitions {ab c}, based on {}\n"
            "  50 ||, nodes {}, rows {}\n");
}

// ---- Order -------------------------------------------------------------------------------------

// In each of these tests every criterion after the one that is shown would give the other order.

TEST(IssueOrder, HighSeverityComesFirst) {
  EXPECT_EQ(order_of({{.id = "a", .severity = 9, .nodes = {"n1", "n2"}},
                      {.id = "c", .severity = 100},
                      {.id = "b", .severity = 10, .nodes = {"n1"}}},
                     [](const auto& issue) { return std::to_string(issue.severity); }),
            "{100 10 9}");
}

TEST(IssueOrder, ThenManyDistinctNodes) {
  EXPECT_EQ(order_of({{.id = "a", .nodes = {"n1", "n1", "n1", "n1"}},
                      {.id = "c", .nodes = {"n1", "n2", "n3"}},
                      {.id = "b", .nodes = {"n3", "n4"}}},
                     [](const auto& issue) { return issue.id; }),
            "{c b a}");
}

TEST(IssueOrder, NodesAreCountedOverAllFindingsOfAnIssue) {
  EXPECT_EQ(order_of({{.id = "a", .nodes = {"n1", "n2"}},
                      {.id = "b", .nodes = {"n1"}},
                      {.id = "b", .nodes = {"n2"}},
                      {.id = "b", .nodes = {"n3"}}},
                     [](const auto& issue) { return issue.id; }),
            "{b a}");
}

TEST(IssueOrder, ThenIdByBytes) {
  EXPECT_EQ(order_of({{.id = "b"}, {.id = "\xC3\xA4"}, {.id = "a#2"}, {.id = "Z"}, {.id = "a"}},
                     [](const auto& issue) { return issue.id; }),
            "{Z a a#2 b \xC3\xA4}");
}

TEST(IssueOrder, ThenTypeByTheBytesOfItsName) {
  EXPECT_EQ(order_of({{.type = OBSERVATIONS, .message = "a"},
                      {.type = MISSING_DATA, .message = "b"},
                      {.type = DIAGNOSES, .message = "c"}},
                     [](const auto& issue) { return std::string(type_name(issue.type)); }),
            "{diagnosis missing_data observation}");
}

TEST(IssueOrder, ThenMessageByBytes) {
  EXPECT_EQ(order_of({{.message = "b", .remedy = "1"},
                      {.message = "\xC3\xA4", .remedy = "0"},
                      {.message = "", .remedy = "3"},
                      {.message = "B", .remedy = "2"}},
                     [](const auto& issue) { return "<" + issue.outputs[0].texts.message + ">"; }),
            "{<> <B> <b> <\xC3\xA4>}");
}

TEST(IssueOrder, ThenRemedyByBytes) {
  EXPECT_EQ(order_of({{.category = "1", .remedy = "b"},
                      {.category = "0", .remedy = "\xC3\xA4"},
                      {.category = "2", .remedy = "B"}},
                     [](const auto& issue) { return issue.outputs[0].texts.remedy; }),
            "{B b \xC3\xA4}");
}

TEST(IssueOrder, ThenCategoryByBytes) {
  EXPECT_EQ(order_of({{.category = "b", .definitions = {"1"}},
                      {.category = "\xC3\xA4", .definitions = {"0"}},
                      {.category = "B", .definitions = {"2"}}},
                     [](const auto& issue) { return issue.outputs[0].texts.category; }),
            "{B b \xC3\xA4}");
}

TEST(IssueOrder, ThenDefinitionsByBytes) {
  EXPECT_EQ(order_of({{.definitions = {"b"}, .based_on = {"1"}},
                      {.definitions = {"\xC3\xA4"}, .based_on = {"0"}},
                      {.definitions = {"c", "a"}, .based_on = {"2"}},
                      {.definitions = {"a"}, .based_on = {"3"}},
                      {.definitions = {}, .based_on = {"4"}}},
                     [](const auto& issue) { return list(issue.definitions); }),
            "{{} {a} {a c} {b} {\xC3\xA4}}");
}

TEST(IssueOrder, ThenBasedOnByBytes) {
  EXPECT_EQ(order_of({{.based_on = {"b"}},
                      {.based_on = {"\xC3\xA4"}},
                      {.based_on = {"c", "a"}},
                      {.based_on = {"a"}},
                      {.based_on = {}}},
                     [](const auto& issue) { return list(issue.based_on); }),
            "{{} {a} {a c} {b} {\xC3\xA4}}");
}

// ---- Collapse by id ----------------------------------------------------------------------------

TEST(CollapseById, FindingsOfOneTypeIdAndBandAreOneIssueOfTheHighestSeverity) {
  EXPECT_EQ(collapse({{.severity = 25, .nodes = {"n1"}},
                      {.severity = 74, .nodes = {"n2"}},
                      {.severity = 50, .nodes = {"n1"}}},
                     CollapseBy::ID, NodeOrder::SORTED),
            "observation id 74 on 2, definitions {}, based on {}\n"
            "  74 ||, nodes {n1 n1 n2}, rows {}\n");
}

TEST(CollapseById, BandsAreIssuesOfTheirOwn) {
  EXPECT_EQ(collapse({{.severity = 0},
                      {.severity = 24},
                      {.severity = 25},
                      {.severity = 74},
                      {.severity = 75},
                      {.severity = 100}},
                     CollapseBy::ID),
            "observation id 100 on 0, definitions {}, based on {}\n"
            "  100 ||, nodes {}, rows {}\n"
            "observation id 74 on 0, definitions {}, based on {}\n"
            "  74 ||, nodes {}, rows {}\n"
            "observation id 24 on 0, definitions {}, based on {}\n"
            "  24 ||, nodes {}, rows {}\n");
}

TEST(CollapseById, TypesAndIdsAreIssuesOfTheirOwn) {
  EXPECT_EQ(collapse({{.type = OBSERVATIONS, .id = "a"},
                      {.type = MISSING_DATA, .id = "a"},
                      {.type = DIAGNOSES, .id = "a"},
                      {.type = DIAGNOSES, .id = "a#1"}},
                     CollapseBy::ID),
            "diagnosis a 50 on 0, definitions {}, based on {}\n"
            "  50 ||, nodes {}, rows {}\n"
            "missing_data a 50 on 0, definitions {}, based on {}\n"
            "  50 ||, nodes {}, rows {}\n"
            "observation a 50 on 0, definitions {}, based on {}\n"
            "  50 ||, nodes {}, rows {}\n"
            "diagnosis a#1 50 on 0, definitions {}, based on {}\n"
            "  50 ||, nodes {}, rows {}\n");
}

TEST(CollapseById, DefinitionsAndBasedOnAreUnited) {
  EXPECT_EQ(collapse({{.definitions = {"c", "a"}, .based_on = {"z"}},
                      {.definitions = {"b", "a"}, .based_on = {}},
                      {.definitions = {}, .based_on = {"x", "z"}}},
                     CollapseBy::ID),
            "observation id 50 on 0, definitions {a b c}, based on {x z}\n"
            "  50 ||, nodes {}, rows {}\n");
}

TEST(CollapseById, DefinitionsAloneMakeNoFurtherOutput) {
  EXPECT_EQ(collapse({{.message = "m", .nodes = {"n1"}, .row_ids = {3, 1}, .definitions = {"a"}},
                      {.message = "m", .nodes = {"n2"}, .row_ids = {2, 3}, .definitions = {"b"}}},
                     CollapseBy::ID),
            "observation id 50 on 2, definitions {a b}, based on {}\n"
            "  50 |m|, nodes {n1 n2}, rows {1 2 3}\n");
}

TEST(CollapseById, EveryCategoryMessageAndRemedyIsAnOutput) {
  EXPECT_EQ(collapse({{.category = "b", .message = "m", .remedy = "r"},
                      {.category = "a", .message = "m", .remedy = "s"},
                      {.category = "a", .message = "m", .remedy = "r"}},
                     CollapseBy::ID),
            "observation id 50 on 0, definitions {}, based on {}\n"
            "  50 a|m|r, nodes {}, rows {}\n"
            "  50 b|m|r, nodes {}, rows {}\n"
            "  50 a|m|s, nodes {}, rows {}\n");
}

TEST(CollapseById, OutputsOfHighSeverityComeFirst) {
  EXPECT_EQ(collapse({{.severity = 80, .remedy = "a", .nodes = {"n1", "n2"}},
                      {.severity = 90, .remedy = "b"},
                      {.severity = 75, .remedy = "c"},
                      {.severity = 99, .remedy = "c"}},
                     CollapseBy::ID),
            "observation id 99 on 2, definitions {}, based on {}\n"
            "  99 ||c, nodes {}, rows {}\n"
            "  90 ||b, nodes {}, rows {}\n"
            "  80 ||a, nodes {n1 n2}, rows {}\n");
}

TEST(CollapseById, ThenOutputsOnManyDistinctNodes) {
  EXPECT_EQ(collapse({{.remedy = "a", .nodes = {"n1", "n1", "n1"}},
                      {.remedy = "b", .nodes = {"n1"}},
                      {.remedy = "c", .nodes = {"n1", "n2", "n3"}},
                      {.remedy = "b", .nodes = {"n2"}}},
                     CollapseBy::ID),
            "observation id 50 on 3, definitions {}, based on {}\n"
            "  50 ||c, nodes {n1 n2 n3}, rows {}\n"
            "  50 ||b, nodes {n1 n2}, rows {}\n"
            "  50 ||a, nodes {n1 n1 n1}, rows {}\n");
}

TEST(CollapseById, ThenOutputsByTheBytesOfMessageRemedyAndCategory) {
  EXPECT_EQ(collapse({{.category = "b", .message = "m", .remedy = "s"},
                      {.category = "a", .message = "m", .remedy = "s"},
                      {.category = "c", .message = "m", .remedy = "r"},
                      {.category = "a", .message = "\xC3\xA4", .remedy = "a"},
                      {.category = "d", .message = "M", .remedy = "t"}},
                     CollapseBy::ID),
            "observation id 50 on 0, definitions {}, based on {}\n"
            "  50 d|M (and 2 other messages)|t, nodes {}, rows {}\n"
            "  50 c|m|r, nodes {}, rows {}\n"
            "  50 a|m|s, nodes {}, rows {}\n"
            "  50 b|m|s, nodes {}, rows {}\n"
            "  50 a|\xC3\xA4|a, nodes {}, rows {}\n");
}

TEST(CollapseById, TheFirstMessageTellsOfOneOther) {
  EXPECT_EQ(collapse({{.message = "b"}, {.message = "a"}}, CollapseBy::ID),
            "observation id 50 on 0, definitions {}, based on {}\n"
            "  50 |a (and 1 other message)|, nodes {}, rows {}\n"
            "  50 |b|, nodes {}, rows {}\n");
}

TEST(CollapseById, TheFirstMessageTellsOfManyOthers) {
  const std::string letters = "abcdefghijklm";
  std::vector<FindingParts> findings;
  std::string others;
  for (std::size_t i = 0; i < letters.size(); ++i) {
    findings.push_back({.message = std::string_view(letters).substr(i, 1)});
    if (i > 0) {
      others += "  50 |" + letters.substr(i, 1) + "|, nodes {}, rows {}\n";
    }
  }
  EXPECT_EQ(collapse(findings, CollapseBy::ID),
            "observation id 50 on 0, definitions {}, based on {}\n"
            "  50 |a (and 12 other messages)|, nodes {}, rows {}\n" +
                others);
}

TEST(CollapseById, OtherMessagesCountOnceHoweverManyOutputsHaveThem) {
  EXPECT_EQ(collapse({{.message = "a", .remedy = "1"},
                      {.message = "b", .remedy = "1"},
                      {.message = "b", .remedy = "2"},
                      {.message = "a", .remedy = "2"}},
                     CollapseBy::ID),
            "observation id 50 on 0, definitions {}, based on {}\n"
            "  50 |a (and 1 other message)|1, nodes {}, rows {}\n"
            "  50 |a|2, nodes {}, rows {}\n"
            "  50 |b|1, nodes {}, rows {}\n"
            "  50 |b|2, nodes {}, rows {}\n");
}

TEST(CollapseById, OneMessageIsLeftAsItIs) {
  EXPECT_EQ(
      collapse({{.message = "a", .remedy = "1"}, {.message = "a", .remedy = "2"}}, CollapseBy::ID),
      "observation id 50 on 0, definitions {}, based on {}\n"
      "  50 |a|1, nodes {}, rows {}\n"
      "  50 |a|2, nodes {}, rows {}\n");
}

TEST(CollapseById, RowIdsOfAnOutputAreAscendingAndEachStandsOnce) {
  EXPECT_EQ(collapse({{.message = "a", .row_ids = {5, 3}},
                      {.severity = 49, .message = "a", .row_ids = {4, 3}},
                      {.message = "a", .remedy = "r", .row_ids = {9, 8}}},
                     CollapseBy::ID),
            "observation id 50 on 0, definitions {}, based on {}\n"
            "  50 |a|, nodes {}, rows {3 4 5}\n"
            "  50 |a|r, nodes {}, rows {8 9}\n");
}

TEST(CollapseById, DistinctNodesAreCountedOverAllOutputs) {
  EXPECT_EQ(collapse({{.message = "a", .nodes = {"n1", "n2"}}, {.message = "b", .nodes = {"n2"}}},
                     CollapseBy::ID),
            "observation id 50 on 2, definitions {}, based on {}\n"
            "  50 |a (and 1 other message)|, nodes {n1 n2}, rows {}\n"
            "  50 |b|, nodes {n2}, rows {}\n");
}

TEST(CollapseById, IssuesAreOrderedByWhatTheyAreTogether) {
  EXPECT_EQ(collapse({{.id = "a", .severity = 50, .nodes = {"n1", "n2"}},
                      {.id = "b", .severity = 50, .message = "x", .nodes = {"n1"}},
                      {.id = "b", .severity = 40, .message = "y", .nodes = {"n2", "n3"}},
                      {.id = "c", .severity = 51}},
                     CollapseBy::ID),
            "observation c 51 on 0, definitions {}, based on {}\n"
            "  51 ||, nodes {}, rows {}\n"
            "observation b 50 on 3, definitions {}, based on {}\n"
            "  50 |x (and 1 other message)|, nodes {n1}, rows {}\n"
            "  40 |y|, nodes {n2 n3}, rows {}\n"
            "observation a 50 on 2, definitions {}, based on {}\n"
            "  50 ||, nodes {n1 n2}, rows {}\n");
}

// Quadratic time would be minutes here, so whoever brings it back will notice.
TEST(CollapseById, TakesAsManyMessagesAndNodesAsThereAreFindings) {
  constexpr int FINDINGS = 50000;
  Collapser collapser(CollapseBy::ID);
  for (int number = 0; number < FINDINGS; ++number) {
    const std::string message = "Job " + std::to_string(number) + " died.";
    const std::string node = "n" + std::to_string(number);
    collapser.add(make_finding({.message = message, .nodes = {node}}));
    collapser.add(make_finding({.message = "Disk is full.", .nodes = {node}}));
  }
  const auto issues = collapser.finish();
  ASSERT_EQ(issues.size(), 1U);
  EXPECT_EQ(issues[0].distinct_nodes, std::size_t{FINDINGS});
  ASSERT_EQ(issues[0].outputs.size(), std::size_t{FINDINGS} + 1);
  EXPECT_EQ(issues[0].outputs[0].texts.message, "Disk is full.");
  EXPECT_EQ(issues[0].outputs[0].note, " (and 50000 other messages)");
  EXPECT_EQ(issues[0].outputs[1].texts.message, "Job 0 died.");
  EXPECT_EQ(issues[0].outputs[2].texts.message, "Job 1 died.");
  EXPECT_EQ(issues[0].outputs[3].texts.message, "Job 10 died.");
}

// ---- Sweeps judged by a model ------------------------------------------------------------------

using Names = std::set<std::string>;

Names set_of(const std::vector<std::string_view>& names) { return {names.begin(), names.end()}; }

/// Draws findings whose keys have few values, so that all ways of being alike come up.
class FindingSource {
 public:
  explicit FindingSource(unsigned seed) : random_(seed) {}

  std::vector<FindingParts> draw(std::size_t count) {
    std::vector<FindingParts> findings;
    findings.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
      findings.push_back(draw_one());
    }
    return findings;
  }

  std::vector<FindingParts> shuffled(std::vector<FindingParts> findings) {
    std::shuffle(findings.begin(), findings.end(), random_);
    return findings;
  }

 private:
  std::size_t below(std::size_t end) {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(random_);
  }
  template <typename Value>
  Value one_of(const std::vector<Value>& values) {
    return values[below(values.size())];
  }
  template <typename Value>
  std::vector<Value> some_of(const std::vector<Value>& values) {
    std::vector<Value> some(below(3));
    for (Value& value : some) {
      value = one_of(values);
    }
    return some;
  }
  FindingParts draw_one() {
    return {.type = one_of<TypeCode>({DIAGNOSES, OBSERVATIONS, MISSING_DATA}),
            .id = one_of<std::string_view>({"disk", "disk#1"}),
            .severity = one_of<int>({24, 74, 75, 76}),
            .category = one_of<std::string_view>({"", "HW"}),
            .message = one_of<std::string_view>({"a", "b", "\xC3\xA4"}),
            .remedy = one_of<std::string_view>({"", "r"}),
            .nodes = some_of<std::string_view>({"n1", "n2", "n3", "n4"}),
            .row_ids = some_of<int>({5, 4, 3, -2}),
            .definitions = some_of<std::string_view>({"x", "x/y"}),
            .based_on = some_of<std::string_view>({"disk", "gone"})};
  }

  std::mt19937 random_;
};

int band_number(int severity) { return severity < 25 ? 0 : severity < 75 ? 1 : 2; }

struct ModelOutput {
  int severity = 0;
  Names distinct_nodes;
  std::vector<std::string> nodes;
  std::set<int> row_ids;

  void add(const FindingParts& finding) {
    severity = std::max(severity, finding.severity);
    distinct_nodes.insert(finding.nodes.begin(), finding.nodes.end());
    nodes.insert(nodes.end(), finding.nodes.begin(), finding.nodes.end());
    row_ids.insert(finding.row_ids.begin(), finding.row_ids.end());
  }
};

struct ModelIssue {
  std::string type;
  std::string id;
  Names definitions;
  Names based_on;
  ModelOutput all;
  // By message, remedy and category, which is the order of outputs that are alike otherwise.
  std::map<std::tuple<std::string, std::string, std::string>, ModelOutput> outputs;

  void add(const FindingParts& finding) {
    type = type_name(finding.type);
    id = finding.id;
    definitions.merge(set_of(finding.definitions));
    based_on.merge(set_of(finding.based_on));
    all.add(finding);
    outputs[{std::string(finding.message), std::string(finding.remedy),
             std::string(finding.category)}]
        .add(finding);
  }
};

bool comes_before(const ModelIssue& left, const ModelIssue& right) {
  const auto key = [](const ModelIssue& issue) {
    const auto& [message, remedy, category] = issue.outputs.begin()->first;
    return std::tuple(-issue.all.severity, -static_cast<int>(issue.all.distinct_nodes.size()),
                      issue.id, issue.type, message, remedy, category, issue.definitions,
                      issue.based_on);
  };
  return key(left) < key(right);
}

std::size_t count_messages(const ModelIssue& issue) {
  Names messages;
  for (const auto& [texts, output] : issue.outputs) {
    messages.insert(std::get<0>(texts));
  }
  return messages.size();
}

std::string picture(const ModelIssue& issue, NodeOrder order) {
  using Entry = std::pair<std::tuple<std::string, std::string, std::string>, ModelOutput>;
  std::vector<Entry> outputs(issue.outputs.begin(), issue.outputs.end());
  std::stable_sort(outputs.begin(), outputs.end(), [](const Entry& left, const Entry& right) {
    return std::tuple(left.second.severity, left.second.distinct_nodes.size()) >
           std::tuple(right.second.severity, right.second.distinct_nodes.size());
  });
  const std::size_t others = count_messages(issue) - 1;
  if (others > 0) {
    std::get<0>(outputs[0].first) +=
        " (and " + std::to_string(others) + " other message" + (others == 1 ? "" : "s") + ")";
  }
  std::string text = issue.type + " " + issue.id + " " + std::to_string(issue.all.severity) +
                     " on " + std::to_string(issue.all.distinct_nodes.size()) + ", definitions " +
                     list(issue.definitions) + ", based on " + list(issue.based_on) + "\n";
  for (auto& [texts, output] : outputs) {
    const auto& [message, remedy, category] = texts;
    if (order == NodeOrder::SORTED) {
      std::sort(output.nodes.begin(), output.nodes.end());
    }
    text += "  " + std::to_string(output.severity) + " " + category + "|" + message + "|" + remedy +
            ", nodes " + list(output.nodes) + ", rows " +
            list(std::vector<int>(output.row_ids.begin(), output.row_ids.end())) + "\n";
  }
  return text;
}

/// What collapse() should return, made in the plainest way.
std::string model_collapse(const std::vector<FindingParts>& findings, CollapseBy collapse_by,
                           NodeOrder order = NodeOrder::AS_COLLAPSED) {
  using Key = std::tuple<TypeCode, std::string_view, int, std::string_view, std::string_view,
                         std::string_view, Names, Names>;
  std::map<Key, ModelIssue> by_key;
  for (const FindingParts& finding : findings) {
    const Key key =
        collapse_by == CollapseBy::ID
            ? Key{finding.type, finding.id, band_number(finding.severity), "", "", "", {}, {}}
            : Key{finding.type,
                  finding.id,
                  finding.severity,
                  finding.category,
                  finding.message,
                  finding.remedy,
                  set_of(finding.definitions),
                  set_of(finding.based_on)};
    by_key[key].add(finding);
  }
  std::vector<ModelIssue> issues;
  issues.reserve(by_key.size());
  for (const auto& [key, issue] : by_key) {
    issues.push_back(issue);
  }
  std::sort(issues.begin(), issues.end(), comes_before);
  std::string text;
  for (const ModelIssue& issue : issues) {
    text += picture(issue, order);
  }
  return text;
}

/// Where outputs are joined later, by id, their node names are in no order that anybody may rely
/// on.
NodeOrder reliable_order(CollapseBy collapse_by) {
  return collapse_by == CollapseBy::TEXT ? NodeOrder::AS_COLLAPSED : NodeOrder::SORTED;
}

class CollapseSweep : public testing::TestWithParam<CollapseBy> {};

TEST_P(CollapseSweep, AgreesWithTheModel) {
  const NodeOrder order = reliable_order(GetParam());
  for (unsigned seed = 1; seed <= 200; ++seed) {
    const auto findings = FindingSource(seed).draw(seed);
    ASSERT_EQ(collapse(findings, GetParam(), order), model_collapse(findings, GetParam(), order))
        << "seed " << seed;
  }
}

TEST_P(CollapseSweep, TheOrderOfFindingsDoesNotMatterExceptToNodeNames) {
  FindingSource source(2024);
  const auto findings = source.draw(150);
  const std::string expected = collapse(findings, GetParam(), NodeOrder::SORTED);
  for (int round = 0; round < 100; ++round) {
    const auto shuffled = source.shuffled(findings);
    ASSERT_EQ(collapse(shuffled, GetParam(), NodeOrder::SORTED), expected) << "round " << round;
  }
}

INSTANTIATE_TEST_SUITE_P(Ways, CollapseSweep, testing::Values(CollapseBy::TEXT, CollapseBy::ID),
                         [](const auto& test) {
                           return test.param == CollapseBy::TEXT ? "ByText" : "ById";
                         });

// ---- Findings that are known to be of one wording ----------------------------------------------

TEST(CollapseByText, FindingsOfOneWordingAreOneIssue) {
  Collapser collapser(CollapseBy::TEXT);
  for (int time = 0; time < 3; ++time) {
    // Places for wordings are few: the later ones take those of the first ones.
    for (std::uint64_t wording = 1; wording <= 5000; ++wording) {
      const std::string message = "message " + std::to_string(wording % 2500);
      auto finding = make_finding({.message = message, .nodes = {"n1"}, .row_ids = {time}});
      finding.wording_number = wording;
      collapser.add(finding);
    }
  }
  EXPECT_EQ(collapser.findings(), 15000U);
  const auto issues = collapser.finish();
  ASSERT_EQ(issues.size(), 2500U);
  for (const CollapsedIssue& issue : issues) {
    EXPECT_EQ(issue.outputs[0].row_ids, (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(issue.outputs[0].nodes.size(), 6U);
  }
}

TEST(CollapseByText, WordingsAreForgottenWithTheIssues) {
  Collapser collapser(CollapseBy::TEXT);
  for (const char* id : {"first", "second"}) {
    auto finding = make_finding({.id = id});
    finding.wording_number = 7;
    collapser.add(finding);
    const auto issues = collapser.finish();
    ASSERT_EQ(issues.size(), 1U);
    EXPECT_EQ(issues[0].id, id);
  }
}

}  // namespace
