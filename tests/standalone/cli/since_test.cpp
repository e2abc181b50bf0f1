// What has changed since earlier runs.
#include <gtest/gtest.h>

#include <sstream>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/random_findings.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

using Arguments = std::vector<std::string>;

constexpr std::time_t REPORT_TIME = 1763699400;
constexpr std::time_t HOUR = std::time_t{60} * 60;

std::string finding(const std::string& id, const std::string& nodes, int severity = 80,
                    const std::string& message = "m") {
  return R"({"id": ")" + id + R"(", "severity": )" + std::to_string(severity) + R"(, "nodes": ")" +
         nodes + R"(", "message": ")" + message + "\"}\n";
}

std::string examined(const std::string& nodes) { return R"({"examined": ")" + nodes + "\"}\n"; }

class SinceTest : public ::testing::TestWithParam<const char*> {
 protected:
  /// Writes the findings of a run that was so long before the report.
  std::string earlier(const std::string& findings, std::time_t age = 6 * HOUR) {
    std::string path =
        folder.write("earlier" + std::to_string(++runs_written) + ".jsonl", findings);
    set_last_change(path, REPORT_TIME - age);
    return path;
  }

  Outcome report(const std::string& findings, const Arguments& earlier_runs,
                 Arguments arguments = {}) {
    const Arguments common = {"-e", "brief", "--collapse", GetParam(), "-w", "100"};
    arguments.insert(arguments.end(), common.begin(), common.end());
    for (const std::string& run : earlier_runs) {
      arguments.insert(arguments.end(), {"--since", run});
    }
    Outcome outcome = Command(arguments).in_folder(folder.path()).input(findings).run();
    EXPECT_EQ(outcome.errors, "");
    return outcome;
  }

  /// Returns the block about what has changed.
  static std::string block_of(const std::string& report) {
    const std::size_t begin = report.find("  Since ");
    const std::size_t end = report.find("\n----", begin);
    return begin == std::string::npos ? "" : report.substr(begin, end + 1 - begin);
  }

  std::string block(const std::string& findings, const Arguments& earlier_runs) {
    return block_of(report(findings, earlier_runs).output);
  }

  TemporaryFolder folder;
  int runs_written = 0;
};

TEST_P(SinceTest, TellsWhatIsNewWorseRewordedBetterAndGone) {
  const std::string before = finding("worse", "cn[1-3]") + finding("reworded", "cn1") +
                             finding("same", "cn1", 50) + finding("better", "cn[1-2]", 50) +
                             finding("gone", "cn[1-2]", 50) + examined("cn[1-9]");
  const std::string now = finding("new", "cn[7-9]") + finding("worse", "cn[2-4]") +
                          finding("reworded", "cn1", 80, "other") + finding("same", "cn1", 50) +
                          finding("better", "cn2", 50) + examined("cn[1-9]");
  EXPECT_EQ(block(now, {earlier(before)}),
            "  Since 2025-11-20 22:30 UTC (6 h): 1 new, 1 worse, 1 reworded, 1 same, 1 better, 1 "
            "gone\n"
            "    new       new, CRITICAL: +cn[7-9]\n"
            "    worse     worse, CRITICAL, for 6 hours: +cn4 -cn1\n"
            "    reworded  reworded, CRITICAL, for 6 hours\n"
            "    gone      gone, WARNING, for 6 hours: -cn[1-2]\n");
}

TEST_P(SinceTest, SaysThatNothingHasChanged) {
  const std::string findings = finding("a", "cn1") + finding("b", "cn[1-2]") + examined("cn[1-2]");
  EXPECT_EQ(block(findings, {earlier(findings)}),
            "  Since 2025-11-20 22:30 UTC (6 h): 0 new, 0 worse, 2 same, 0 better, 0 gone\n");
}

