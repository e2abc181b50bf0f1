// What the command line says and how it is understood.
#include <gtest/gtest.h>
#include <unistd.h>

#include <ctime>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

constexpr char SEE_HELP[] = "; see vond-report --help";
constexpr char BANDS[] =
    R"(a whole number from 0 to 100 or one of "informational", "warning", "critical")";

constexpr char HELP[] =
    R"(Reports on the health of a cluster from findings about its nodes.
Usage: vond-report [OPTIONS] [FINDINGS...]

Positionals:
  FINDINGS ...                Files of findings, JSON Lines; "-" or nothing:
                              standard input

Options:
  --version                   Print the version and exit
  -h,--help                   Print this text and exit
  --list-extensions           Print the names of all extensions and exit
  -d,--definitions FILE       Framework definitions, JSON
  -t,--fail-threshold N       Issues of bands that reach up to N contribute
                              to FAIL: 0 to 100, or a band's name for its
                              upper bound (default: 75)
  --fail-on WHAT              With --since: which issues that contribute to
                              FAIL make the exit status 1: any, worse or new
                              (default: any)
  --collapse WHAT             What makes findings one issue: texts that are
                              equal but for numbers and the node's name, equal
                              texts, or an equal id: pattern, text or id
                              (default: pattern)
  --strict                    End at the first line that cannot be used, in
                              place of leaving it out
  --examined NODESET          Nodes that were looked at; may be repeated
  --expect NODESET            Nodes that should have been looked at; may be
                              repeated
  --expect-file FILE          The same from a file: node sets a line, #
                              begins a comment; may be repeated
  --part NAME                 The part of the cluster that the findings come
                              from, for the output "findings"
  --expect-parts SET          Parts of the cluster whose collapsed findings
                              should be there; may be repeated
  --since EARLIER             Findings of an earlier run, to tell what has
                              changed; may be repeated
  --acknowledged FILE         What is known and not to be told until some day,
                              JSON Lines
  --acknowledge-at-most DAYS  How far such a day may lie ahead (default: 90)
  --ignore-acknowledged       Tell what is acknowledged all the same; errors
                              in its file become warnings
  -w,--width N                Columns of the report, 0: no wrapping (default:
                              the terminal's, else COLUMNS, else 80)
  --log-level NAME            Level of error reports; "info" and "debug" show
                              database row ids (default: warning)
  --syslog                    Send messages and the verdict to the system log,
                              too
  --color WHEN                Colours: auto, always or never (default: auto)
  --racks FILE                Which nodes stand together, for the output
                              "html": a rack's name and a node set a line
  -o,--output FILE            A further destination; may be repeated
  -e,--extension NAME[:FILE]  An output extension to run, a name of
                              --list-extensions or a library's path; its output
                              goes to FILE alone; may be repeated (default:
                              text)

Exit status:
  0  report written, PASS
  1  report written, FAIL (see --fail-on) or UNKNOWN
  2  usage or input error, nothing reported
  3  the report could not be completed

)";

class OptionsTest : public ::testing::Test {
 protected:
  /// Expects that `arguments`, with a file of findings behind them, are a usage error.
  void expect_usage_error(std::vector<std::string> arguments, const std::string& message) {
    arguments.push_back(findings);
    expect_error(run(arguments), 2, message + SEE_HELP);
  }

  /// Runs with a file of findings behind `arguments` and expects success.
  std::string report(std::vector<std::string> arguments) {
    arguments.push_back(findings);
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_LE(outcome.status, 1);
    return outcome.output;
  }

  bool passes(const std::vector<std::string>& arguments) {
    return report(arguments).find("  Verdict: PASS\n") != std::string::npos;
  }

  TemporaryFolder folder;
  /// One issue of each of two bands.
  std::string findings = folder.write("findings",
                                      "{\"id\": \"a\", \"severity\": 60, \"row_ids\": [42]}\n"
                                      "{\"id\": \"b\", \"severity\": 10}\n");
};

