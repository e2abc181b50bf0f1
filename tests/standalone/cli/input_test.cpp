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
  /// Expects that a file of findings that holds `text` is refused in strict reading.
  void expect_bad_findings(const std::string& text, const std::string& message) {
    const std::string path = folder.write("findings", text);
    expect_error(run({"--strict", path}), 2, path + message);
    expect_error(Command({"--strict"}).input(text).run(), 2, "<stdin>" + message);
  }

  /// Expects that a file that holds `text` is of no use, with the hint `hint`, and so is one beside
  /// it that is.
  void expect_useless(const std::string& text, const std::string& hint) {
    const std::string path = folder.write("useless", text);
    const Outcome alone = run({path});
    EXPECT_EQ(alone.output, "");
    EXPECT_EQ(alone.status, 2);
    EXPECT_EQ(last_line(alone.errors), "vond-report: error: " + path + ": " + hint + "\n");
    const Outcome of_two = run({folder.write("good", GOOD_LINE), path});
    EXPECT_EQ(of_two.errors, alone.errors);
    EXPECT_EQ(of_two.status, 1);
    EXPECT_TRUE(tells(of_two, "  1 input without a line that could be used: "));
    EXPECT_TRUE(tells(of_two, "Verdict: UNKNOWN: "));
  }

  static bool tells(const Outcome& outcome, const std::string& text) {
    return outcome.output.find(text) != std::string::npos;
  }

  static std::string last_line(const std::string& text) {
    return text.substr(text.rfind('\n', text.size() - 2) + 1);
  }

  /// Expects that a file of definitions that holds `text` is refused.
  void expect_bad_definitions(const std::string& text, const std::string& message) {
    const std::string path = folder.write("definitions", text);
    expect_error(Command({"-d", path}).input(GOOD_LINE).run(), 2, path + message);
  }

  TemporaryFolder folder;
};

TEST_F(InputTest, AnEmptyFileAmongOthersIsADoubt) {
  const Outcome outcome =
      run({folder.write("full", R"({"examined": "n1"})"), folder.write("empty", "")});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(tells(outcome, "Verdict: UNKNOWN: no line of " + folder.path() + "/empty could be"));
}

TEST_F(InputTest, StrictReadingGivesOneMessageAndNoReportForALineThatCannotBeUsed) {
  expect_bad_findings("{\"id\": \"a\"}\n",
                      ":1:1: the key \"severity\" is missing, expected it in every finding");
  expect_bad_findings(
      std::string(GOOD_LINE) + "{\"id\": \"a\", \"severity\": \"critcal\"}\nbad\n",
      ":2:25: severity is \"critcal\", expected a whole number from 0 to 100 or one "
      "of \"informational\", \"warning\", \"critical\"; did you mean \"critical\"?");
  expect_bad_findings(std::string(GOOD_LINE) + "[1]",
                      ":2:1: the line is an array, expected an object with the keys of a finding");
}

TEST_F(InputTest, AByteThatIsNoTextIsNamedWhereNothingCanStandForIt) {
  expect_bad_findings("{\"id\": \"a\"\x80}\n",
                      ":1:11: found the byte 0x80, expected text in UTF-8");
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

TEST_F(InputTest, AFaultInALaterFileLeavesNoReportEitherInStrictReading) {
  const std::string good = folder.write("good", GOOD_LINE);
  const std::string bad = folder.write("bad", "{");
  const Outcome outcome = run({"--strict", good, bad});
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
  EXPECT_TRUE(tells(outcome, "  1 warning:\n"));
  EXPECT_EQ(outcome.status, 0);
}

std::string repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) {
    all += text;
  }
  return all;
}

