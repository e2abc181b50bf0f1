#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "standalone/model/type_names.h"
#include "standalone/report/collapser.h"
#include "tests/standalone/support/findings.h"

namespace {

using vond::postprocessor::DIAGNOSES;
using vond::postprocessor::OBSERVATIONS;
using vond::postprocessor::TypeCode;
using vond::standalone::CollapseBy;
using vond::standalone::CollapsedIssue;
using vond::standalone::Collapser;
using vond::standalone::Finding;
using vond::standalone::OriginalTexts;
using vond::standalone::type_name;
using vond::test::FindingParts;
using vond::test::make_finding;

using Findings = std::vector<FindingParts>;
using Strings = std::vector<std::string>;

void add_all(Collapser& collapser, const Findings& findings) {
  for (const FindingParts& finding : findings) {
    collapser.add(make_finding(finding));
  }
}

std::string joined(const Strings& items) {
  std::string text;
  for (const std::string& item : items) {
    text += (text.empty() ? "" : " ") + item;
  }
  return text;
}

std::string nodes_of(const CollapsedIssue& issue, const Collapser& collapser) {
  std::set<std::string> names;
  for (const auto node : issue.outputs[0].nodes) {
    names.insert(collapser.node_names()[node]);
  }
  return joined({names.begin(), names.end()});
}

/// "severity|message|remedy|nodes" of an issue.
std::string picture(const CollapsedIssue& issue, const Collapser& collapser) {
  const auto& texts = issue.outputs[0].texts;
  return std::to_string(issue.severity) + "|" + texts.message + "|" + texts.remedy + "|" +
         nodes_of(issue, collapser);
}

/// A picture for each issue, in the order of the report.
Strings collapse(const Findings& findings) {
  Collapser collapser(CollapseBy::PATTERN);
  add_all(collapser, findings);
  Strings pictures;
  for (const CollapsedIssue& issue : collapser.finish()) {
    pictures.push_back(picture(issue, collapser));
  }
  return pictures;
}

std::string full_picture(const CollapsedIssue& issue, const Collapser& collapser) {
  std::string rows;
  for (const int row_id : issue.outputs[0].row_ids) {
    rows += std::to_string(row_id) + " ";
  }
  return std::string(type_name(issue.type)) + " " + issue.id + " " +
         std::to_string(issue.distinct_nodes) + "|" + issue.outputs[0].texts.category + "|" +
         joined(issue.definitions) + "|" + joined(issue.based_on) + "|" +
         picture(issue, collapser) + "|" + rows;
}

Strings collapse_fully(const Findings& findings, CollapseBy collapse_by) {
  Collapser collapser(collapse_by);
  add_all(collapser, findings);
  Strings pictures;
  for (const CollapsedIssue& issue : collapser.finish()) {
    pictures.push_back(full_picture(issue, collapser));
  }
  return pictures;
}

// ---- What is one issue -------------------------------------------------------------------------

TEST(CollapseByPattern, NumbersAndTheOwnNodeKeepNothingApart) {
  EXPECT_EQ(collapse({{.message = "Fan 2 of cn001 at 4510 rpm.", .nodes = {"cn001"}},
                      {.message = "Fan 2 of cn002 at 4480 rpm.", .nodes = {"cn002"}},
                      {.message = "Fan 3 of cn009 at 310 rpm.", .nodes = {"cn009"}}}),
            Strings{"50|Fan 2 [cn001,cn002] or 3 [cn009] of NODE at 310 [cn009], 4480 [cn002] or "
                    "4510 [cn001] rpm.||cn001 cn002 cn009"});
}

TEST(CollapseByPattern, ATextThatDoesNotDifferIsShownAsItWasWritten) {
  EXPECT_EQ(collapse({{.message = "Fan 2 of cn001 fails.", .nodes = {"cn001"}},
                      {.message = "Fan 2 of cn001 fails.", .nodes = {"cn001"}}}),
            Strings{"50|Fan 2 of cn001 fails.||cn001"});
  EXPECT_EQ(collapse({{.message = "Raise it to 42.", .nodes = {"a"}},
                      {.message = "Raise it to 42.", .nodes = {"b"}}}),
            Strings{"50|Raise it to 42.||a b"});
}

TEST(CollapseByPattern, ValuesInRemediesKeepNothingApartEither) {
  EXPECT_EQ(collapse({{.message = "m", .remedy = "Replace fan 1.", .nodes = {"a"}},
                      {.message = "m", .remedy = "Replace fan 2.", .nodes = {"b"}}}),
            Strings{"50|m|Replace fan 1 [a] or 2 [b].|a b"});
}

TEST(CollapseByPattern, TheSeverityIsTheHighestOfItsBand) {
  EXPECT_EQ(collapse({{.severity = 30, .message = "m", .nodes = {"a"}},
                      {.severity = 74, .message = "m", .nodes = {"b"}},
                      {.severity = 25, .message = "m", .nodes = {"c"}}}),
            Strings{"74|m||a b c"});
}

TEST(CollapseByPattern, BandsAreIssuesOfTheirOwn) {
  EXPECT_EQ(collapse({{.severity = 24, .message = "1"},
                      {.severity = 25, .message = "1"},
                      {.severity = 74, .message = "1"},
                      {.severity = 75, .message = "1"}}),
            (Strings{"75|1||", "74|1||", "24|1||"}));
}

TEST(CollapseByPattern, DefinitionsAndBasedOnAreSets) {
  EXPECT_EQ(collapse({{.message = "1", .definitions = {"a", "b"}, .based_on = {"x", "y"}},
                      {.message = "1", .definitions = {"b", "a", "b"}, .based_on = {"y", "x"}}})
                .size(),
            1U);
}

TEST(CollapseByPattern, EverythingElseKeepsFindingsApart) {
  const FindingParts finding = {.category = "c", .message = "1", .definitions = {"d"}};
  const std::vector<void (*)(FindingParts&)> changes = {
      [](auto& other) { other.type = DIAGNOSES; },
      [](auto& other) { other.id = "id#2"; },
      [](auto& other) { other.category = "d"; },
      [](auto& other) { other.message = "1 more"; },
      [](auto& other) { other.remedy = "r"; },
      [](auto& other) {
        other.definitions = {"d", "e"};
      },
      [](auto& other) { other.based_on = {"d"}; },
      [](auto& other) { std::swap(other.message, other.remedy); },
  };
  for (const auto& change : changes) {
    FindingParts other = finding;
    change(other);
    EXPECT_EQ(collapse({finding, other, finding}).size(), 2U);
  }
}

TEST(CollapseByPattern, TheNodeOfAFindingOnSeveralNodesIsNotItsOwn) {
  EXPECT_EQ(collapse({{.message = "login is down", .nodes = {"login", "admin"}},
                      {.message = "admin is down", .nodes = {"login", "admin"}}})
                .size(),
            2U);
  EXPECT_EQ(collapse({{.message = "login is down", .nodes = {"login", "login"}},
                      {.message = "admin is down", .nodes = {"admin"}}}),
            Strings{"50|NODE is down||admin login"});
}

TEST(CollapseByPattern, IssuesThatAreEqualWhenAllIsReadAreJoined) {
  // The node says it of itself, another says it of the node.
  EXPECT_EQ(collapse({{.severity = 60, .message = "login is down", .nodes = {"login"}},
                      {.severity = 70, .message = "login is down", .nodes = {"admin"}}}),
            Strings{"70|login is down||admin login"});
}

TEST(CollapseByPattern, WhatOthersSayOfANodeStaysApartWhenSeveralSayItOfThemselves) {
  EXPECT_EQ(collapse({{.message = "login is down", .nodes = {"login"}},
                      {.message = "login is down", .nodes = {"admin"}},
                      {.message = "batch is down", .nodes = {"batch"}}}),
            (Strings{"50|NODE is down||batch login", "50|login is down||admin"}));
}

TEST(CollapseByPattern, ManyDistinctNodesComeFirst) {
  EXPECT_EQ(collapse({{.id = "a", .message = "1", .nodes = {"n"}},
                      {.id = "b", .message = "1", .nodes = {"n"}},
                      {.id = "b", .message = "2", .nodes = {"m"}}}),
            (Strings{"50|1 [n] or 2 [m]||m n", "50|1||n"}));
}

TEST(CollapseByPattern, IssuesThatLookTheSameHaveAnOrderToo) {
  Findings findings = {{.message = "NODE is down", .nodes = {"c"}, .row_ids = {1}},
                       {.message = "NODE is down", .nodes = {"d"}, .row_ids = {1}},
                       {.message = "a is down", .nodes = {"a"}, .row_ids = {2}},
                       {.message = "b is down", .nodes = {"b"}, .row_ids = {2}}};
  const Strings expected = collapse(findings);
  EXPECT_EQ(expected.size(), 2U);
  std::reverse(findings.begin(), findings.end());
  EXPECT_EQ(collapse(findings), expected);
}

// ---- Findings that are known to be of one wording ----------------------------------------------

Finding known_finding(const FindingParts& parts, std::uint64_t wording_number) {
  Finding finding = make_finding(parts);
  finding.wording_number = wording_number;
  return finding;
}

TEST(CollapseByPattern, AKnownWordingIsReadAgainForTheNodeThatItNames) {
  Collapser collapser(CollapseBy::PATTERN);
  for (const std::string_view node : {"admin", "login", "batch"}) {
    collapser.add(known_finding({.message = "login is down", .nodes = {node}}, 7));
  }
  add_all(collapser, {{.message = "batch is down", .nodes = {"batch"}}});
  Strings pictures;
  for (const CollapsedIssue& issue : collapser.finish()) {
    pictures.push_back(picture(issue, collapser));
  }
  EXPECT_EQ(pictures, (Strings{"50|NODE is down||batch login", "50|login is down||admin batch"}));
}

TEST(CollapseByPattern, AWordingThatWasFirstReadForItsOwnNodeIsReadAgainForOthers) {
  Collapser collapser(CollapseBy::PATTERN);
  for (const std::string_view node : {"login", "admin"}) {
    collapser.add(known_finding({.message = "login is down", .nodes = {node}}, 7));
  }
  add_all(collapser, {{.message = "batch is down", .nodes = {"batch"}}});
  EXPECT_EQ(collapser.finish().size(), 2U);
}

TEST(CollapseByPattern, WordingsAreForgottenWithTheIssues) {
  Collapser collapser(CollapseBy::PATTERN);
  for (const char* id : {"first", "second"}) {
    collapser.add(known_finding({.id = id, .message = "1"}, 7));
    const auto issues = collapser.finish();
    ASSERT_EQ(issues.size(), 1U);
    EXPECT_EQ(issues[0].id, id);
  }
}

// ---- Sweeps ------------------------------------------------------------------------------------

/// Draws findings whose keys have few values, so that all ways of being alike come up.
class FindingSource {
 public:
  explicit FindingSource(unsigned seed) : random_(seed) {}

