// What is acknowledged: taken out of the report, told in its summary, never hidden.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"
#include "tests/standalone/support/random_acknowledgements.h"

namespace vond::test {
namespace {

constexpr char FINDINGS[] =
    "{\"examined\": \"n[1-4]\"}\n"
    "{\"id\": \"disk\", \"severity\": 80, \"nodes\": \"n[1-2]\", \"definitions\": [\"a/b\"]}\n"
    "{\"id\": \"fan\", \"severity\": 20, \"nodes\": \"n1\", \"definitions\": [\"a/c\"]}\n";

constexpr char KNOWN[] =
    "{\"id\": \"disk\", \"nodes\": \"n[1-2]\", \"until\": \"2026-01-31\", \"reason\": \"RMA\"}\n";

class AcknowledgedTest : public testing::Test {
 protected:
  AcknowledgedTest() {
    folder.write("findings", FINDINGS);
    folder.write("known", KNOWN);
  }

  Outcome report(std::vector<std::string> arguments) const {
    arguments.insert(arguments.end(), {"--acknowledged", "known", "findings"});
    return Command(std::move(arguments)).in_folder(folder.path()).run();
  }

  /// Expects that a file of this text is refused before anything is written.
  void expect_refused(const std::string& text, const std::string& message) const {
    folder.write("known", text);
    expect_error(report({"-o", "out"}), 2, message);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"findings", "known"}));
  }

  /// Returns the report on findings that come when what is acknowledged has ended meanwhile, with
  /// further outputs in the files `json` and `earlier`.
  Outcome report_while_it_ends() const {
    const std::string script = R"sh(
until=$(date -u -d '+1 second' +%Y-%m-%dT%H:%M:%SZ)
echo '{"id": "disk", "nodes": "n[1-2]", "until": "'"$until"'", "reason": "RMA"}' > known
{ sleep 2.5; cat findings; } |
  "$0" --acknowledged known -e brief -e json:json -e findings:earlier
)sh";
    return Command({"-c", script, VOND_REPORT})
        .program("/bin/sh")
        .without_environment("SOURCE_DATE_EPOCH")
        .in_folder(folder.path())
        .run();
  }

  TemporaryFolder folder;
};

TEST_F(AcknowledgedTest, DoesNotFailAndIsToldInTheSummary) {
  const Outcome outcome = report({});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_NE(outcome.output.find("  CRITICAL: none\n"), std::string::npos) << outcome.output;
  EXPECT_NE(outcome.output.find("  Acknowledged: 1 issue on 2 nodes\n"
                                "    disk on n[1-2] until 2026-01-31: RMA\n"),
            std::string::npos)
      << outcome.output;
  EXPECT_EQ(outcome.output.find("a/b"), std::string::npos);
}

TEST_F(AcknowledgedTest, OnANewNodeFailsAsEver) {
  folder.write("known", R"({"id": "disk", "nodes": "n2", "until": "2026-01-31", "reason": "r"})");
  const Outcome outcome = report({});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.output.find("  Verdict: FAIL, 1 node with CRITICAL issues\n    n1\n"),
            std::string::npos)
      << outcome.output;
}

TEST_F(AcknowledgedTest, AboveItsBandFailsAsEver) {
  folder.write("known", R"({"id": "disk", "nodes": "*", "until": "2026-01-31", "reason": "r", )"
                        R"("up_to": "warning"})");
  EXPECT_EQ(report({}).status, 1);
}

TEST_F(AcknowledgedTest, UntilATimeThatPassesWhileFindingsAreCollectedHoldsForTheWholeReport) {
  const Outcome outcome = report_while_it_ends();
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_NE(outcome.output.find("  Acknowledged: 1 issue on 2 nodes\n"
                                "    ended meanwhile: disk on n[1-2] until "),
            std::string::npos)
      << outcome.output;
  EXPECT_NE(read_file(folder / "json").find("\"state\": \"active\""), std::string::npos);
}