TEST_F(InputTest, OfLinesLeftOutTheFirstTenOfAllInputsAreToldAndTheOthersCounted) {
  const std::string first = folder.write("first", GOOD_LINE + repeated("{}\n", 4));
  const std::string second = folder.write("second", repeated("{}\n", 8) + GOOD_LINE);
  const Outcome outcome = run({first, second});
  std::string messages;
  for (int i = 0; i < 10; ++i) {
    const std::string place =
        i < 4 ? first + ":" + std::to_string(i + 2) : second + ":" + std::to_string(i - 3);
    messages += "vond-report: error: " + place +
                ":1: the key \"id\" is missing, expected it in every finding\n";
  }
  EXPECT_EQ(outcome.errors,
            messages + "vond-report: error: and 2 more lines that cannot be used\n");
  EXPECT_TRUE(tells(outcome, "  12 lines of input were left out:\n"));
  EXPECT_TRUE(tells(outcome, "    and 7 more\n"));
  EXPECT_TRUE(tells(outcome, "Verdict: UNKNOWN: 12 lines of input were left out\n"));
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(InputTest, OneMoreLineIsToldInTheSingular) {
  const std::string errors = Command({}).input(GOOD_LINE + repeated("{}\n", 11)).run().errors;
  EXPECT_EQ(last_line(errors), "vond-report: error: and 1 more line that cannot be used\n");
}

TEST_F(InputTest, StrictReadingOfGoodLinesChangesNothing) {
  const Outcome outcome = Command({"--strict"}).input(GOOD_LINE).run();
  EXPECT_EQ(outcome.output, Command({}).input(GOOD_LINE).run().output);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(InputTest, AReportThatIsNotCompleteIsWorseThanALineLeftOut) {
  const Outcome outcome =
      Command({}).input(std::string(GOOD_LINE) + "{}\n").output_file("/dev/full").run();
  EXPECT_EQ(outcome.status, 3);
}

TEST_F(InputTest, InputWithoutOneLineThatCanBeUsedGivesNoReport) {
  expect_useless("{}\n", "its one line cannot be used");
  expect_useless("\n{}\n \nbad\n", "none of its 2 lines can be used");
  EXPECT_EQ(Command({}).input("bad\n").run().errors,
            "vond-report: error: <stdin>:1:1: found \"bad\", expected a JSON value\n"
            "vond-report: error: <stdin>: its one line cannot be used\n");
}

TEST_F(InputTest, BlankLinesAreNoReasonToRefuseAnInput) {
  EXPECT_EQ(Command({}).input("\n \t\r\n").run().errors, "");
  EXPECT_EQ(Command({}).input("\n \t\r\n").run().status, Command({}).run().status);
}

TEST_F(InputTest, ALineAboutExaminedNodesIsOneThatCanBeUsed) {
  const Outcome outcome = Command({}).input("{}\n{\"examined\": \"n1\"}\n").run();
  EXPECT_TRUE(tells(outcome, "1 line of input was left out"));
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(InputTest, TwoInputsWithoutOneLineThatCanBeUsedAreBothNamed) {
  const std::string array = folder.write("array", "[{}]");
  const std::string csv = folder.write("csv", "id,severity\na,1\n");
  const Outcome outcome = run({array, csv});
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_NE(outcome.errors.find("error: " + array +
                                ": its one line cannot be used; it seems to be "
                                "a JSON array: jq -c '.[]' " +
                                array + " | vond-report\n"),
            std::string::npos);
  EXPECT_EQ(last_line(outcome.errors), "vond-report: error: " + csv +
                                           ": none of its 2 lines can be used; it seems to be CSV, "
                                           "expected a JSON object a line\n");
}

TEST_F(InputTest, WhatAUselessInputSeemsToBeIsTold) {
  const std::string path = folder.path() + "/useless";
  expect_useless("[\n  {\"id\": \"a\"}\n]\n",
                 "none of its 3 lines can be used; it seems to be a JSON array: jq -c '.[]' " +
                     path + " | vond-report");
  expect_useless(
      "{\n  \"id\": \"a\"\n}\n",
      "none of its 3 lines can be used; it seems to be JSON over several lines: jq -c . " + path +
          " | vond-report");
  expect_useless(R"({"definitions": [{"name": "a"}]})",
                 "its one line cannot be used; it seems to be a file of definitions: vond-report "
                 "-d " +
                     path + " FINDINGS");
  expect_useless("\xFF\xFE{",
                 "its one line cannot be used; it seems to be UTF-16: iconv -t UTF-8 -f UTF-16 " +
                     path + " | vond-report");
  expect_useless("\x1F\x8B\x08 compressed",
                 "its one line cannot be used; it seems to be compressed with gzip: zcat " + path +
                     " | vond-report");
}

TEST_F(InputTest, WarningsStandInTheReportToo) {
  const std::string line = "{\"id\": \"a\", \"severity\": 1, \"node\": \"n1\"}\n";
  const Outcome outcome = Command({"-w", "0"}).input(line).run();
  const std::string warning =
      "<stdin>:1:28: unknown key \"node\" is ignored (once); did you mean \"nodes\"?\n";
  EXPECT_EQ(outcome.errors, "vond-report: warning: " + warning);
  EXPECT_TRUE(tells(outcome, "  1 warning:\n    " + warning));
}

TEST_F(InputTest, BytesThatAreNotUtf8AreShownAndWarnedOfOnceAnInput) {
  const std::string line = "{\"id\": \"caf\xE9\", \"severity\": 1, \"nodes\": \"n1\"}\n";
  const std::string first = folder.write("first", line + line);
  const std::string second = folder.write("second", line);
  const Outcome outcome = run({first, second});
  const std::string warning = ":1:12: found bytes that are not UTF-8, which are shown as \\xe9 ";
  EXPECT_EQ(outcome.errors, "vond-report: warning: " + first + warning + "(2 lines)\n" +
                                "vond-report: warning: " + second + warning + "(1 line)\n");
  EXPECT_TRUE(tells(outcome, "1. caf\\xe9 (appears on 1 node)\n"));
  EXPECT_TRUE(tells(outcome, "  Findings read: 3, no line left out"));
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(InputTest, NoncharactersAreShown) {
  const Outcome outcome =
      Command({}).input("{\"id\": \"a\xEF\xBF\xBE\\uffff\", \"severity\": 1}\n").run();
  EXPECT_TRUE(tells(outcome, "1. a\\ufffe\\uffff "));
}

TEST_F(InputTest, NullIsNoValueForAKeyThatMayBeMissing) {
  const std::string start = "{\"id\": \"good\", \"severity\": 10";
  const Outcome outcome = Command({})
                              .input(start +
                                     ", \"message\": null, \"nodes\": null, \"row_ids\": null, "
                                     "\"type\": null, \"definitions\": null}\n")
                              .run();
  EXPECT_EQ(outcome.output, Command({}).input(start + "}\n").run().output);
  EXPECT_EQ(outcome.errors, "");
  expect_bad_findings(start + ", \"nodes\": [null]}\n",
                      ":1:42: nodes[0] is null, expected the name of a node or a set of nodes");
}

TEST_F(InputTest, WhiteSpaceAndLineEndsAtTheEndsOfTextsMakeNoOtherIssue) {
  const Outcome outcome =
      Command({})
          .input(
              "{\"id\": \"a\", \"severity\": 10, \"message\": \"two lines\", \"nodes\": \"n1\"}\n"
              "{\"id\": \" a\\n\", \"severity\": 10, \"message\": \"two\\nlines\\n\", "
              "\"nodes\": \"n2\\n\"}\n")
          .run();
  EXPECT_TRUE(
      tells(outcome, "1. a (appears on 2 nodes)\n   Message: two lines\n   Nodes: n[1-2]\n"));
}

TEST_F(InputTest, LabelsOfClushAndPdshAreNodes) {
  const Outcome outcome = Command({})
                              .input(
                                  "cn001: {\"id\": \"a\", \"severity\": 10}\n"
                                  "cn[002-003]: {\"id\": \"a\", \"severity\": 10}\n"
                                  "cn004: {\"id\": \"a\", \"severity\": 10, \"nodes\": \"m1\"}\n"
                                  "cn005: {\"examined\": true}\n"
                                  "cn006: {\"id\": \"a\"}\n"
                                  "cn007: bash: check-node: command not found\n")
                              .run();
  EXPECT_TRUE(tells(outcome, "   Nodes: cn[001-003],m1\n"));
  EXPECT_TRUE(tells(outcome, "  Nodes:    1 examined, 4 with issues\n"));
  EXPECT_EQ(
      outcome.errors,
      "vond-report: error: <stdin>:5:8: cn006: the key \"severity\" is missing, expected it in "
      "every finding\n"
      "vond-report: error: <stdin>:6:1: found \"cn007\", expected a JSON value\n");
}

TEST_F(InputTest, BlanksSeparateNodesInOneTextAndInOptions) {
  const Outcome outcome = Command({"--expect", "n1 n2\nn[3-4], n5", "--examined", "n1 n2,'n 3'"})
                              .input(
                                  "{\"id\": \"a\", \"severity\": 10, \"nodes\": \"n1 n2 'n 3'\"}\n"
                                  "{\"id\": \"b\", \"severity\": 10, \"nodes\": [\"n 3\"]}\n")
                              .run();
  EXPECT_TRUE(tells(outcome, "  Nodes:    3 examined, 3 with issues, 5 expected\n"));
  EXPECT_TRUE(tells(outcome, "   Nodes: n[1-2],'n 3'\n"));
  EXPECT_TRUE(tells(outcome, "   Nodes: 'n 3'\n"));
}

TEST_F(InputTest, TheStatusIsTheVerdicts) {
  EXPECT_EQ(Command({}).run().status, 1);
  EXPECT_EQ(Command({}).input(GOOD_LINE).run().status, 0);
  EXPECT_EQ(Command({"--expect", "silent"}).input(GOOD_LINE).run().status, 1);
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