TEST_P(SinceTest, OtherNumbersAreTheSame) {
  EXPECT_EQ(block(finding("a", "cn1", 80, "cn1 at 84C") + examined("cn1"),
                  {earlier(finding("a", "cn1", 78, "cn1 at 91C") + examined("cn1"))}),
            "  Since 2025-11-20 22:30 UTC (6 h): 0 new, 0 worse, 1 same, 0 better, 0 gone\n");
}

TEST_P(SinceTest, OneIdForManyMessagesIsReworded) {
  const std::string before = finding("syslog", "cn1", 80, "disk is full") + examined("cn1");
  const std::string now = finding("syslog", "cn1", 80, "disk is full") +
                          finding("syslog", "cn1", 80, "fan stopped") + examined("cn1");
  EXPECT_NE(block(now, {earlier(before)}).find("1 reworded"), std::string::npos);
}

TEST_P(SinceTest, WhatIsLeftOfAFindingThatNamesOneOfItsNodesIsBetter) {
  const std::string together = finding("a", "cn[1-2]", 80, "cn1 is down");
  const std::string apart =
      finding("a", "cn1", 80, "cn1 is down") + finding("a", "cn2", 80, "cn1 is down");
  const std::string left = finding("a", "cn1", 80, "cn1 is down") + examined("cn[1-2]");
  const std::string better =
      "  Since 2025-11-20 22:30 UTC (6 h): 0 new, 0 worse, 0 same, 1 better, 0 gone\n";
  EXPECT_EQ(block(left, {earlier(together + examined("cn[1-2]"))}), better);
  EXPECT_EQ(block(left, {earlier(apart + examined("cn[1-2]"))}), better);
}

TEST_P(SinceTest, WhatNamesNoNodeIsSeenBesideWhatDoes) {
  const std::string on_node = finding("a", "cn1") + examined("cn1");
  const std::string both = on_node + R"({"id": "a", "severity": 80, "message": "m"})" + "\n";
  const auto counts_since = [&](const std::string& run) {
    const std::string text = block(both, {earlier(run)});
    return text.substr(text.find(": ") + 2, std::string("0 new, 0 worse, 0 same").size());
  };
  EXPECT_EQ(counts_since(both), "0 new, 0 worse, 1 same");
  EXPECT_EQ(counts_since(on_node), "0 new, 1 worse, 0 same");
}

TEST_P(SinceTest, NodesThatWereNotLookedAtDidNotHeal) {
  const std::string before = finding("a", "cn[1-5]") + finding("b", "cn3") + examined("cn[1-5]");
  EXPECT_EQ(block(finding("a", "cn1") + examined("cn[1,5]"), {earlier(before)}),
            "  Since 2025-11-20 22:30 UTC (6 h): 0 new, 0 worse, 0 same, 1 better, 0 gone; 3 nodes "
            "not looked at\n"
            "    not looked at: cn[2-4]\n");
}

TEST_P(SinceTest, WhatNamesNoNodeIsNotLookedAtWhereThereIsADoubt) {
  const std::string before = R"({"id": "a", "severity": 80})"
                             "\n" +
                             examined("cn1");
  EXPECT_EQ(block(examined("cn1"), {earlier(before)}),
            "  Since 2025-11-20 22:30 UTC (6 h): 0 new, 0 worse, 0 same, 0 better, 1 gone\n"
            "    gone      a, CRITICAL, for 6 hours\n");
  EXPECT_EQ(block_of(report(examined("cn1"), {earlier(before)}, {"--expect", "cn[1-2]"}).output),
            "  Since 2025-11-20 22:30 UTC (6 h): 0 new, 0 worse, 0 same, 0 better, 0 gone; 1 not "
            "looked at\n");
}