TEST_F(AcknowledgedTest, UntilATimeThatPassedWhileFindingsWereCollectedIsNewsToTheNextReport) {
  report_while_it_ends();
  const Outcome outcome = Command({"--since", "earlier", "--fail-on", "new", "--acknowledged",
                                   "known", "-e", "brief", "findings"})
                              .without_environment("SOURCE_DATE_EPOCH")
                              .in_folder(folder.path())
                              .run();
  EXPECT_EQ(outcome.status, 1) << outcome.errors;
  EXPECT_NE(outcome.output.find("  Expired and back: 1\n"), std::string::npos) << outcome.output;
  EXPECT_NE(outcome.output.find("1 new, 0 worse, 1 same"), std::string::npos) << outcome.output;
}

TEST_F(AcknowledgedTest, MayBeIgnored) {
  folder.write("known", std::string(KNOWN) + "{\"id\": 1}\n");
  const Outcome outcome = report({"--ignore-acknowledged"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors, "vond-report: warning: known:2:8: id is 1, expected a string\n");
  EXPECT_NE(outcome.output.find("  1 warning:\n    known:2:8: id is 1, expected a string\n"),
            std::string::npos)
      << outcome.output;
  EXPECT_NE(outcome.output.find("  Acknowledgements: ignored (--ignore-acknowledged)\n"),
            std::string::npos);
}

TEST_F(AcknowledgedTest, ErrorsEndBeforeAnythingIsWritten) {
  expect_refused(std::string(KNOWN) + "{\"id\": 1}\n", "known:2:8: id is 1, expected a string");
  expect_refused(R"({"id": "a", "nodes": "*", "until": "2026-02-20", "reason": "r"})",
                 "known:1:36: until is \"2026-02-20\", expected at most 90 days ahead of the "
                 "report's time");
}

TEST_F(AcknowledgedTest, AFileThatCannotBeReadIsAnErrorInAnyCase) {
  const std::string message =
      "gone: cannot be opened (No such file or directory), expected a file of acknowledgements";
  const std::string findings = folder / "findings";
  const auto run_here = [this](const std::vector<std::string>& arguments) {
    return Command(arguments).in_folder(folder.path()).run();
  };
  expect_error(run_here({"--acknowledged", "gone", findings}), 2, message);
  expect_error(run_here({"--acknowledged", "gone", "--ignore-acknowledged", findings}), 2, message);
}

TEST_F(AcknowledgedTest, MayReachFurtherAheadWhenTheUserSaysSo) {
  folder.write("known", R"({"id": "disk", "nodes": "*", "until": "2026-11-21", "reason": "r"})");
  EXPECT_EQ(report({}).status, 2);
  EXPECT_EQ(report({"--acknowledge-at-most", "365"}).status, 0);
  EXPECT_EQ(report({"--acknowledge-at-most", "364"}).status, 2);
}

TEST_F(AcknowledgedTest, AnEmptyFileChangesNothing) {
  folder.write("known", "");
  EXPECT_EQ(report({}).output, Command({"findings"}).in_folder(folder.path()).run().output);
}

TEST_F(AcknowledgedTest, MayComeFromStandardInput) {
  const Outcome outcome =
      Command({"--acknowledged", "-", "findings"}).input(KNOWN).in_folder(folder.path()).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, report({}).output);
}

TEST_F(AcknowledgedTest, OnStandardInputThatSomethingElseNeedsIsAUsageError) {
  const std::string message =
      " is \"-\", but standard input is read by something else, too; see vond-report --help";
  expect_error(run({"--acknowledged", "-"}), 2, "--acknowledged" + message);
  expect_error(run({"--acknowledged", "-", "--expect-file", "-", folder / "findings"}), 2,
               "--expect-file" + message);
}

TEST_F(AcknowledgedTest, OptionsOfTheFileNeedIt) {
  const std::string message = " is given without --acknowledged FILE; see vond-report --help";
  expect_error(run({"--ignore-acknowledged", "x"}), 2, "--ignore-acknowledged" + message);
  expect_error(run({"--acknowledge-at-most", "9", "x"}), 2, "--acknowledge-at-most" + message);
}

