// Findings that were collapsed before, in parts of the cluster: whole, or a doubt.
#include <gtest/gtest.h>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

std::string begin(const std::string& part, const std::string& written = "2025-11-21T04:20:00Z") {
  return R"({"begin": {"format": 1, "written": ")" + written + R"(", "parts": [")" + part +
         "\"]}}\n";
}

std::string counted(const std::string& id, int count) {
  return R"({"id": ")" + id + R"(", "severity": 10, "nodes": [], "count": )" +
         std::to_string(count) + "}\n";
}

std::string end(int findings, int lines_rejected = 0, bool complete = true) {
  return R"({"end": {"findings": )" + std::to_string(findings) +
         R"(, "examined": null, "lines_rejected": )" + std::to_string(lines_rejected) +
         R"(, "complete": )" + (complete ? "true" : "false") + "}}\n";
}

class PartsTest : public ::testing::Test {
 protected:
  /// Expects a report with the verdict and the lines.
  static void expect_report(const std::string& input, const std::string& verdict,
                            const std::vector<std::string>& lines,
                            std::vector<std::string> arguments = {}) {
    const Outcome outcome = Command(std::move(arguments)).input(input).run();
    EXPECT_EQ(outcome.status, verdict.starts_with("PASS") ? 0 : 1) << outcome.errors;
    EXPECT_NE(outcome.output.find("  Verdict: " + verdict + "\n"), std::string::npos)
        << outcome.output;
    for (const std::string& line : lines) {
      EXPECT_NE(outcome.output.find("  " + line + "\n"), std::string::npos) << line << "\n"
                                                                            << outcome.output;
    }
  }
};

TEST_F(PartsTest, OfAWholeInputAreFindingsLikeOthers) {
  expect_report(begin("r1") + counted("a", 41) + counted("b", 1) + end(42), "PASS",
                {"Findings read: 42, no line left out, every name known"});
}

TEST_F(PartsTest, MayStandInOneInputInAnyOrderOfTheirLines) {
  expect_report(begin("r1") + begin("r2") + counted("a", 2) + end(1) + counted("b", 1) + end(2),
                "PASS", {"Findings read: 3, no line left out, every name known"});
}

TEST_F(PartsTest, ThatAreCollectedWhileTheReportWaitsForThemAreNotFromTheFuture) {
  const std::string collect = R"sh({
sleep 1.2
echo '{"begin": {"format": 1, "written": "'"$(date -u +%Y-%m-%dT%H:%M:%SZ)"'"}}'
echo '{"examined": "n1"}'
echo '{"end": {"findings": 0, "complete": true}}'
})sh";
  const Outcome outcome = Command({"-c", collect + " | " + VOND_REPORT})
                              .program("/bin/sh")
                              .without_environment("SOURCE_DATE_EPOCH")
                              .run();
  EXPECT_NE(outcome.output.find("  Nodes:    1 examined"), std::string::npos) << outcome.errors;
  EXPECT_EQ(outcome.output.find("future"), std::string::npos) << outcome.output;
}

TEST_F(PartsTest, ThatLackTheirEndAreADoubt) {
  expect_report(begin("r1") + counted("a", 1), "UNKNOWN: 1 input is cut off",
                {"1 input is cut off, its findings are not complete: standard input"});
}

TEST_F(PartsTest, ThatLackFindingsAreADoubt) {
  expect_report(begin("r1") + counted("a", 1) + end(2), "UNKNOWN: 1 input is cut off", {});
}

TEST_F(PartsTest, ThatLackExaminedNodesAreADoubt) {
  const std::string last =
      R"({"end": {"findings": 0, "examined": 2, "lines_rejected": 0, "complete": true}})";
  expect_report(begin("r1") + R"({"examined": "n1"})" + "\n" + last, "UNKNOWN: 1 input is cut off",
                {});
  expect_report(begin("r1") + R"({"examined": "n[1-2]"})" + "\n" + last,
                "PASS, 2 nodes were examined", {});
}

TEST_F(PartsTest, OfFindingsWithAndWithoutNodesStayBoth) {
  const TemporaryFolder folder;
  const std::string known = folder.write(
      "known", R"({"id": "fan", "nodes": "cn1", "until": "2025-12-01", "reason": "r"})");
  const std::string findings =
      R"({"id": "fan", "severity": 90, "message": "Fan down.", "nodes": "cn1"})"
      "\n"
      R"({"id": "fan", "severity": 90, "message": "Fan down."})"
      "\n"
      R"({"examined": "cn1"})";
  const Outcome collapsed = Command({"-e", "findings"}).input(findings).run();
  for (const std::string& input : {findings, collapsed.output}) {
    expect_report(input, "FAIL, CRITICAL issues that name no node", {}, {"--acknowledged", known});
  }
}

