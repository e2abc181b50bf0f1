#include "standalone/report/facts_of_run.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdint>
#include <ctime>
#include <string>
#include <utility>
#include <vector>

#include "tests/standalone/support/read_facts.h"
#include "tests/standalone/support/test_input.h"

namespace {

using vond::standalone::RecordOptions;
using vond::standalone::ReportFacts;
using vond::test::read_facts;
using vond::test::TestFile;

using Names = std::vector<std::string>;

TEST(FactsOfRun, TellWhatWasRead) {
  const TestFile file(
      "{\"id\": \"a\", \"severity\": 1, \"nodes\": \"n[1-3]\"}\n"
      "{\"id\": \"b\", \"severity\": 1, \"nodes\": \"n1\"}\n"
      "bad\n");
  const ReportFacts facts = read_facts({.findings = {file.path()}});
  ASSERT_EQ(facts.inputs.size(), 1U);
  EXPECT_EQ(facts.inputs[0].name, file.path());
  EXPECT_EQ(facts.findings_read, 2U);
  EXPECT_EQ(facts.nodes_seen, 3U);
  EXPECT_EQ(facts.lines_rejected, 1U);
  ASSERT_EQ(facts.first_rejections.size(), 1U);
  EXPECT_EQ(file.without_path(facts.first_rejections[0]),
            "FILE:3:1: found \"bad\", expected a JSON value");
  EXPECT_FALSE(facts.inputs[0].is_useless);
}

TEST(FactsOfRun, TellOfWarningsAndUselessInputs) {
  const TestFile good(R"({"id": "a", "severity": 1, "node": "n1"})");
  const TestFile bad("{}");
  const ReportFacts facts = read_facts({.findings = {good.path(), bad.path()}});
  ASSERT_EQ(facts.warnings.size(), 1U);
  EXPECT_EQ(good.without_path(facts.warnings[0]),
            "FILE:1:28: unknown key \"node\" is ignored (once); did you mean \"nodes\"?");
  EXPECT_FALSE(facts.inputs[0].is_useless);
  EXPECT_TRUE(facts.inputs[1].is_useless);
}

TEST(FactsOfRun, TellThatAnInputGaveNothing) {
  const TestFile examined(R"({"examined": "n1"})");
  const TestFile empty("");
  const TestFile blank("\n \n");
  const ReportFacts facts = read_facts({.findings = {examined.path(), empty.path(), blank.path()}});
  EXPECT_FALSE(facts.inputs[0].is_useless);
  EXPECT_TRUE(facts.inputs[1].is_useless);
  EXPECT_TRUE(facts.inputs[2].is_useless);
}

TEST(FactsOfRun, TellTimeAndWidth) {
  RecordOptions options;
  options.line_width = 120;
  const ReportFacts facts = read_facts({}, options);
  EXPECT_EQ(facts.written_at, 1763699400);
  EXPECT_EQ(facts.line_width, 120);
}

TEST(FactsOfRun, TellWhatTheRecordDoesNotKnow) {
  const TestFile file(
      R"({"id": "d", "type": "diagnosis", "severity": 1, "based_on": ["o"], "definitions": ["x"]})");
  RecordOptions options;
  options.definitions.emplace();
  const ReportFacts facts = read_facts({.findings = {file.path()}}, options);
  EXPECT_EQ(facts.unknown_definitions, Names{"x"});
  EXPECT_EQ(facts.unknown_based_on, Names{"o"});
}

TEST(FactsOfRun, TellNothingAboutExaminedNodesWhereThatIsNotKnown) {
  const ReportFacts facts = read_facts({.expected = {"n1"}});
  EXPECT_FALSE(facts.examination.has_value());
  EXPECT_EQ(facts.expectation->silent, Names{"n1"});
}

TEST(FactsOfRun, TellOfNodesThatWereExaminedAndThatWereNot) {
  const TestFile file(R"({"id": "a", "severity": 1, "nodes": "n[1-3]"})");
  const ReportFacts facts = read_facts(
      {.findings = {file.path()}, .examined = {"n1", "n7"}, .expected = {"n2", "n7", "n8"}});
  ASSERT_TRUE(facts.examination.has_value());
  EXPECT_EQ(facts.examination->nodes_examined, 2U);
  EXPECT_EQ(facts.examination->not_examined_with_findings, (Names{"n2", "n3"}));
  EXPECT_EQ(facts.expectation->silent, (Names{"n2", "n8"}));
  EXPECT_EQ(facts.expectation->not_expected, Names{"n1"});
}

TEST(FactsOfRun, CountNodesWithFindingsAsSeenWhereNobodyToldWhoWasExamined) {
  const TestFile file(R"({"id": "a", "severity": 1, "nodes": "n[1-3]"})");
  const ReportFacts facts = read_facts({.findings = {file.path()}, .expected = {"n1", "n8"}});
  EXPECT_FALSE(facts.examination.has_value());
  EXPECT_EQ(facts.expectation->nodes_expected, 2U);
  EXPECT_EQ(facts.expectation->silent, Names{"n8"});
  EXPECT_EQ(facts.expectation->not_expected, (Names{"n2", "n3"}));
}

TEST(FactsOfRun, PairSilentNodesWithUnexpectedOnesOfLikeNamesAndJoinNone) {
  const ReportFacts facts =
      read_facts({.examined = {"n1.example", "n2", "n2.example"}, .expected = {"n1", "n2"}});
  EXPECT_EQ(facts.expectation->silent, Names{"n1"});
  EXPECT_EQ(facts.expectation->not_expected, (Names{"n1.example", "n2.example"}));
  const std::vector<std::pair<std::string, std::string>> alike = {{"n1", "n1.example"}};
  EXPECT_EQ(facts.expectation->alike, alike);
}

TEST(FactsOfRun, CountFindingsThatNameNoDefinition) {
  const TestFile file("{\"id\": \"a\", \"severity\": 1}\n{\"id\": \"a\", \"severity\": 1}\n");
  EXPECT_EQ(read_facts({.findings = {file.path()}}).findings_without_definition, 2U);
}

void set_last_change(const TestFile& file, std::time_t time) {
  const timespec times[] = {{time, 0}, {time, 0}};
  EXPECT_EQ(::utimensat(AT_FDCWD, file.path().c_str(), times, 0), 0);
}

std::int64_t age_of_file_changed_at(std::time_t time) {
  const TestFile file("");
  set_last_change(file, time);
  return read_facts({.findings = {file.path()}}).inputs.at(0).age.value();
}

TEST(FactsOfRun, CountAgesToTheTimeOfTheReport) {
  EXPECT_EQ(age_of_file_changed_at(1763699400), 0);
  EXPECT_EQ(age_of_file_changed_at(1763699280), 120);
  EXPECT_EQ(age_of_file_changed_at(1763699401), -1);
  EXPECT_EQ(age_of_file_changed_at(0), 1763699400);
}

TEST(FactsOfRun, TellWhenTheOldestFindingsWereCollected) {
  const auto begin = [](const std::string& written) {
    return R"({"begin": {"format": 1, "written": ")" + written + "\"}}\n";
  };
  const TestFile raw(R"({"id": "a", "severity": 1})");
  set_last_change(raw, 1763699400 - 60);
  EXPECT_EQ(read_facts({.findings = {raw.path()}}).collected_at, 1763699400 - 60);
  const TestFile old(begin("2025-11-20T04:30:00Z") + begin("2025-11-19T04:30:00Z"));
  EXPECT_EQ(read_facts({.findings = {raw.path(), old.path()}}).collected_at,
            1763699400 - 2 * 86400);
  set_last_change(raw, 1763699400 - 3 * 86400);
  EXPECT_EQ(read_facts({.findings = {old.path(), raw.path()}}).collected_at,
            1763699400 - 3 * 86400);
  EXPECT_EQ(read_facts({.findings = {"/dev/null"}}).collected_at, 1763699400) << "nothing tells it";
  // A clock that is ahead is passed on, too.
  const TestFile future(begin("2025-11-22T04:30:00Z"));
  const ReportFacts facts = read_facts({.findings = {future.path()}});
  EXPECT_EQ(facts.collected_at, 1763699400 + 86400);
  EXPECT_EQ(facts.inputs[0].age, -86400);
}