TEST_P(SinceTest, AtMostFiveLinesAreShownOfAKind) {
  std::string now = examined("cn1");
  for (const char* id : {"a", "b", "c", "d", "e", "f", "g"}) {
    now += finding(id, "cn1");
  }
  EXPECT_EQ(block(now, {earlier(examined("cn1"))}),
            "  Since 2025-11-20 22:30 UTC (6 h): 7 new, 0 worse, 0 same, 0 better, 0 gone\n"
            "    new       a, CRITICAL: +cn1\n"
            "              b, CRITICAL: +cn1\n"
            "              c, CRITICAL: +cn1\n"
            "              d, CRITICAL: +cn1\n"
            "              e, CRITICAL: +cn1\n"
            "              and 2 more\n");
}

TEST_P(SinceTest, ManyNodesAreCutOnEachSide) {
  std::string thirds;
  std::string others;
  for (int node = 1; node < 80; ++node) {
    (node % 3 == 0 ? thirds : others) += ",cn" + std::to_string(node);
  }
  const std::string now = finding("a", "login1" + others) + examined("login1,cn[1-99]");
  const std::string before = finding("a", "login1" + thirds) + examined("login1,cn[1-99]");
  EXPECT_EQ(
      block(now, {earlier(before)}),
      "  Since 2025-11-20 22:30 UTC (6 h): 0 new, 1 worse, 0 same, 0 better, 0 gone\n"
      "    worse     a, CRITICAL, for 6 hours: "
      "+cn[1-2,4-5,7-8,10-11,13-14,16-17,19-20,22-23,25-26,28-29,\n"
      "                31-32,34-35,37-38,40-41,43-44,46-47,49-50,52-53,55-56,58-59,61-62,64-65] "
      "and 9 more\n"
      "                -cn[3,6,9,12,15,18,21,24,27,30,33,36,39,42,45,48,51,54,57,60,63,66,69,"
      "72,75,78]\n");
}

TEST_P(SinceTest, ANodeThatWasDownForANightIsComparedWithTheNightBefore) {
  const std::string monday = earlier(finding("a", "cn[1-2]") + examined("cn[1-2]"), 30 * HOUR);
  const std::string tuesday = earlier(finding("a", "cn1") + examined("cn1"));
  const std::string now = finding("a", "cn[1-2]") + examined("cn[1-2]");
  const std::string same =
      "  Since 2025-11-20 22:30 UTC (6 h): 0 new, 0 worse, 1 same, 0 better, 0 gone\n";
  EXPECT_EQ(block(now, {monday, tuesday}), same);
  EXPECT_EQ(block(now, {tuesday, monday}), same);
  EXPECT_NE(block(now, {tuesday}).find("+cn2"), std::string::npos);
}

TEST_P(SinceTest, RunsOfOneTimeCountTogether) {
  const std::string first = earlier(finding("a", "cn1") + examined("cn1"));
  const std::string second = earlier(examined("cn1"));
  const std::string now = finding("a", "cn1") + examined("cn1");
  EXPECT_EQ(block(now, {first, second}), block(now, {second, first}));
}

TEST_P(SinceTest, TakesTheTimeOfCollapsedFindingsFromThem) {
  const std::string collapsed =
      R"({"begin": {"format": 1, "written": "2025-11-18T04:30:00Z"}})"
      "\n" +
      examined("cn1") +
      R"({"id": "a", "severity": 80, "nodes": "cn1", "message": "m", "count": 1, )"
      R"("first_seen": "2025-11-01T04:30:00Z"})"
      "\n"
      R"({"end": {"findings": 1, "complete": true}})"
      "\n";
  EXPECT_EQ(block(finding("a", "cn[1-2]") + examined("cn[1-2]"), {earlier(collapsed)}),
            "  Since 2025-11-18 04:30 UTC (3 days): 0 new, 1 worse, 0 same, 0 better, 0 gone\n"
            "    worse     a, CRITICAL, for 20 days: +cn2\n");
}

