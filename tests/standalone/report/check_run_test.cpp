#include "standalone/report/check_run.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "standalone/input/input_error.h"
#include "standalone/report/report_record.h"
#include "tests/standalone/support/test_input.h"

namespace {

using vond::standalone::CheckRun;
using vond::standalone::CollapsedIssue;
using vond::standalone::InputError;
using vond::standalone::ReadingProgress;
using vond::standalone::RecordOptions;
using vond::standalone::ReportRecord;
using vond::standalone::RunInput;
using vond::standalone::RunSources;
using vond::test::TestFile;

using Names = std::vector<std::string>;

class RecordedProgress : public ReadingProgress {
 public:
  void advance(std::size_t bytes_read, std::size_t findings) override {
    calls.emplace_back(bytes_read, findings);
  }

  std::vector<std::pair<std::size_t, std::size_t>> calls;
};

std::unique_ptr<CheckRun> read_run(const RunSources& sources) {
  RecordedProgress progress;
  return std::make_unique<CheckRun>(sources, progress);
}

std::string finding(const std::string& id, const std::string& node) {
  return R"({"id": ")" + id + R"(", "severity": 80, "nodes": ")" + node + "\"}\n";
}

/// Takes the issues out of the run.
Names ids_of(CheckRun& run) {
  Names ids;
  for (const CollapsedIssue& issue : run.collapser().finish()) {
    ids.push_back(issue.id);
  }
  return ids;
}

Names names_of(const CheckRun& run) {
  Names names;
  for (const RunInput& input : run.inputs()) {
    names.push_back(input.name);
  }
  return names;
}

// ---- One run -----------------------------------------------------------------------------------

TEST(CheckRun, OfNoInputsHoldsNothing) {
  const auto run = read_run({});
  EXPECT_EQ(names_of(*run), Names());
  EXPECT_EQ(run->collapser().findings(), 0U);
  EXPECT_FALSE(run->examination().is_known());
  EXPECT_EQ(run->warnings(), Names());
  EXPECT_EQ(run->rejected_lines().count, 0U);
}

TEST(CheckRun, CountsTheFindingsThatLinesStandFor) {
  const TestFile file(finding("a", "n1") + R"({"id": "b", "severity": 1, "count": 41})" + "\n" +
                      R"({"id": "c", "severity": 1, "count": 0, "definitions": ["d"]})");
  const auto run = read_run({.findings = {file.path()}});
  EXPECT_EQ(run->collapser().findings(), 42U);
  EXPECT_EQ(run->findings_without_definition(), 42U);
}

TEST(CheckRun, HoldsWhatAllItsInputsTell) {
  const TestFile first(finding("a", "n1") + finding("b", "n2"));
  const TestFile second(finding("c", "n1"));
  const auto run = read_run({.findings = {first.path(), second.path()}});
  EXPECT_EQ(names_of(*run), (Names{first.path(), second.path()}));
  EXPECT_EQ(run->collapser().findings(), 3U);
  EXPECT_EQ(run->collapser().node_names().size(), 2U);
  EXPECT_EQ(ids_of(*run), (Names{"a", "b", "c"}));
}

TEST(CheckRun, CallsItsInputsByNamesThatAreHarmless) {
  const TestFile file("");
  const std::string link = file.path() + "\033[2J";
  ASSERT_EQ(symlink(file.path().c_str(), link.c_str()), 0);
  const auto run = read_run({.findings = {link}});
  unlink(link.c_str());
  EXPECT_EQ(names_of(*run), Names{file.path() + "\\x1b[2J"});
}

TEST(CheckRun, CountsFindingsThatNameNoDefinition) {
  const TestFile file(finding("a", "n1") + finding("a", "n2") +
                      R"({"id": "b", "severity": 1, "definitions": ["d"]})");
  EXPECT_EQ(read_run({.findings = {file.path()}})->findings_without_definition(), 2U);
}

TEST(CheckRun, KnowsExaminedNodesFromSourcesAndLines) {
  const TestFile file("{\"examined\": [\"n2\", \"n3\"]}\n");
  const auto run = read_run(
      {.findings = {file.path()}, .examined = {"n1", "n2"}, .expected = {"n1", "n3", "n4"}});
  EXPECT_EQ(run->examination().examined(), 3U);
  EXPECT_EQ(run->examination().expected_and_not_in({"n1", "n2", "n3"}), Names{"n4"});
}