TEST(FactsOfRun, TellThatFindingsWereCollectedBeforeTheReportWhateverTheirFileTells) {
  const TestFile raw(R"({"id": "a", "severity": 1})");
  set_last_change(raw, 1763699400 + 1);
  EXPECT_EQ(read_facts({.findings = {raw.path()}}).collected_at, 1763699400);
  // From 1970 on every output can write it.
  set_last_change(raw, -1);
  EXPECT_EQ(read_facts({.findings = {raw.path()}}).collected_at, 0);
}

TEST(FactsOfRun, TellThatWhatCameMeanwhileMayBeAsOldAsTheBeginningOfTheReport) {
  constexpr std::time_t BEGUN = 1763699400 - 300;
  const auto collected_at = [](const std::string& path) {
    return read_facts({.findings = {path}, .time = BEGUN}).collected_at;
  };
  EXPECT_EQ(collected_at("/dev/null"), BEGUN);
  const TestFile meanwhile(R"({"begin": {"format": 1, "written": "2025-11-21T04:29:00Z"}})");
  EXPECT_EQ(collected_at(meanwhile.path()), BEGUN);
  const TestFile ahead(R"({"begin": {"format": 1, "written": "2025-11-21T04:31:00Z"}})");
  EXPECT_EQ(collected_at(ahead.path()), 1763699400 + 60);
  const TestFile raw(R"({"id": "a", "severity": 1})");
  EXPECT_EQ(collected_at(raw.path()), BEGUN);
  set_last_change(raw, BEGUN - 1);
  EXPECT_EQ(collected_at(raw.path()), BEGUN - 1);
}

TEST(FactsOfRun, TellTheAgeOfEveryPartOfAnInput) {
  const TestFile file(
      "{\"begin\": {\"format\": 1, \"written\": \"2025-11-14T04:30:00Z\", \"parts\": [\"r2\"]}}\n"
      "{\"begin\": {\"format\": 1, \"written\": \"2025-11-21T04:28:00Z\"}}\n");
  const ReportFacts facts = read_facts({.findings = {file.path()}});
  const std::vector<ReportFacts::Input::Part>& parts = facts.inputs.at(0).parts;
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(parts[0].names, Names{"r2"});
  EXPECT_EQ(parts[0].age, 7 * 86400);
  EXPECT_EQ(parts[1].names, Names{});
  EXPECT_EQ(parts[1].age, 120);
  EXPECT_EQ(facts.inputs[0].age, 7 * 86400);
}

TEST(FactsOfRun, TellNoAgeOfWhatIsNoRegularFile) {
  EXPECT_FALSE(read_facts({.findings = {"/dev/null"}}).inputs.at(0).age.has_value());
}

}  // namespace
