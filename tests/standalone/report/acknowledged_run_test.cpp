// What is acknowledged is as if it had not been read: by a property, in all ways to collapse.
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "standalone/acknowledged/acknowledgements_reader.h"
#include "standalone/facts/verdict.h"
#include "standalone/report/record_issue_facts.h"
#include "tests/standalone/support/random_acknowledgements.h"
#include "tests/standalone/support/read_facts.h"
#include "tests/standalone/support/test_input.h"

namespace {

using vond::facts::Finding;
using vond::standalone::CheckRun;
using vond::standalone::CollapseBy;
using vond::standalone::CollapsedIssue;
using vond::standalone::CollapsedOutput;
using vond::standalone::facts_of_run;
using vond::standalone::OriginalTexts;
using vond::standalone::read_acknowledgements;
using vond::standalone::RecordIssueFacts;
using vond::standalone::RecordOptions;
using vond::standalone::ReportFacts;
using vond::standalone::ReportRecord;
using vond::standalone::RunSources;
using vond::standalone::StringInterner;
using vond::standalone::verdict_doubts;
using vond::standalone::verdict_of;
using vond::test::NoProgress;
using vond::test::RandomAcknowledgements;
using vond::test::TestFile;

constexpr std::time_t NOW = 1763699400;

constexpr CollapseBy ALL_WAYS[] = {CollapseBy::PATTERN, CollapseBy::TEXT, CollapseBy::ID};

std::string joined(const std::vector<std::string>& texts) {
  std::string line;
  for (const std::string& text : texts) {
    line += text + ",";
  }
  return line;
}

/// Returns the names, sorted, each once.
std::string names_of(const std::vector<StringInterner::Id>& nodes, const StringInterner& names) {
  std::set<std::string> sorted;
  for (const StringInterner::Id node : nodes) {
    sorted.insert(names[node]);
  }
  return joined({sorted.begin(), sorted.end()});
}

std::string numbers_of(const std::vector<int>& numbers) {
  std::vector<std::string> texts;
  texts.reserve(numbers.size());
  for (const int number : numbers) {
    texts.push_back(std::to_string(number));
  }
  return joined(texts);
}

std::string text_of(const CollapsedOutput& output, const StringInterner& names) {
  return std::to_string(output.severity) + "|" + output.texts.message + "|" + output.texts.remedy +
         "|" + output.texts.category + "|" + names_of(output.nodes, names) + "|" +
         numbers_of(output.row_ids) + "\n";
}

/// Returns all that an issue says and is made of.
std::string text_of(const CollapsedIssue& issue, const StringInterner& names) {
  std::string text = std::to_string(issue.type) + "|" + issue.id + "|" +
                     std::to_string(issue.severity) + "|" + joined(issue.definitions) + "|" +
                     joined(issue.based_on) + "\n";
  for (const CollapsedOutput& output : issue.outputs) {
    text += text_of(output, names);
  }
  if (issue.findings) {
    const auto name_of = [&names](auto node) -> std::string_view { return names[node]; };
    for (const OriginalTexts& original : issue.findings->originals(name_of)) {
      text += "  " + joined(original.texts) + names_of(original.nodes, names) +
              numbers_of(original.row_ids) + "\n";
    }
  }
  return text;
}

std::string text_of(const std::vector<CollapsedIssue>& issues, const StringInterner& names) {
  std::string text;
  for (const CollapsedIssue& issue : issues) {
    text += text_of(issue, names);
  }
  return text;
}

/// Returns the lines of `text`, the last one first.
std::string reversed(const std::string& text) {
  std::istringstream lines(text);
  std::string result;
  for (std::string line; std::getline(lines, line);) {
    result.insert(0, line + "\n");
  }
  return result;
}

class AcknowledgedRun : public ::testing::Test {
 protected:
  static std::unique_ptr<CheckRun> read(const std::string& input, CollapseBy collapse_by,
                                        const std::string* acknowledgements = nullptr,
                                        bool keeps_findings = false) {
    const TestFile file(input);
    RunSources sources{.findings = {file.path()},
                       .collapse_by = collapse_by,
                       .keeps_findings = keeps_findings,
                       .expected = {"n1", "n3"}};
    sources.time = NOW;
    if (acknowledgements != nullptr) {
      const TestFile known(*acknowledgements);
      sources.acknowledged = read_acknowledgements(known.path(), {.now = NOW}).entries;
    }
    NoProgress progress;
    return std::make_unique<CheckRun>(sources, progress);
  }

  static std::string issues_of(CheckRun& run) {
    return text_of(run.collapser().finish(), run.collapser().node_names());
  }

  static ReportFacts facts_of(CheckRun& run) {
    RecordOptions options;
    options.fail_threshold = 75;
    const ReportRecord record(run.collapser(), options, run.everything());
    return facts_of_run(run, record, NOW);
  }