TEST(CheckRun, ALineOfNoExaminedNodesTellsThatNoneWas) {
  const TestFile file("{\"examined\": []}\n");
  const auto run = read_run({.findings = {file.path()}});
  EXPECT_TRUE(run->examination().is_known());
  EXPECT_EQ(run->examination().examined(), 0U);
}

TEST(CheckRun, ReturnsWarningsInPlaceOfPrintingThem) {
  const TestFile file(R"({"id": "a", "severity": 1, "mesage": "m"})");
  testing::internal::CaptureStderr();
  const auto run = read_run({.findings = {file.path()}});
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  ASSERT_EQ(run->warnings().size(), 1U);
  EXPECT_EQ(file.without_path(run->warnings()[0]),
            "FILE:1:28: unknown key \"mesage\" is ignored (once); did you mean \"message\"?");
}

TEST(CheckRun, ALineThatCannotBeUsedEndsStrictReading) {
  const TestFile file(finding("a", "n1") + "{}\n");
  EXPECT_THROW(read_run({.findings = {file.path()}, .is_strict = true}), InputError);
}

TEST(CheckRun, LeavesOutLinesThatCannotBeUsedAndTellsOfThem) {
  const TestFile file("{}\n" + finding("a", "n1") + "bad\n");
  const auto run = read_run({.findings = {file.path()}});
  EXPECT_EQ(run->rejected_lines().count, 2U);
  ASSERT_EQ(run->rejected_lines().errors.size(), 2U);
  EXPECT_EQ(file.without_path(run->rejected_lines().errors[0].what()),
            "FILE:1:1: the key \"id\" is missing, expected it in every finding");
  EXPECT_EQ(ids_of(*run), Names{"a"});
}

TEST(CheckRun, ComplainsAboutInputsOfWhichNotOneLineCanBeUsed) {
  const TestFile good(finding("a", "n1") + "{}\n");
  const TestFile bad("\n{}\n\n");
  const TestFile blank(" \n\n");
  const TestFile examined("{\"examined\": []}\n");
  const auto run =
      read_run({.findings = {good.path(), bad.path(), blank.path(), examined.path(), bad.path()}});
  const std::string complaint = bad.path() + ": its one line cannot be used";
  EXPECT_EQ(run->complaints(), (Names{"", complaint, "", "", complaint}));
  EXPECT_FALSE(run->is_useless());
}

TEST(CheckRun, IsUselessWithLinesOfWhichNotOneCanBeUsed) {
  const TestFile bad("{}\n");
  const TestFile blank("\n");
  const TestFile examined("{\"examined\": []}\n");
  EXPECT_TRUE(read_run({.findings = {bad.path(), blank.path()}})->is_useless());
  EXPECT_FALSE(read_run({.findings = {blank.path()}})->is_useless());
  EXPECT_FALSE(read_run({.findings = {bad.path(), examined.path()}})->is_useless());
  EXPECT_FALSE(read_run({})->is_useless());
}

TEST(CheckRun, LimitsTheDepthOfDefinitionsWhereTheirNamesArePaths) {
  std::string deep = "d";
  for (int level = 2; level <= 257; ++level) {
    deep += "/d";
  }
  const TestFile file(R"({"id": "a", "severity": 1, "definitions": [")" + deep + "\"]}");
  EXPECT_EQ(
      read_run({.findings = {file.path()}, .definitions_are_paths = true})->rejected_lines().count,
      1U);
  EXPECT_EQ(read_run({.findings = {file.path()}})->collapser().findings(), 1U);
}

TEST(CheckRun, TellsProgressAfterEveryFindingOfAllInputs) {
  const std::string lines = finding("a", "n1") + finding("b", "n1");
  const TestFile first(lines);
  const TestFile second(finding("c", "n1"));
  RecordedProgress progress;
  const CheckRun run({.findings = {first.path(), second.path()}}, progress);
  ASSERT_EQ(progress.calls.size(), 3U);
  EXPECT_EQ(progress.calls[0].second, 1U);
  EXPECT_EQ(progress.calls[1], std::make_pair(lines.size(), std::size_t{2}));
  EXPECT_EQ(progress.calls[2],
            std::make_pair(lines.size() + finding("c", "n1").size(), std::size_t{3}));
}