TEST_F(OptionsTest, HelpIsWrittenToStandardOutput) {
  for (const char* option : {"--help", "-h"}) {
    const Outcome outcome = run({option});
    EXPECT_EQ(outcome.output, HELP);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.status, 0);
  }
}

TEST_F(OptionsTest, HelpFitsATerminalOf80Columns) {
  std::istringstream help(HELP);
  for (std::string line; std::getline(help, line);) {
    EXPECT_LE(line.size(), 79U) << line;
  }
}

TEST_F(OptionsTest, VersionIsWrittenToStandardOutput) {
  const Outcome outcome = run({"--version"});
  EXPECT_EQ(outcome.output, "vond-report " VOND_VERSION "\n");
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(OptionsTest, HelpAndVersionGoBeforeAnythingElseThatIsWrong) {
  EXPECT_EQ(run({"--bogus", "--help"}).status, 0);
  EXPECT_EQ(run({"--version", "no such file"}).status, 0);
}

TEST_F(OptionsTest, AnUnknownOptionIsNamedWithTheOneThatMayBeMeant) {
  expect_usage_error({"--colour", "never"},
                     R"(unknown option "--colour"; did you mean "--color"?)");
  expect_usage_error({"--Width=80"}, R"(unknown option "--Width"; did you mean "--width"?)");
  expect_usage_error({"--def", "x"}, R"(unknown option "--def"; did you mean "--definitions"?)");
  expect_usage_error({"--srict"}, R"(unknown option "--srict"; did you mean "--strict"?)");
  expect_usage_error({"--bogus"}, R"(unknown option "--bogus")");
  expect_usage_error({"-x"}, R"(unknown option "-x")");
}

TEST_F(OptionsTest, AnOptionAtTheEndLacksItsValue) {
  expect_error(run({"-w"}), 2, std::string("--width has no value, expected --width N") + SEE_HELP);
  expect_error(run({"--definitions"}), 2,
               std::string("--definitions has no value, expected --definitions FILE") + SEE_HELP);
  expect_error(run({"-o"}), 2,
               std::string("--output has no value, expected --output FILE") + SEE_HELP);
  expect_error(run({"--expect"}), 2,
               std::string("--expect has no value, expected --expect NODESET") + SEE_HELP);
  expect_error(run({"--expect-file"}), 2,
               std::string("--expect-file has no value, expected --expect-file FILE") + SEE_HELP);
}

TEST_F(OptionsTest, AnOptionWithAnEmptyValueDoesNotTakeTheNextWord) {
  expect_usage_error({"--output="}, R"(--output has no value after "=")");
  expect_usage_error({"--color="}, R"(--color has no value after "=")");
  EXPECT_EQ(read_file(findings).front(), '{');
}

TEST_F(OptionsTest, BehindTwoDashesEverythingIsAFile) {
  expect_error(run({"--", "--output="}), 2,
               "--output=: cannot be opened (No such file or directory), "
               "expected a file of findings");
  expect_error(run({"--", "-w"}), 2,
               "-w: cannot be opened (No such file or directory), expected a file of findings");
  folder.write("--version", "{\"examined\": \"n1\"}\n");
  EXPECT_EQ(Command({"--", "--version"}).in_folder(folder.path()).run().status, 0);
}

TEST_F(OptionsTest, AnOptionForOneValueIsNotRepeated) {
  expect_usage_error({"-w", "80", "--width=90"}, "--width is given 2 times, expected it once");
  expect_usage_error({"-d", "a", "-d", "b"}, "--definitions is given 2 times, expected it once");
  expect_usage_error({"--color", "auto", "--color", "auto", "--color", "auto"},
                     "--color is given 3 times, expected it once");
  expect_usage_error({"-t", "1", "-t", "2"}, "--fail-threshold is given 2 times, expected it once");
  expect_usage_error({"--log-level", "info", "--log-level", "info"},
                     "--log-level is given 2 times, expected it once");
  expect_usage_error({"--collapse", "id", "--collapse", "id"},
                     "--collapse is given 2 times, expected it once");
}

TEST_F(OptionsTest, AFlagMayBeRepeatedAndTakesNoValue) {
  EXPECT_EQ(report({"--strict", "--strict"}), report({}));
  EXPECT_EQ(report({"--syslog", "--syslog"}), report({}));
  expect_usage_error({"--strict=banana"}, "--strict takes no value");
  expect_usage_error({"--syslog=3"}, "--syslog takes no value");
}

TEST_F(OptionsTest, AnEmptyFileNameIsAUsageError) {
  expect_usage_error({"-d", ""}, R"(--definitions is "", expected the name of a file)");
  expect_usage_error({"-o", ""}, R"(--output is "", expected the name of a file)");
  expect_usage_error({"-e", ""},
                     "--extension is \"\", expected the name of an extension or the "
                     "path of its library");
  expect_usage_error({""}, R"(FINDINGS is "", expected the name of a file)");
}

TEST_F(OptionsTest, OptionsThatMayBeRepeatedDoNotTakeTheOperands) {
  EXPECT_EQ(report({"-o", folder / "one"}), report({}));
  EXPECT_EQ(report({"--output", folder / "one", "-o", folder / "two"}), report({}));
  EXPECT_EQ(folder.names(), (std::vector<std::string>{"findings", "one", "two"}));
  EXPECT_EQ(report({"-e", PRINTS_A_LINE_PATH}), "all is well\n");
  EXPECT_NE(report({"--examined", "n1"}).find("1 examined"), std::string::npos);
  EXPECT_EQ(run({"--expect", "n1", findings}).output.find("standard input"), std::string::npos);
}

TEST_F(OptionsTest, OperandsMayStandAmongOptions) {
  const Outcome outcome = run({findings, "-w", "80", findings, "-t", "100"});
  EXPECT_NE(outcome.output.find("  Findings read: 4,"), std::string::npos);
}

TEST_F(OptionsTest, TheThresholdIsANumberOrABand) {
  EXPECT_TRUE(passes({}));
  EXPECT_TRUE(passes({"-t", "100"}));
  EXPECT_FALSE(passes({"-t", "0"}));
  EXPECT_FALSE(passes({"--fail-threshold", "warning"}));
  EXPECT_FALSE(passes({"--fail-threshold=informational"}));
  EXPECT_TRUE(passes({"-t", "critical"}));
  EXPECT_EQ(report({"-twarning"}), report({"-t", "warning"}));
}

TEST_F(OptionsTest, AThresholdThatIsNoneIsAUsageError) {
  for (const std::string text : {"101", "-1", "", "50.5", "1e1", "+5", " 5", "5x", "0x10"}) {
    expect_usage_error({"--fail-threshold", text},
                       "--fail-threshold is \"" + text + "\", expected " + BANDS);
  }
  expect_usage_error({"-t", "critcal"}, std::string("--fail-threshold is \"critcal\", expected ") +
                                            BANDS + "; did you mean \"critical\"?");
}

TEST_F(OptionsTest, AWidthThatIsNoneIsAUsageError) {
  for (const std::string text : {"x", "-5", "", "80.0", "+80", "9999999999", "=80"}) {
    expect_usage_error(
        {"--width", text},
        "--width is \"" + text + "\", expected a number of columns, 0 for no wrapping");
  }
}

TEST_F(OptionsTest, AnyWidthIsGood) {
  EXPECT_EQ(report({"-w40"}), report({"--width=40"}));
  for (const char* width : {"0", "1", "2", "999999999"}) {
    EXPECT_NE(report({"-w", width}), "");
  }
}

TEST_F(OptionsTest, AModeThatIsNoneIsAUsageError) {
  expect_usage_error({"--color", "alway"},
                     R"(--color is "alway", expected one of "always", "auto", "never"; )"
                     R"(did you mean "always"?)");
  expect_usage_error({"--collapse", "severity"},
                     R"(--collapse is "severity", expected one of "id", "pattern", "text")");
}

TEST_F(OptionsTest, LogLevelsAreThoseOfTheTable) {
  for (const char* level : {"alert", "critical", "error", "warning", "notice", "info", "debug"}) {
    const bool has_row_ids =
        report({"--log-level", level}).find("Database Row IDs: 42\n") != std::string::npos;
    EXPECT_EQ(has_row_ids, std::string(level) == "info" || std::string(level) == "debug") << level;
  }
  const std::string expected =
      R"(", expected one of "alert", "critical", "debug", "error", "info", "notice", "warning")";
  expect_usage_error({"--log-level", "inf"},
                     R"(--log-level is "inf)" + expected + R"(; did you mean "info"?)");
  expect_usage_error({"--log-level", "7"}, R"(--log-level is "7)" + expected);
}