  Findings draw(std::size_t count, const std::vector<std::string_view>& texts) {
    Findings findings;
    for (std::size_t i = 0; i < count; ++i) {
      findings.push_back(
          {.type = one_of<TypeCode>({DIAGNOSES, OBSERVATIONS}),
           .id = one_of<std::string_view>({"a", "b"}),
           .severity = one_of<int>({24, 50, 100}),
           .message = one_of(texts),
           .remedy = one_of<std::string_view>({"", "Look at it."}),
           .nodes = one_of<std::vector<std::string_view>>(
               {{}, {"cn1"}, {"cn2"}, {"cn3.site"}, {"login"}, {"cn1", "cn2"}, {"cn2", "cn2"}}),
           .row_ids = one_of<std::vector<int>>({{}, {1}, {2, -3}, {4}}),
           .definitions = one_of<std::vector<std::string_view>>({{}, {"x", "y"}, {"y", "x"}})});
    }
    return findings;
  }
  Findings shuffled(Findings findings) {
    std::shuffle(findings.begin(), findings.end(), random_);
    return findings;
  }

 private:
  template <typename Value>
  Value one_of(const std::vector<Value>& values) {
    return values[std::uniform_int_distribution<std::size_t>(0, values.size() - 1)(random_)];
  }

  std::mt19937 random_;
};

const std::vector<std::string_view> TEXTS_WITH_VALUES = {
    "",           "Fan 1 of cn1",  "Fan 2 of cn2", "Fan 2 of cn1", "Fan 1 of cn3",
    "cn3.site:9", "login is down", "cn1 is down",  "NODE is down", "at 2026-01-31 23:59:59",
    "at 12:30",   "Fan 1 or 2",    "\x01",         "\x02 is down"};

TEST(CollapseByPattern, TheOrderOfFindingsDoesNotMatter) {
  FindingSource source(2024);
  for (int round = 0; round < 20; ++round) {
    const Findings findings = source.draw(60, TEXTS_WITH_VALUES);
    const Strings expected = collapse_fully(findings, CollapseBy::PATTERN);
    for (int time = 0; time < 5; ++time) {
      ASSERT_EQ(collapse_fully(source.shuffled(findings), CollapseBy::PATTERN), expected);
    }
  }
}

TEST(CollapseByPattern, IsByTextWhereTextsHoldNoValues) {
  FindingSource source(7);
  for (int round = 0; round < 50; ++round) {
    const Findings findings =
        source.draw(60, {"", "The fan fails.", "A disk is full.", "NODE is down", "\x01", "b\x05"});
    ASSERT_EQ(collapse_fully(findings, CollapseBy::PATTERN),
              collapse_fully(findings, CollapseBy::TEXT));
  }
}

/// The shown texts of all issues.
Strings shown_messages(const Findings& findings) {
  Collapser collapser(CollapseBy::PATTERN);
  add_all(collapser, findings);
  Strings messages;
  for (const CollapsedIssue& issue : collapser.finish()) {
    messages.push_back(picture(issue, collapser));
  }
  return messages;
}

TEST(CollapseByPattern, AFindingWithACountIsAsManyFindings) {
  // Eighty of a hundred say 50, and the others all numbers from 0 to 19: whether these stand out is
  // decided by how often 50 was said.
  const Strings nodes = {"n0", "n1", "n2", "n3", "n4", "n5", "n6", "n7", "n8", "n9"};
  Strings texts;
  texts.reserve(20);
  for (int number = 0; number < 20; ++number) {
    texts.push_back("at " + std::to_string(number) + "C");
  }
  Findings apart;
  apart.reserve(100);
  for (std::size_t number = 0; number < 100; ++number) {
    const std::string_view text = number < 20 ? std::string_view(texts[number]) : "at 50C";
    apart.push_back({.message = text, .nodes = {nodes[number % nodes.size()]}});
  }
  Findings together(apart.begin(), apart.begin() + 20);
  together.push_back(
      {.message = "at 50C", .nodes = {nodes.begin(), nodes.end()}, .row_ids = {}, .count = 80});
  EXPECT_EQ(shown_messages(together), shown_messages(apart));
  EXPECT_NE(shown_messages(together)[0].find("[median 50;"), std::string::npos);

  Findings split = together;
  split.back().nodes.resize(5);
  split.push_back({.message = "at 50C", .nodes = {nodes.begin() + 5, nodes.end()}, .count = 0});
  EXPECT_EQ(shown_messages(split), shown_messages(apart));
}

/// Who said a text where: type, id, severity, definitions, message, remedy.
using Said = std::tuple<TypeCode, std::string, int, std::set<std::string>, Strings>;
struct Places {
  std::uint64_t count = 0;
  std::set<std::string> nodes;
  std::set<int> row_ids;
  bool operator==(const Places&) const = default;
};

std::map<Said, Places> what_was_said(const Findings& findings) {
  std::map<Said, Places> said;
  for (const FindingParts& finding : findings) {
    Places& places = said[{finding.type,
                           std::string(finding.id),
                           finding.severity,
                           {finding.definitions.begin(), finding.definitions.end()},
                           {std::string(finding.message), std::string(finding.remedy)}}];
    places.count += finding.count;
    places.nodes.insert(finding.nodes.begin(), finding.nodes.end());
    places.row_ids.insert(finding.row_ids.begin(), finding.row_ids.end());
  }
  return said;
}

std::map<Said, Places> what_issues_say(const Findings& findings) {
  Collapser collapser(CollapseBy::PATTERN);
  add_all(collapser, findings);
  const auto name = [&](auto node) -> std::string_view { return collapser.node_names()[node]; };
  std::map<Said, Places> said;
  for (const CollapsedIssue& issue : collapser.finish()) {
    for (const OriginalTexts& original : issue.findings->originals(name)) {
      // A text that another issue says too would hide what this one says.
      Places& places = said[{issue.type,
                             issue.id,
                             original.severity,
                             {issue.definitions.begin(), issue.definitions.end()},
                             original.texts}];
      places.count += original.count;
      for (const auto node : original.nodes) {
        places.nodes.emplace(name(node));
      }
      places.row_ids.insert(original.row_ids.begin(), original.row_ids.end());
    }
  }
  return said;
}

TEST(CollapseByPattern, IssuesGiveBackEveryTextWithItsSeverityCountNodesAndRowIds) {
  FindingSource source(11);
  for (int round = 0; round < 50; ++round) {
    Findings findings = source.draw(60, TEXTS_WITH_VALUES);
    for (std::size_t i = 0; i < findings.size(); ++i) {
      // Another severity of the same band.
      findings[i].severity -= static_cast<int>(i % 3);
      findings[i].count = i % 4;
    }
    ASSERT_EQ(what_issues_say(findings), what_was_said(findings)) << "round " << round;
  }
}

}  // namespace