// ---- Two runs in one process -------------------------------------------------------------------

class TwoRuns : public ::testing::Test {
 protected:
  TestFile yesterday{finding("old", "n1") + finding("both", "n2") + "{\"examined\": \"n[1-9]\"}\n"};
  TestFile today{finding("both", "n2") + finding("new", "n3") + finding("new", "n4")};
};

TEST_F(TwoRuns, OneAfterTheOtherKnowNothingOfEachOther) {
  for (int round = 0; round < 2; ++round) {
    const auto first = read_run({.findings = {yesterday.path()}});
    EXPECT_EQ(first->examination().examined(), 9U);
    EXPECT_EQ(ids_of(*first), (Names{"both", "old"}));
    const auto second = read_run({.findings = {today.path()}, .expected = {"n1"}});
    EXPECT_FALSE(second->examination().is_known());
    EXPECT_EQ(second->collapser().findings(), 3U);
    EXPECT_EQ(ids_of(*second), (Names{"new", "both"}));
  }
}

TEST_F(TwoRuns, HeldAtOnceTheyStayApart) {
  const auto first = read_run({.findings = {yesterday.path()}});
  const auto second = read_run({.findings = {today.path()}});
  EXPECT_EQ(names_of(*first), Names{yesterday.path()});
  EXPECT_EQ(names_of(*second), Names{today.path()});
  EXPECT_EQ(first->collapser().node_names().size(), 2U);
  EXPECT_EQ(second->collapser().node_names().size(), 3U);
  EXPECT_EQ(ids_of(*second), (Names{"new", "both"}));
  EXPECT_EQ(ids_of(*first), (Names{"both", "old"}));
}

TEST_F(TwoRuns, TheSecondMayOutliveTheFirstAndEverythingItWasReadWith) {
  auto first = read_run({.findings = {yesterday.path()}});
  std::unique_ptr<CheckRun> second;
  {
    RecordedProgress progress;
    const RunSources sources{.findings = {today.path()}, .examined = {"n3"}};
    second = std::make_unique<CheckRun>(sources, progress);
  }
  first.reset();
  EXPECT_EQ(second->examination().not_examined(second->collapser().node_names()),
            (Names{"n2", "n4"}));
  EXPECT_EQ(ids_of(*second), (Names{"new", "both"}));
}

TEST_F(TwoRuns, TheFirstMayOutliveTheSecond) {
  const auto first = read_run({.findings = {yesterday.path()}});
  read_run({.findings = {today.path()}}).reset();
  EXPECT_EQ(ids_of(*first), (Names{"both", "old"}));
}

TEST_F(TwoRuns, TheirRecordsLiveBesideEachOther) {
  RecordOptions options;
  options.fail_threshold = 75;
  const auto first = read_run({.findings = {yesterday.path()}});
  auto first_record = std::make_unique<ReportRecord>(first->collapser(), options);
  const auto second = read_run({.findings = {today.path()}});
  ReportRecord second_record(second->collapser(), options);
  EXPECT_EQ(first_record->data().issues_by_mask->at(25).at(0)->get_id(), "both");
  first_record.reset();
  const auto& issues = second_record.data().issues_by_mask->at(25);
  ASSERT_EQ(issues.size(), 2U);
  EXPECT_EQ(issues[0]->get_id(), "new");
  EXPECT_EQ(issues[0]->outputs.at(0)->node_names, (Names{"n3", "n4"}));
}

TEST_F(TwoRuns, AFaultInOneLeavesTheOtherAsItWas) {
  const TestFile bad("{");
  const auto first = read_run({.findings = {yesterday.path()}});
  EXPECT_THROW(read_run({.findings = {today.path(), bad.path()}, .is_strict = true}), InputError);
  EXPECT_EQ(ids_of(*first), (Names{"both", "old"}));
}

}  // namespace