  /// Returns what the output of findings is told.
  static std::string kept_of(CheckRun& run) {
    RecordOptions options;
    options.keeps_findings = true;
    const ReportRecord record(run.collapser(), options, run.everything());
    std::string text;
    RecordIssueFacts(record, run.collapser().node_names(), run.names_of_kept())
        .for_each_finding([&text](const Finding& finding) {
          text += finding.type + "|" + finding.id + "|" + std::to_string(finding.severity) + "|" +
                  finding.message + "|" + joined(finding.nodes) + "|" +
                  numbers_of(finding.row_ids) + "|" + std::to_string(finding.count) + "\n";
        });
    return text;
  }
};

TEST_F(AcknowledgedRun, HasTheIssuesOfTheFindingsThatAreLeft) {
  std::size_t taken_out = 0;
  for (unsigned seed = 1; seed <= 120; ++seed) {
    const RandomAcknowledgements random(seed);
    const std::string known = random.acknowledgements();
    for (const CollapseBy collapse_by : ALL_WAYS) {
      const auto run = read(random.input(), collapse_by, &known);
      const auto left = read(random.input_without_acknowledged(), collapse_by);
      EXPECT_EQ(run->findings_without_definition(), left->findings_without_definition());
      EXPECT_EQ(run->collapser().findings(), left->collapser().findings());
      EXPECT_EQ(run->collapser().node_names().size(), left->collapser().node_names().size());
      ASSERT_EQ(issues_of(*run), issues_of(*left)) << random.input() << known;
      taken_out += run->acknowledged()->issues().size();
    }
  }
  EXPECT_GT(taken_out, 120U);
}

TEST_F(AcknowledgedRun, HasTheVerdictOfTheFindingsThatAreLeft) {
  std::map<vond::standalone::Verdict, int> met;
  for (unsigned seed = 1; seed <= 120; ++seed) {
    const RandomAcknowledgements random(seed);
    const std::string known = random.acknowledgements();
    const ReportFacts facts = facts_of(*read(random.input(), CollapseBy::PATTERN, &known));
    const ReportFacts left =
        facts_of(*read(random.input_without_acknowledged(), CollapseBy::PATTERN));
    EXPECT_EQ(verdict_of(facts), verdict_of(left)) << random.input() << known;
    EXPECT_EQ(verdict_doubts(facts), verdict_doubts(left)) << random.input() << known;
    EXPECT_EQ(facts.nodes_seen, left.nodes_seen);
    ++met[verdict_of(facts)];
  }
  EXPECT_EQ(met.size(), 3U);
}

TEST_F(AcknowledgedRun, CountsTheIssuesThatAReportOnTheOthersWouldHave) {
  for (unsigned seed = 1; seed <= 120; ++seed) {
    const RandomAcknowledgements random(seed);
    const std::string known = random.acknowledgements();
    for (const CollapseBy collapse_by : ALL_WAYS) {
      const auto run = read(random.input(), collapse_by, &known);
      const auto others = read(random.acknowledged_input(), collapse_by);
      ASSERT_EQ(text_of(run->acknowledged()->issues(), run->acknowledged()->node_names()),
                issues_of(*others))
          << random.input() << known;
    }
  }
}

TEST_F(AcknowledgedRun, KeepsAllFindingsWhereTheyAreToBeWritten) {
  for (unsigned seed = 1; seed <= 100; ++seed) {
    const RandomAcknowledgements random(seed);
    const std::string known = random.acknowledgements();
    for (const CollapseBy collapse_by : ALL_WAYS) {
      const auto run = read(random.input(), collapse_by, &known, true);
      const auto whole = read(random.input(), collapse_by, nullptr, true);
      EXPECT_EQ(run->findings_read(), whole->findings_read());
      ASSERT_EQ(kept_of(*run), kept_of(*whole)) << random.input() << known;
    }
  }
}

TEST_F(AcknowledgedRun, HasTheSameIssuesWhenItsLinesComeTheOtherWayRound) {
  for (unsigned seed = 1; seed <= 120; ++seed) {
    const RandomAcknowledgements random(seed);
    const std::string known = random.acknowledgements();
    const auto forwards = read(random.input(), CollapseBy::PATTERN, &known);
    const auto backwards = read(reversed(random.input()), CollapseBy::PATTERN, &known);
    ASSERT_EQ(issues_of(*backwards), issues_of(*forwards)) << random.input() << known;
  }
}

TEST_F(AcknowledgedRun, ADiagnosisMayComeBehindWhatItIsBasedOn) {
  const std::string known =
      R"({"id": "d", "nodes": "n1", "until": "2025-12-01", "reason": "r", "with_observations": true})";
  const std::string diagnosis =
      R"({"id": "d", "type": "diagnosis", "severity": 80, "nodes": "n1", "based_on": ["o"]})"
      "\n";
  const std::string observation =
      R"({"id": "o", "severity": 80, "nodes": "n[1-2]", "row_ids": [3, 1], "count": 2})"
      "\n";
  const auto first = read(diagnosis + observation, CollapseBy::TEXT, &known);
  const auto last = read(observation + diagnosis, CollapseBy::TEXT, &known);
  const std::string issues = issues_of(*first);
  EXPECT_EQ(issues, "1|o|80||\n80||||n2,|1,3,\n");
  EXPECT_EQ(issues_of(*last), issues);
  EXPECT_EQ(last->collapser().findings(), 2U);
}

TEST_F(AcknowledgedRun, KeepsSinceWhenAFindingIsKnownOnAllOfItsNodes) {
  const std::string known = R"({"id": "a", "nodes": "n1", "until": "2025-12-01", "reason": "r"})";
  const std::string seen = R"("severity": 80, "first_seen": "2025-11-19T00:00:00Z", "nodes": )";
  const auto run = read("{\"id\": \"a\", " + seen + "\"n[1-2]\"}\n", CollapseBy::TEXT, &known);
  const std::vector<CollapsedIssue> left = run->collapser().finish();
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(left[0].outputs[0].first_seen, 1763510400);
  ASSERT_EQ(run->acknowledged()->issues().size(), 1U);
  EXPECT_EQ(run->acknowledged()->issues()[0].outputs[0].first_seen, 1763510400);
}

TEST_F(AcknowledgedRun, WithAnEmptyFileIsTheSame) {
  const std::string none;
  const std::string input = RandomAcknowledgements(1).input();
  const auto run = read(input, CollapseBy::PATTERN, &none, true);
  EXPECT_EQ(run->everything(), nullptr);
  EXPECT_EQ(issues_of(*run), issues_of(*read(input, CollapseBy::PATTERN)));
}

}  // namespace