TEST_F(AcknowledgedTest, DaysAreAWholeNumber) {
  for (const std::string days : {"-1", "3651", "1.5", "x", "99999999999"}) {
    expect_error(report({"--acknowledge-at-most", days}), 2,
                 "--acknowledge-at-most is \"" + days +
                     "\", expected a number of days from 0 to 3650; see vond-report --help");
  }
  expect_error(report({"--acknowledged", ""}), 2,
               "--acknowledged is given 2 times, expected it once; see vond-report --help");
  expect_error(run({"--acknowledged", "", "x"}), 2,
               "--acknowledged is \"\", expected the name of a file; see vond-report --help");
}

TEST_F(AcknowledgedTest, FileIsNeverReplacedByTheReport) {
  expect_error(report({"-o", "known"}), 2,
               "--output is \"known\", which is an input, too; see vond-report --help");
  EXPECT_EQ(read_file(folder / "known"), KNOWN);
}

TEST_F(AcknowledgedTest, IsInTheJsonReport) {
  const std::string text = report({"-e", "json"}).output;
  EXPECT_NE(text.find("\"acknowledged\": [\n"
                      "{\"id\": \"disk\", \"nodes\": [\"n1\", \"n2\"], "
                      "\"until\": \"2026-01-31T23:59:59Z\", \"reason\": \"RMA\", \"by\": null, "
                      "\"state\": \"active\"}],\n"),
            std::string::npos)
      << text;
}

TEST_F(AcknowledgedTest, IsAMetric) {
  EXPECT_NE(report({"-e", "metrics"}).output.find("\nvond_issues_acknowledged 1\n"),
            std::string::npos);
  EXPECT_EQ(report({"-e", "metrics", "--ignore-acknowledged"}).output.find("acknowledged"),
            std::string::npos);
}

TEST_F(AcknowledgedTest, IsWrittenAsAFindingLikeAnyOther) {
  for (const std::string collapse : {"pattern", "text", "id"}) {
    const Outcome all = Command({"-e", "findings", "--collapse", collapse, "findings"})
                            .in_folder(folder.path())
                            .run();
    EXPECT_EQ(report({"-e", "findings", "--collapse", collapse}).output, all.output);
  }
}

// ---- Property ----------------------------------------------------------------------------------

/// Returns the report from its first rule behind the summary, and of JSON what does not tell of
/// inputs and acknowledgements.
std::string sections_of(const std::string& report) {
  if (report.substr(0, 1) != "{") {
    return report.substr(report.find(std::string(80, '-'), report.find("Summary\n")));
  }
  const std::size_t inputs = report.find("\"inputs\": ");
  const std::size_t nodes = report.find("\"nodes\": ", inputs);
  return report.substr(0, inputs) + report.substr(nodes, report.find("\"since\": ") - nodes);
}

TEST_F(AcknowledgedTest, LeavesTheReportOfTheOtherFindings) {
  for (unsigned seed = 1000; seed < 1020; ++seed) {
    const RandomAcknowledgements random(seed);
    folder.write("findings", random.input());
    folder.write("known", random.acknowledgements());
    folder.write("left", random.input_without_acknowledged());
    for (const std::string collapse : {"pattern", "text", "id"}) {
      for (const std::string output : {"text", "json", "list"}) {
        const std::vector<std::string> options = {"--collapse", collapse,   "-e",
                                                  output,       "--expect", "n[1-3]"};
        std::vector<std::string> arguments = options;
        arguments.emplace_back("left");
        const Outcome left = Command(arguments).in_folder(folder.path()).run();
        const Outcome outcome = report(options);
        EXPECT_EQ(outcome.status, left.status);
        ASSERT_EQ(output == "list" ? outcome.output : sections_of(outcome.output),
                  output == "list" ? left.output : sections_of(left.output))
            << random.input() << random.acknowledgements();
      }
    }
  }
}

}  // namespace
}  // namespace vond::test