TEST_P(SinceTest, AnEarlierRunThatIsCutOffIsToldAndIsNoDoubt) {
  const std::string cut_off = R"({"begin": {"format": 1, "written": "2025-11-20T22:30:00Z"}})"
                              "\n" +
                              examined("cn1");
  const Outcome outcome = report(examined("cn1"), {earlier(cut_off)});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(block_of(outcome.output),
            "  Since 2025-11-20 22:30 UTC (6 h): 0 new, 0 worse, 0 same, 0 better, 0 gone\n"
            "    " +
                folder / "earlier1.jsonl" + " is cut off\n");
}

TEST_P(SinceTest, TheOrderOfLinesIsIrrelevant) {
  const std::string first = finding("a", "cn1", 80, "p 1") + finding("a", "cn2", 80, "q 2");
  const std::string second = finding("a", "cn2", 80, "q 2") + finding("a", "cn1", 80, "p 1");
  const std::string before = finding("a", "cn[1-3]", 80, "q 7") + examined("cn[1-3]");
  EXPECT_EQ(block(first + examined("cn[1-3]"), {earlier(before)}),
            block(examined("cn[1-3]") + second, {earlier(before)}));
}

TEST_P(SinceTest, TheTimeOfAPipeIsNotKnown) {
  const std::string now = folder.write("now", finding("a", "cn1") + examined("cn1"));
  const Outcome outcome = Command({"-e", "brief", "--since", "-", now, "-w", "100"})
                              .input(finding("a", "cn1") + examined("cn1"))
                              .run();
  EXPECT_EQ(block_of(outcome.output),
            "  Since an earlier run that does not tell when it was: 0 new, 0 worse, 1 same, 0 "
            "better, 0 gone\n");
}

TEST_P(SinceTest, FindingsKeepWhenTheyWereFirstSeen) {
  const std::string monday = finding("a", "cn1") + finding("b", "cn1") + examined("cn[1-2]");
  const std::string tuesday = finding("a", "cn1") + finding("a", "cn2", 80, "other") +
                              finding("b", "cn1") + finding("c", "cn1") + examined("cn[1-2]");
  const Outcome outcome =
      Command({"-e", "findings", "--collapse", GetParam(), "--since", earlier(monday, 24 * HOUR)})
          .input(tuesday)
          .run();
  const std::string on_tuesday = folder.write("tuesday", outcome.output);
  EXPECT_EQ(read_file(on_tuesday).find("first_seen"), outcome.output.find("first_seen"));
  const auto line_of = [&](const std::string& id, const std::string& node) {
    std::istringstream lines(outcome.output);
    for (std::string line; std::getline(lines, line);) {
      if (line.find("\"id\": \"" + id) != std::string::npos &&
          line.find("\"nodes\": \"" + node) != std::string::npos) {
        return line;
      }
    }
    return std::string("none");
  };
  const std::string time = R"("first_seen": "2025-11-20T04:30:00Z")";
  EXPECT_NE(line_of("a", "cn1").find(time), std::string::npos) << "the earlier run's time";
  EXPECT_EQ(line_of("a", "cn2").find("first_seen"), std::string::npos) << "cn2 did not have it";
  EXPECT_EQ(line_of("c", "cn1").find("first_seen"), std::string::npos) << "it is new";
  // Two nights later it is still known.
  const Outcome later = Command({"-e", "findings", "--collapse", GetParam(), "--since", on_tuesday})
                            .input(tuesday)
                            .run();
  EXPECT_NE(later.output.find(time), std::string::npos);
}

