// Input that cannot be used, as the command tells it.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

constexpr char GOOD_LINE[] = "{\"id\": \"good\", \"severity\": 10}\n";

class InputTest : public ::testing::Test {
 protected:
  /// Expects that a file of findings that holds `text` is refused.
  void expect_bad_findings(const std::string& text, const std::string& message) {
    const std::string path = folder.write("findings", text);
    expect_error(run({path}), 2, path + message);
    expect_error(Command({}).input(text).run(), 2, "<stdin>" + message);
  }

  /// Expects that a file of definitions that holds `text` is refused.
  void expect_bad_definitions(const std::string& text, const std::string& message) {
    const std::string path = folder.write("definitions", text);
    expect_error(Command({"-d", path}).input(GOOD_LINE).run(), 2, path + message);
  }

  TemporaryFolder folder;
};

TEST_F(InputTest, OneMessageAndNoReportForALineThatCannotBeUsed) {
  expect_bad_findings("{\"id\": \"a\"}\n",
                      ":1:1: the key \"severity\" is missing, expected it in every finding");
  expect_bad_findings(
      std::string(GOOD_LINE) + "{\"id\": \"a\", \"severity\": \"critcal\"}\nbad\n",
      ":2:25: severity is \"critcal\", expected a whole number from 0 to 100 or one "
      "of \"informational\", \"warning\", \"critical\"; did you mean \"critical\"?");
  expect_bad_findings(std::string(GOOD_LINE) + "[1]",
                      ":2:1: the line is an array, expected an object with the keys of a finding");
}

TEST_F(InputTest, AByteThatIsNoTextIsNamedInTheWholeMessage) {
  expect_bad_findings("{\"id\": \"a\x80\"}\n",
                      ":1:10: found the byte 0x80, expected text in UTF-8");
}

TEST_F(InputTest, AFileThatCannotBeReadIsNamed) {
  expect_error(run({"no/such/file"}), 2,
               "no/such/file: cannot be opened (No such file or directory), expected a file of "
               "findings");
  expect_error(run({folder.path()}), 2,
               folder.path() + ": is a folder, expected a file of findings");
  expect_error(Command({"-d", folder.path()}).input(GOOD_LINE).run(), 2,
               folder.path() + ": is a folder, expected a file of definitions");
}

TEST_F(InputTest, AFileThatMayNotBeReadIsNamed) {
  if (geteuid() == 0) {
    GTEST_SKIP() << "root may read everything";
  }
  const std::string path = folder.write("findings", GOOD_LINE);
  std::filesystem::permissions(path, std::filesystem::perms::none);
  expect_error(run({path}), 2,
               path + ": cannot be opened (Permission denied), expected a file of findings");
}

TEST_F(InputTest, AFaultInALaterFileLeavesNoReportEither) {
  const std::string good = folder.write("good", GOOD_LINE);
  const std::string bad = folder.write("bad", "{");
  const Outcome outcome = run({good, bad});
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.status, 2);
}

TEST_F(InputTest, DefinitionsThatCannotBeUsedAreTold) {
  expect_bad_definitions("",
                         ":1:1: the file is empty, expected an object with the key "
                         "\"definitions\"");
  expect_bad_definitions("{}",
                         ":1:1: the key \"definitions\" is missing, expected it in a file of "
                         "definitions");
  expect_bad_definitions("{\"definitions\": [\n{\"name\": \"a\"},\n{\"name\": \"a\"}]}",
                         ":3:10: name is \"a\", expected another name than the definition in line "
                         "2, column 10 has");
  expect_bad_definitions("{\"definitions\": [{\"name\": 7}]}",
                         ":1:27: name is 7, expected a string");
  expect_bad_definitions("{\"definitions\": [{\"name\": \"a\", \"skipped\": 1}]}",
                         ":1:43: skipped is 1, expected true or false");
}