TEST_F(PartsTest, NamesThatSetsWouldQuoteStayThemselves) {
  for (const char* const nodes :
       {R"(["-w"])", R"(["-w", "c"])", R"(["-w", "a\"b", "c", "it's"])"}) {
    const std::string findings =
        R"({"id": "a", "severity": 10, "nodes": )" + std::string(nodes) + "}\n";
    const Outcome collapsed = Command({"-e", "findings"}).input(findings).run();
    EXPECT_EQ(Command({"-e", "list"}).input(collapsed.output).run().output,
              Command({"-e", "list"}).input(findings).run().output);
  }
}

TEST_F(PartsTest, ThatWereNotCompleteBeforeAreADoubt) {
  expect_report(begin("r1") + counted("a", 1) + end(1, 0, false), "UNKNOWN: 1 input is cut off",
                {});
}

TEST_F(PartsTest, LinesThatTheyRejectedCountOn) {
  expect_report(begin("r1") + counted("a", 1) + end(1, 3),
                "UNKNOWN: 3 lines of input were left out", {"3 lines of input were left out"});
}

TEST_F(PartsTest, ThatComeTwiceAreADoubt) {
  const std::string part = begin("r1") + counted("a", 1) + end(1);
  expect_report(part + part, "UNKNOWN: 1 part counts double",
                {"1 part came twice, its findings count double: r1"});
}

TEST_F(PartsTest, ThatWereExpectedAndDidNotComeAreADoubt) {
  const std::string part = begin("r1") + counted("a", 1) + end(1);
  expect_report(part, "UNKNOWN: 2 parts are missing",
                {"2 parts were expected and did not come: r2, r3"}, {"--expect-parts", "r[1-3]"});
  expect_report(part, "PASS", {}, {"--expect-parts", "r1"});
}

// ---- Behind further gateways -------------------------------------------------------------------

/// Returns what a gateway hands on of what others have collapsed.
std::string handed_on(const std::string& input, std::vector<std::string> arguments) {
  arguments.insert(arguments.end(), {"-e", "findings", "--part", "row1"});
  return Command(std::move(arguments)).input(input).run().output;
}

TEST_F(PartsTest, ThatDoNotComeToAGatewayAreADoubtBehindIt) {
  const std::string part = begin("r1") + counted("a", 1) + end(1);
  const std::vector<std::string> expects_row = {"--expect-parts", "row1"};
  expect_report(handed_on(part, {"--expect-parts", "r[1-2]"}), "UNKNOWN: 1 input is cut off",
                {"1 input is cut off, its findings are not complete: standard input"}, expects_row);
  expect_report(handed_on(part, {"--expect-parts", "r1"}), "PASS", {}, expects_row);
}

TEST_F(PartsTest, ThatAreDoubtfulAtAGatewayStaySoBehindIt) {
  const std::string part = begin("r1") + counted("a", 1);
  expect_report(handed_on(part, {}), "UNKNOWN: 1 input is cut off", {});
  expect_report(handed_on(part + end(1) + part + end(1), {}), "UNKNOWN: 1 part counts double", {});
  expect_report(handed_on("bad\n" + part + end(1, 3), {}),
                "UNKNOWN: 4 lines of input were left out", {});
}

TEST_F(PartsTest, WhoseNodesDoNotAllAnswerAreWhole) {
  const std::string row =
      handed_on(begin("r1") + "{\"examined\": \"n1\"}\n" + end(0), {"--expect", "n[1-2]"});
  expect_report(row, "PASS, 1 node was examined", {}, {});
  expect_report(row, "UNKNOWN: 1 of 2 expected nodes was not examined", {}, {"--expect", "n[1-2]"});
}

// ------------------------------------------------------------------------------------------------

TEST_F(PartsTest, AreAsOldAsTheOldestOfThem) {
  expect_report(
      begin("r1", "2025-11-19T04:20:00Z") + end(0) + begin("r2") + counted("a", 1) + end(1), "PASS",
      {"Input:    standard input, 2 days old", "1 part is older than a day: r1, 2 days old"});
}

TEST_F(PartsTest, RawFindingsNeedNoEnd) {
  expect_report(R"({"id": "a", "severity": 10})", "PASS", {});
}

TEST_F(PartsTest, AnInputIsJudgedByItself) {
  const TemporaryFolder folder;
  const std::string first = folder.write("first", begin("r1") + counted("a", 1));
  const std::string second = folder.write("second", end(1));
  const Outcome outcome = run({first, second});
  EXPECT_NE(outcome.output.find("UNKNOWN: 2 inputs are cut off"), std::string::npos)
      << outcome.output;
}

}  // namespace
}  // namespace vond::test