TEST_P(SinceTest, NoNodeTakesOverWhenAnotherWasFirstSeen) {
  const std::string monday = finding("a", "cn1") + examined("cn[1-3]");
  const std::string tuesday = finding("a", "cn[1-3]") + examined("cn[1-3]");
  const auto collapsed = [&](const std::string& findings) {
    return Command({"-e", "findings", "--collapse", GetParam(), "--since", earlier(monday)})
        .input(findings)
        .run()
        .output;
  };
  const std::string text = collapsed(tuesday);
  EXPECT_NE(text.find(R"("message": "m", "nodes": "cn[2-3]", "count": 1})"), std::string::npos);
  EXPECT_NE(text.find(R"("first_seen": "2025-11-20T22:30:00Z", "nodes": "cn1", "count": 0})"),
            std::string::npos)
      << text;
  EXPECT_EQ(Command({"-e", "list"}).input(text).run().output,
            Command({"-e", "list"}).input(tuesday).run().output);
  // Each of them on a line of its own would say something of itself.
  const std::string of_all = finding("a", "cn[1-3]", 80, "cn1 is down");
  EXPECT_NE(collapsed(of_all).find(R"(T22:30:00Z", "nodes": "cn[1-3]", "count": 1})"),
            std::string::npos);
}

TEST_P(SinceTest, TheExitStatusMayDependOnWhatIsWorse) {
  const std::string known = finding("a", "cn1") + examined("cn[1-2]");
  const std::string run = earlier(known);
  const auto status = [&](const std::string& findings, const std::string& fail_on,
                          Arguments arguments = {}) {
    arguments.insert(arguments.end(), {"--fail-on", fail_on});
    const Outcome outcome = report(findings, {run}, arguments);
    EXPECT_NE(outcome.output.find("End of report. Verdict: FAIL"), std::string::npos);
    return outcome.status;
  };
  EXPECT_EQ(status(known, "any"), 1);
  EXPECT_EQ(status(known, "worse"), 0);
  EXPECT_EQ(status(known, "new"), 0);
  const std::string worse = finding("a", "cn[1-2]") + examined("cn[1-2]");
  EXPECT_EQ(status(worse, "worse"), 1);
  EXPECT_EQ(status(worse, "new"), 0);
  const std::string reworded = finding("a", "cn1", 80, "other") + examined("cn[1-2]");
  EXPECT_EQ(status(reworded, "worse"), 1);
  EXPECT_EQ(status(reworded, "new"), 0);
  const std::string with_new = known + finding("b", "cn2");
  EXPECT_EQ(status(with_new, "worse"), 1);
  EXPECT_EQ(status(with_new, "new"), 1);
  const std::string harmless_new = known + finding("b", "cn2", 50);
  EXPECT_EQ(status(harmless_new, "worse"), 0) << "it does not contribute to FAIL";
  EXPECT_EQ(status(known, "new", {"--expect", "cn[1-3]"}), 1) << "a doubt";
}