TEST_F(InputTest, UnknownKeysAreWarnedOfOnceAndTheReportIsWritten) {
  const Outcome outcome =
      Command({})
          .input(
              "{\"id\": \"a\", \"severity\": 1, \"mesage\": \"m\"}\n"
              "{\"id\": \"b\", \"severity\": 1, \"mesage\": \"m\", \"x-y\": 1}\n")
          .run();
  EXPECT_EQ(outcome.errors,
            "vond-report: warning: <stdin>:1:28: unknown key \"mesage\" is ignored (2 times); did "
            "you mean \"message\"?\n");
  EXPECT_NE(outcome.output.find("  Findings read: 2,"), std::string::npos);
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(InputTest, UnknownKeysOfDefinitionsAreWarnedOf) {
  const std::string path =
      folder.write("definitions", R"({"definitions": [{"name": "a", "skiped": true}]})");
  const Outcome outcome = Command({"-d", path}).input(GOOD_LINE).run();
  EXPECT_EQ(outcome.errors, "vond-report: warning: " + path +
                                ":1:32: unknown key \"skiped\" is ignored (once); did you mean "
                                "\"skipped\"?\n");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(InputTest, KeepGoingTellsTheFirst20LinesAndCountsTheOthers) {
  std::string input = GOOD_LINE;
  std::string messages;
  for (int line = 2; line <= 23; ++line) {
    input += "{}\n";
    if (line > 21) {
      continue;
    }
    messages += "vond-report: error: <stdin>:" + std::to_string(line) +
                ":1: the key \"id\" is missing, expected it in every finding\n";
  }
  const Outcome outcome = Command({"--keep-going"}).input(input + GOOD_LINE).run();
  EXPECT_EQ(outcome.errors,
            messages + "vond-report: error: and 2 more lines that cannot be used\n");
  EXPECT_NE(outcome.output.find("  22 lines of input were left out"), std::string::npos);
  EXPECT_NE(outcome.output.find("Verdict: UNKNOWN: 22 lines of input were left out\n"),
            std::string::npos);
  EXPECT_EQ(outcome.status, 2);
}

TEST_F(InputTest, KeepGoingTellsOneMoreLineInTheSingular) {
  std::string input;
  for (int line = 1; line <= 21; ++line) {
    input += "{}\n";
  }
  const std::string errors = Command({"--keep-going"}).input(input).run().errors;
  EXPECT_EQ(errors.substr(errors.rfind("vond-report")),
            "vond-report: error: and 1 more line that cannot be used\n");
}

TEST_F(InputTest, KeepGoingWithoutABadLineChangesNothing) {
  const Outcome outcome = Command({"--keep-going"}).input(GOOD_LINE).run();
  EXPECT_EQ(outcome.output, Command({}).input(GOOD_LINE).run().output);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(InputTest, KeepGoingDoesNotHelpAFileThatCannotBeRead) {
  expect_error(run({"--keep-going", "no/such/file"}), 2,
               "no/such/file: cannot be opened (No such file or directory), expected a file of "
               "findings");
}

TEST_F(InputTest, AReportThatIsNotCompleteIsWorseThanALineLeftOut) {
  const Outcome outcome = Command({"--keep-going"}).input("{}\n").output_file("/dev/full").run();
  EXPECT_EQ(outcome.status, 3);
}

TEST_F(InputTest, TheStatusIsTheVerdicts) {
  EXPECT_EQ(Command({}).run().status, 0);
  EXPECT_EQ(Command({}).input(GOOD_LINE).run().status, 0);
  EXPECT_EQ(Command({"-t", "0"}).input(GOOD_LINE).run().status, 1);
}

TEST_F(InputTest, CollapsingByIdMakesFindingsOfOneIdOneIssue) {
  const std::string input =
      "{\"id\": \"a\", \"severity\": 90, \"message\": \"first\", \"nodes\": [\"n1\", \"n2\"]}\n"
      "{\"id\": \"a\", \"severity\": 90, \"message\": \"second\", \"nodes\": \"n3\"}\n";
  const std::string by_text = Command({"--collapse", "text"}).input(input).run().output;
  EXPECT_NE(by_text.find("CRITICAL: 2 observations\n"), std::string::npos);
  const std::string by_id = Command({"--collapse", "id"}).input(input).run().output;
  EXPECT_NE(by_id.find("CRITICAL: 1 observation\n"), std::string::npos);
  EXPECT_NE(by_id.find("first (and 1 other message)"), std::string::npos);
}

TEST_F(InputTest, CollapsingByPatternIsTheDefaultAndShowsValuesTogether) {
  const std::string input =
      R"({"id": "fan", "severity": 90, "message": "Fan of n1 at 310 rpm.", "nodes": "n1"})"
      "\n"
      R"({"id": "fan", "severity": 80, "message": "Fan of n2 at 450 rpm.", "nodes": "n2"})"
      "\n";
  const std::string by_pattern = Command({"--collapse", "pattern"}).input(input).run().output;
  EXPECT_EQ(by_pattern, Command({}).input(input).run().output);
  EXPECT_NE(by_pattern.find("fan (appears on 2 nodes)"), std::string::npos);
  EXPECT_NE(by_pattern.find("Message: Fan of NODE at 310 [n1] or 450 [n2] rpm.\n"),
            std::string::npos);
  const std::string by_text = Command({"--collapse", "text"}).input(input).run().output;
  EXPECT_NE(by_text.find("Message: Fan of n1 at 310 rpm.\n"), std::string::npos);
  EXPECT_NE(by_text.find("Message: Fan of n2 at 450 rpm.\n"), std::string::npos);
}

}  // namespace
}  // namespace vond::test
