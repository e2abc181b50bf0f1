#include "standalone/report/record_issue_facts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/standalone/support/findings.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using vond::facts::Place;
using vond::postprocessor::CollapsedAnalysisOutput;
using vond::standalone::CollapseBy;
using vond::standalone::Collapser;
using vond::standalone::RecordIssueFacts;
using vond::standalone::ReportRecord;
using vond::test::FindingParts;
using vond::test::make_finding;

/// Returns `kind unit: value [nodes]; …`.
std::string to_text(const Place& place) {
  std::string text = place.kind + " " + place.unit + ":";
  for (const auto& [value, nodes] : place.values) {
    text += " " + value + " [";
    for (const std::string& node : nodes) {
      text += node + ",";
    }
    text += "];";
  }
  return text;
}

/// A record and its facts.
class Facts {
 public:
  explicit Facts(const std::vector<FindingParts>& findings,
                 CollapseBy collapse_by = CollapseBy::PATTERN)
      : collapser_(collapse_by),
        record_((add(findings), collapser_), {}),
        facts_(record_, collapser_.node_names()) {}

  /// By id.
  const CollapsedAnalysisOutput& issue(const std::string& id) const {
    for (const auto& [mask, issues] : *record_.data().issues_by_mask) {
      for (const auto& issue : issues) {
        if (issue->get_id() == id) {
          return *issue;
        }
      }
    }
    throw std::logic_error("no issue " + id);
  }

  std::vector<std::string> places(const std::string& id = "id") {
    std::vector<std::string> texts;
    for (const Place& place : facts_.places(issue(id))) {
      texts.push_back(to_text(place));
    }
    return texts;
  }

  RecordIssueFacts& facts() { return facts_; }

 private:
  void add(const std::vector<FindingParts>& findings) {
    for (const FindingParts& finding : findings) {
      collapser_.add(make_finding(finding));
    }
  }

  Collapser collapser_;
  ReportRecord record_;
  RecordIssueFacts facts_;
};

TEST(RecordIssueFacts, TellTheHighestSeverityOfEachIssue) {
  const std::vector<FindingParts> findings = {{.id = "a", .severity = 30, .message = "x 1"},
                                              {.id = "a", .severity = 70, .message = "x 2"},
                                              {.id = "b", .severity = 90}};
  Facts facts(findings);
  EXPECT_EQ(facts.facts().severity(facts.issue("a")), 70);
  EXPECT_EQ(facts.facts().severity(facts.issue("b")), 90);
}

TEST(RecordIssueFacts, KnowNothingOfAnIssueOfAnotherRecord) {
  Facts facts({{.message = "at 5"}, {.message = "at 6"}});
  const CollapsedAnalysisOutput stranger;
  EXPECT_EQ(facts.facts().severity(stranger), -1);
  EXPECT_THAT(facts.facts().places(stranger), IsEmpty());
  EXPECT_EQ(facts.facts().patterns(stranger).message, "");
}

TEST(RecordIssueFacts, TellTheValuesOfEachPlaceWithTheirNodes) {
  Facts facts({{.message = "fan 3 at 85C", .nodes = {"cn2"}},
               {.message = "fan 3 at 9C", .nodes = {"cn1", "cn3"}},
               {.message = "fan 3 at 85C", .nodes = {"cn1"}}});
  EXPECT_THAT(facts.places(), ElementsAre("number C: 9C [cn1,cn3,]; 85C [cn1,cn2,];"));
  EXPECT_EQ(facts.facts().patterns(facts.issue("id")).message, "fan 3 at <*>");
}

TEST(RecordIssueFacts, TellAllValuesHoweverManyThereAre) {
  std::vector<std::string> texts;
  for (int number = 100; number > 0; --number) {
    texts.push_back("at " + std::to_string(number));
  }
  std::vector<FindingParts> findings;
  findings.reserve(texts.size());
  for (const std::string& text : texts) {
    findings.push_back({.message = text});
  }
  Facts facts(findings);
  const std::vector<Place> places = facts.facts().places(facts.issue("id"));
  ASSERT_EQ(places.size(), 1U);
  ASSERT_EQ(places[0].values.size(), 100U);
  EXPECT_EQ(places[0].values.front().value, "1");
  EXPECT_EQ(places[0].values.back().value, "100");
}

TEST(RecordIssueFacts, TellTheKindOfEachPlaceFromLeftToRightMessageFirst) {
  Facts facts({{.message = "cn1 at 08:00:00: job a1, 5%", .remedy = "kill 7", .nodes = {"cn1"}},
               {.message = "cn2 at 09:00:00: job b2, 6%", .remedy = "kill 8", .nodes = {"cn2"}}});
  EXPECT_THAT(
      facts.places(),
      ElementsAre("node : cn1 [cn1,]; cn2 [cn2,];", "time : 08:00:00 [cn1,]; 09:00:00 [cn2,];",
                  "text : a1 [cn1,]; b2 [cn2,];", "number %: 5% [cn1,]; 6% [cn2,];",
                  "number : 7 [cn1,]; 8 [cn2,];"));
  const auto patterns = facts.facts().patterns(facts.issue("id"));
  EXPECT_EQ(patterns.message, "NODE at <*>: job <*>, <*>");
  EXPECT_EQ(patterns.remedy, "kill <*>");
}

TEST(RecordIssueFacts, OfFindingsThatStandForNoneTellTheirValuesAllTheSame) {
  std::vector<std::string> texts;
  texts.reserve(20);
  for (int number = 0; number < 20; ++number) {
    texts.push_back("at " + std::to_string(number));
  }
  std::vector<FindingParts> findings;
  findings.reserve(texts.size());
  for (const std::string& text : texts) {
    findings.push_back({.message = text, .count = 0});
  }
  Facts facts(findings);
  EXPECT_EQ(facts.issue("id").outputs[0]->message.substr(0, 10), "at 0 to 19");
  EXPECT_EQ(facts.facts().places(facts.issue("id"))[0].values.size(), 20U);
}

TEST(RecordIssueFacts, OfEqualTextsHaveNoPlaces) {
  Facts facts(
      {{.message = "fan 3 fails", .nodes = {"cn1"}}, {.message = "fan 3 fails", .nodes = {"cn2"}}});
  EXPECT_THAT(facts.places(), IsEmpty());
  EXPECT_EQ(facts.facts().patterns(facts.issue("id")).message, "fan 3 fails");
}

TEST(RecordIssueFacts, OfIssuesByTextAreTheirOwnTexts) {
  Facts facts({{.message = "at 5", .remedy = "turn 1"}}, CollapseBy::TEXT);
  EXPECT_THAT(facts.places(), IsEmpty());
  EXPECT_EQ(facts.facts().patterns(facts.issue("id")).message, "at 5");
  EXPECT_EQ(facts.facts().patterns(facts.issue("id")).remedy, "turn 1");
}

TEST(RecordIssueFacts, MarksInTheTextsAreText) {
  Facts facts({{.message = "\x01 at 5 \x05"}, {.message = "\x01 at 6 \x05"}});
  EXPECT_EQ(facts.facts().patterns(facts.issue("id")).message, "\x01 at <*> \x05");
}

}  // namespace
