#include "standalone/report/acknowledged_facts.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "standalone/acknowledged/acknowledgements_reader.h"
#include "tests/standalone/support/read_facts.h"
#include "tests/standalone/support/test_input.h"

namespace {

using vond::standalone::read_acknowledgements;
using vond::standalone::ReportFacts;
using vond::standalone::RunSources;
using vond::test::read_facts;
using vond::test::TestFile;

using Entry = ReportFacts::Acknowledgement;
using State = Entry::State;

constexpr std::time_t NOW = 1763699400;

std::string entry(const std::string& id, const std::string& nodes,
                  const std::string& until = "2025-12-01", const std::string& more = "") {
  return R"({"id": ")" + id + R"(", "nodes": ")" + nodes + R"(", "until": ")" + until +
         R"(", "reason": "r")" + more + "}\n";
}

std::string finding(const std::string& id, const std::string& nodes, const std::string& more = "") {
  return R"({"id": ")" + id + R"(", "severity": 80, "nodes": ")" + nodes + "\"" + more + "}\n";
}

ReportFacts facts_of(const std::string& findings, const std::string& acknowledgements,
                     RunSources sources = {}) {
  const TestFile file(findings);
  const TestFile known(acknowledgements);
  sources.findings = {file.path()};
  sources.time = NOW;
  sources.acknowledged = read_acknowledgements(known.path(), {.now = NOW}).entries;
  return read_facts(sources, {}, NOW);
}

/// Returns the state of the one entry.
State state_of(const std::string& findings, const std::string& acknowledgement,
               RunSources sources = {}) {
  return facts_of(findings, acknowledgement, std::move(sources)).acknowledged->entries.at(0).state;
}

bool is_back(const std::string& findings, const std::string& acknowledgements) {
  return facts_of(findings, acknowledgements).acknowledged->entries.at(0).is_back;
}

TEST(AcknowledgedFacts, AreThereWithAFileAlone) {
  const TestFile file(finding("a", "n1"));
  EXPECT_FALSE(read_facts({.findings = {file.path()}}).acknowledged.has_value());
  EXPECT_TRUE(facts_of("", "").acknowledged.has_value());
}

TEST(AcknowledgedFacts, CountIssuesNodesAndFindings) {
  const ReportFacts facts = facts_of(
      finding("a", "n[1-2]") + finding("a", "n3") + finding("b", "n[2-4]", R"(, "count": 7)"),
      entry("a", "*") + entry("b", "n2"));
  EXPECT_EQ(facts.acknowledged->issues, 2U);
  EXPECT_EQ(facts.acknowledged->nodes, (std::vector<std::string>{"n1", "n2", "n3"}));
  EXPECT_EQ(facts.findings_read, 9U);
  EXPECT_EQ(facts.findings_acknowledged, 2U);
  EXPECT_EQ(facts.nodes_seen, 2U);
}

TEST(AcknowledgedFacts, TellEntriesInTheOrderOfTheFile) {
  const auto entries =
      facts_of("", entry("b", "n[2-3]", "2025-11-30", R"(, "by": "mh")") + entry("a", "*"))
          .acknowledged->entries;
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0].id, "b");
  EXPECT_EQ(entries[0].nodes, (std::vector<std::string>{"n2", "n3"}));
  EXPECT_EQ(entries[0].until, 1764547199);
  EXPECT_EQ(entries[0].reason, "r");
  EXPECT_EQ(entries[0].by, "mh");
  EXPECT_EQ(entries[1].nodes, std::vector<std::string>());
}

TEST(AcknowledgedFacts, AnEntryThatCoversNothingIsUnusedWhereItsNodesWereExamined) {
  const std::string examined = "{\"examined\": \"n[1-2]\"}\n";
  EXPECT_EQ(state_of(examined + finding("a", "n1"), entry("a", "n[1-2]")), State::ACTIVE);
  EXPECT_EQ(state_of(examined + finding("b", "n1"), entry("a", "n[1-2]")), State::UNUSED);
  EXPECT_EQ(state_of(examined + finding("b", "n1"), entry("a", "n[1-3]")), State::ACTIVE);
  EXPECT_EQ(state_of(finding("b", "n1"), entry("a", "n1")), State::ACTIVE);
}