TEST_F(OptionsTest, TheSystemLogTakesErrorReportsAndLeavesTheReportAlone) {
  EXPECT_EQ(report({"--syslog"}), report({}));
}

TEST_F(OptionsTest, NodeSetsThatAreMalformedAreUsageErrors) {
  expect_usage_error({"--examined", "n[1-"},
                     R"(--examined is "n[1-": found the end of the node set, expected a number)");
  expect_usage_error({"--expect", ""},
                     R"(--expect is "": found the end of the node set, expected a node name)");
}

TEST_F(OptionsTest, GroupsAreUsageErrorsWithAHint) {
  const std::string fault =
      "found \"@\", expected a name without it, or one in single quotes; the nodes of a group: ";
  expect_usage_error({"--expect", "n1,@compute"},
                     "--expect is \"n1,@compute\": " + fault + "$(nodeset -f @compute)");
  expect_usage_error({"--examined", "@rack[1-2]"},
                     "--examined is \"@rack[1-2]\": " + fault + "$(nodeset -f @group)");
}

TEST_F(OptionsTest, TheClockIsSourceDateEpochs) {
  EXPECT_NE(report({}).find("  Written:  2025-11-21 04:30:00 UTC\n"), std::string::npos);
  const Outcome first = Command({findings}).environment("SOURCE_DATE_EPOCH", "0").run();
  EXPECT_NE(first.output.find("  Written:  1970-01-01 00:00:00 UTC\n"), std::string::npos);
}

/// Returns the time as reports write it; later ones compare as greater.
std::string time_now() {
  const std::time_t now = std::time(nullptr);
  std::tm utc{};
  gmtime_r(&now, &utc);
  char text[64];
  return {text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S UTC", &utc)};
}

std::string time_written(const std::string& report) {
  const std::string label = "  Written:  ";
  const std::size_t start = report.find(label) + label.size();
  return report.substr(start, report.find('\n', start) - start);
}

TEST_F(OptionsTest, WithoutSourceDateEpochTheClockIsNow) {
  Command unset({findings});
  unset.without_environment("SOURCE_DATE_EPOCH");
  Command empty({findings});
  empty.environment("SOURCE_DATE_EPOCH", "");
  for (Command* command : {&unset, &empty}) {
    const std::string before = time_now();
    const std::string written = time_written(command->run().output);
    EXPECT_LE(before, written);
    EXPECT_LE(written, time_now());
  }
}

TEST_F(OptionsTest, ASourceDateEpochThatIsNoTimeIsAUsageError) {
  for (const std::string text :
       {"now", "-1", " 1", "1 ", "1.5", "0x1", "253402300800", "99999999999999999999"}) {
    expect_error(Command({findings}).environment("SOURCE_DATE_EPOCH", text).run(), 2,
                 "SOURCE_DATE_EPOCH is \"" + text +
                     "\", expected seconds since 1970 as a whole number" + SEE_HELP);
  }
}

TEST_F(OptionsTest, WhatIsNamedInAUsageErrorIsMadeHarmless) {
  expect_usage_error({"--\033[31m"}, R"(unknown option "--\x1b[31m")");
  expect_usage_error({"-w", "\033[31m"},
                     R"(--width is "\x1b[31m", expected a number of columns, 0 for no wrapping)");
}

}  // namespace
}  // namespace vond::test