TEST_P(SinceTest, AnUnknownVerdictIsAFailureWhateverIsNew) {
  const Outcome outcome = report("", {earlier("")}, {"--fail-on", "new"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.output.find("Verdict: UNKNOWN"), std::string::npos);
}

TEST_P(SinceTest, ARunAgainstItselfIsAllTheSameWhateverTheOrderOfItsLines) {
  RandomFindings random(5);
  for (int round = 0; round < 25; ++round) {
    Lines lines = random.draw(60);
    const std::string before = earlier(joined(lines));
    random.shuffle(lines);
    const std::string result = block(joined(lines), {before});
    EXPECT_NE(result.find(": 0 new, 0 worse, "), std::string::npos) << result;
    EXPECT_NE(result.find(" same, 0 better, 0 gone\n"), std::string::npos) << result;
    // Kept and read again it is the same run.
    const std::string kept = folder.write(
        "kept", Command({"-e", "findings", "--collapse", GetParam(), before}).run().output);
    EXPECT_NE(block(joined(lines), {kept}).find(": 0 new, 0 worse, "), std::string::npos);
  }
}

TEST_P(SinceTest, WhatIsToldDoesNotDependOnTheOrderOfLines) {
  RandomFindings random(6);
  for (int round = 0; round < 25; ++round) {
    Lines before = random.draw(60);
    Lines now = random.draw(60);
    const std::string result = block(joined(now), {earlier(joined(before))});
    random.shuffle(before);
    random.shuffle(now);
    EXPECT_EQ(block(joined(now), {earlier(joined(before))}), result);
  }
}

TEST_P(SinceTest, WithoutExaminedLinesNothingIsGone) {
  RandomFindings random(7);
  std::size_t gone = 0;
  for (int round = 0; round < 25; ++round) {
    const std::string before = earlier(joined(random.draw(60)));
    std::string now;
    for (const std::string& line : random.draw(10)) {
      now += line.find("examined") == std::string::npos ? line + "\n" : "";
    }
    const std::string result = block(now, {before});
    EXPECT_NE(result.find(", 0 gone"), std::string::npos) << result;
    EXPECT_EQ(result.find(" -"), std::string::npos) << result;
    gone +=
        block(now + examined("cn[0-9].x,cn[0-9].y"), {before}).find(", 0 gone") == std::string::npos
            ? 1
            : 0;
  }
  EXPECT_GT(gone, 5U) << "with them much is gone";
}

INSTANTIATE_TEST_SUITE_P(CollapsedBy, SinceTest, ::testing::Values("pattern", "text", "id"),
                         [](const auto& mode) { return std::string(mode.param); });

class SinceErrorsTest : public ::testing::Test {
 protected:
  Outcome run_on(const std::string& earlier, const Arguments& more = {}) {
    Arguments arguments = {folder.write("now", finding("a", "cn1", 10)), "--since", earlier};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return run(arguments);
  }

  TemporaryFolder folder;
};

TEST_F(SinceErrorsTest, AFileThatCannotBeReadEndsEverything) {
  const Outcome outcome = run_on(folder / "none");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors,
            "vond-report: error: " + folder / "none" +
                ": cannot be opened (No such file or directory), expected a file of findings\n");
}

TEST_F(SinceErrorsTest, AFileOfWhichNothingCanBeUsedEndsEverything) {
  const Outcome outcome = run_on(folder.write("earlier", "not findings\n"));
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.output, "");
}

TEST_F(SinceErrorsTest, LinesThatAreLeftOutAreTold) {
  const Outcome outcome = run_on(folder.write("earlier", finding("a", "cn1") + "no\n"));
  EXPECT_EQ(outcome.status, 0) << "no doubt of this run";
  EXPECT_NE(outcome.output.find("earlier: 1 line was left out\n"), std::string::npos);
  EXPECT_NE(outcome.errors.find("earlier:2:1: "), std::string::npos);
  EXPECT_EQ(run_on(folder / "earlier", {"--strict"}).status, 2);
}

TEST_F(SinceErrorsTest, AnEarlierRunIsNoFileToWrite) {
  const std::string before = finding("a", "cn1");
  const std::string earlier = folder.write("earlier", before);
  for (const Arguments& arguments : {Arguments{"-o", earlier}, {"-e", "findings:" + earlier}}) {
    EXPECT_EQ(run_on(earlier, arguments).status, 2);
    EXPECT_EQ(read_file(earlier), before);
  }
}

TEST_F(SinceErrorsTest, StandardInputIsReadOnce) {
  const Outcome outcome = run({"--since", "-"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.errors,
            "vond-report: error: --since is \"-\", but standard input is read by something else, "
            "too; see vond-report --help\n");
}

TEST_F(SinceErrorsTest, FailOnNeedsAnEarlierRunAndKnowsThreeWords) {
  EXPECT_EQ(run({"--fail-on", "new", "f"}).errors,
            "vond-report: error: --fail-on needs --since: without an earlier run nothing is new or "
            "worse; see vond-report --help\n");
  EXPECT_EQ(run({"--fail-on", "newer", "--since", "f", "f"}).errors,
            "vond-report: error: --fail-on is \"newer\", expected one of \"any\", \"new\", "
            "\"worse\"; see vond-report --help\n");
}

}  // namespace
}  // namespace vond::test