TEST(AcknowledgedFacts, AnEntryOfEveryNodeIsUnusedWhenNoneIsSilent) {
  const std::string examined = "{\"examined\": \"n[1-2]\"}\n";
  EXPECT_EQ(state_of("", entry("a", "*")), State::ACTIVE);
  EXPECT_EQ(state_of(examined, entry("a", "*")), State::UNUSED);
  EXPECT_EQ(state_of(examined, entry("a", "*"), {.expected = {"n1"}}), State::UNUSED);
  EXPECT_EQ(state_of(examined, entry("a", "*"), {.expected = {"n3"}}), State::ACTIVE);
}

TEST(AcknowledgedFacts, AnEntryWhoseBandWasExceededIsUnused) {
  EXPECT_EQ(state_of("{\"examined\": \"n1\"}\n" + finding("a", "n1"),
                     entry("a", "n1", "2025-12-01", R"(, "up_to": "warning")")),
            State::UNUSED);
}

TEST(AcknowledgedFacts, AnExpiredEntryIsBackWhenItWouldCoverSomething) {
  const std::string expired = entry("a", "n1", "2025-11-20");
  EXPECT_EQ(state_of(finding("a", "n1"), expired), State::EXPIRED);
  EXPECT_TRUE(is_back(finding("a", "n[1-2]"), expired));
  EXPECT_FALSE(is_back(finding("a", "n2"), expired));
  EXPECT_FALSE(is_back(finding("a", "n1"), entry("a", "n1")));
}

TEST(AcknowledgedFacts, AnEntryThatEndsWhileFindingsAreReadHoldsForTheWholeReport) {
  const TestFile file("{\"examined\": \"n[1-2]\"}\n" + finding("a", "n1"));
  const TestFile known(entry("a", "n1", "2025-11-21T04:31:00Z") +
                       entry("a", "n2", "2025-11-21T04:31:00Z") +
                       entry("a", "n1", "2025-11-21T04:29:00Z"));
  const ReportFacts facts =
      read_facts({.findings = {file.path()},
                  .acknowledged = read_acknowledgements(known.path(), {.now = NOW}).entries,
                  .time = NOW},
                 {}, NOW + 300);
  EXPECT_EQ(facts.acknowledged->issues, 1U);
  const std::vector<Entry>& entries = facts.acknowledged->entries;
  EXPECT_EQ(entries[0].state, State::ACTIVE);
  EXPECT_EQ(entries[1].state, State::UNUSED);
  EXPECT_EQ(entries[2].state, State::EXPIRED);
  EXPECT_FALSE(entries[2].is_back);
}

TEST(AcknowledgedFacts, AnExpiredEntryThatWasRenewedIsNotBack) {
  const std::string expired = entry("a", "n[1-2]", "2025-11-20");
  EXPECT_FALSE(is_back(finding("a", "n1"), expired + entry("a", "n1")));
  EXPECT_TRUE(is_back(finding("a", "n[1-2]"), expired + entry("a", "n1")));
}

TEST(AcknowledgedFacts, AnObservationThatIsAcknowledgedWasReported) {
  const std::string diagnosis =
      finding("d", "n1", R"(, "type": "diagnosis", "based_on": ["o", "p"])");
  const ReportFacts facts = facts_of(diagnosis + finding("o", "n1"), entry("o", "n1"));
  EXPECT_EQ(facts.unknown_based_on, std::vector<std::string>{"p"});
}

TEST(AcknowledgedFacts, ADiagnosisThatIsAcknowledgedIsNoObservation) {
  const std::string diagnosis = finding("d", "n1", R"(, "type": "diagnosis", "based_on": ["o"])");
  const ReportFacts facts =
      facts_of(diagnosis + finding("o", "n1", R"(, "type": "diagnosis")"), entry("o", "n1"));
  EXPECT_EQ(facts.unknown_based_on, std::vector<std::string>{"o"});
}

}  // namespace
