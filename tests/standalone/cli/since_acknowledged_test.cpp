// What has changed, where something is or was acknowledged.
#include <gtest/gtest.h>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

constexpr std::time_t REPORT_TIME = 1763699400;
constexpr std::time_t HOUR = std::time_t{60} * 60;

constexpr char EXAMINED[] = R"({"examined": "cn[1-9]"})";
/// The report's day is 2025-11-21, the earlier run was on the 20th.
constexpr char TODAY[] = "2025-11-21";
constexpr char YESTERDAY[] = "2025-11-20";
constexpr char BEFORE[] = "2025-11-19";

std::string finding(const std::string& id, const std::string& nodes, int severity = 80,
                    const std::string& more = "") {
  return R"({"id": ")" + id + R"(", "severity": )" + std::to_string(severity) + R"(, "nodes": ")" +
         nodes + "\"" + more + "}\n";
}

std::string entry(const std::string& id, const std::string& nodes, const std::string& until,
                  const std::string& more = "") {
  return R"({"id": ")" + id + R"(", "nodes": ")" + nodes + R"(", "until": ")" + until +
         R"(", "reason": "r")" + more + "}\n";
}

class SinceAcknowledgedTest : public ::testing::TestWithParam<const char*> {
 protected:
  /// Returns what the block says, without its time.
  std::string changes(const std::string& earlier, const std::string& now,
                      const std::string& acknowledged) {
    folder.write("earlier", earlier + EXAMINED);
    set_last_change(folder / "earlier", REPORT_TIME - 6 * HOUR);
    folder.write("known", acknowledged);
    const Outcome outcome = Command({"--since", "earlier", "--acknowledged", "known", "--collapse",
                                     GetParam(), "-e", "brief", "-e", "findings:findings"})
                                .in_folder(folder.path())
                                .input(now + EXAMINED)
                                .run();
    EXPECT_EQ(outcome.errors, "");
    const std::string lead = "  Since 2025-11-20 22:30 UTC (6 h): ";
    const std::size_t begin = outcome.output.find(lead) + lead.size();
    const std::size_t end = outcome.output.find("\n----", begin);
    return outcome.output.substr(begin, end + 1 - begin);
  }

  TemporaryFolder folder;
};

TEST_P(SinceAcknowledgedTest, WhatIsAcknowledgedNowTakesNoPart) {
  const std::string all_the_same = "0 new, 0 worse, 0 same, 0 better, 0 gone\n";
  const std::string known = entry("a", "cn1", TODAY);
  EXPECT_EQ(changes(finding("a", "cn1"), finding("a", "cn1"), known), all_the_same);
  EXPECT_EQ(changes("", finding("a", "cn1"), known), all_the_same) << "it has come";
  EXPECT_EQ(changes(finding("a", "cn1"), "", known), all_the_same) << "it has gone";
}

TEST_P(SinceAcknowledgedTest, WhatWasAcknowledgedAndNoLongerIsCountsAsNew) {
  EXPECT_EQ(changes(finding("a", "cn1"), finding("a", "cn1"), entry("a", "cn1", YESTERDAY)),
            "1 new, 0 worse, 0 same, 0 better, 0 gone\n"
            "    new       a, CRITICAL, for 6 hours: +cn1\n");
}

TEST_P(SinceAcknowledgedTest, WhatWasAcknowledgedTakesNoPartWhenItHasHealed) {
  EXPECT_EQ(changes(finding("a", "cn1"), "", entry("a", "cn1", YESTERDAY)),
            "0 new, 0 worse, 0 same, 0 better, 0 gone\n");
}

TEST_P(SinceAcknowledgedTest, WhatHadExpiredBeforeTheEarlierRunIsTheSame) {
  EXPECT_EQ(changes(finding("a", "cn1"), finding("a", "cn1"), entry("a", "cn1", BEFORE)),
            "0 new, 0 worse, 1 same, 0 better, 0 gone\n");
}

TEST_P(SinceAcknowledgedTest, ANodeThatIsNewToItIsWorse) {
  EXPECT_EQ(changes(finding("a", "cn[1-2]"), finding("a", "cn[1-3]"), entry("a", "cn1", TODAY)),
            "0 new, 1 worse, 0 same, 0 better, 0 gone\n"
            "    worse     a, CRITICAL, for 6 hours: +cn3\n");
}

TEST_P(SinceAcknowledgedTest, ANodeThatRoseAboveWhatIsAcknowledgedIsNew) {
  EXPECT_EQ(changes(finding("a", "cn1", 50), finding("a", "cn1", 80),
                    entry("a", "cn1", TODAY, R"(, "up_to": "warning")")),
            "1 new, 0 worse, 0 same, 0 better, 0 gone\n"
            "    new       a, CRITICAL, for 6 hours: +cn1\n");
}

TEST_P(SinceAcknowledgedTest, ANodeThatSankBelowWhatIsAcknowledgedTakesNoPart) {
  EXPECT_EQ(changes(finding("a", "cn1", 80), finding("a", "cn1", 50),
                    entry("a", "cn1", TODAY, R"(, "up_to": "warning")")),
            "0 new, 0 worse, 0 same, 0 better, 0 gone\n");
}

TEST_P(SinceAcknowledgedTest, WhatADiagnosisRestsOnTakesNoPartWithIt) {
  const std::string both =
      finding("d", "cn1", 80, R"(, "type": "diagnosis", "based_on": ["o"])") + finding("o", "cn1");
  EXPECT_EQ(changes(both, both, entry("d", "cn1", TODAY, R"(, "with_observations": true)")),
            "0 new, 0 worse, 0 same, 0 better, 0 gone\n");
  EXPECT_EQ(changes(both, both, entry("d", "cn1", YESTERDAY, R"(, "with_observations": true)")),
            "2 new, 0 worse, 0 same, 0 better, 0 gone\n"
            "    new       d, CRITICAL, for 6 hours: +cn1\n"
            "              o, CRITICAL, for 6 hours: +cn1\n");
}

TEST_P(SinceAcknowledgedTest, AnAcknowledgedLackOfDataHealsNothing) {
  const std::string no_data = finding("a", "cn1", 50, R"(, "type": "missing_data")");
  EXPECT_EQ(
      changes(finding("a", "cn1"), no_data, entry("a", "cn1", TODAY, R"(, "up_to": "warning")")),
      "0 new, 0 worse, 0 same, 0 better, 0 gone; 1\n"
      "    node not looked at\n"
      "    not looked at: cn1\n");
}

TEST_P(SinceAcknowledgedTest, FindingsKeepWhenWhatIsAcknowledgedWasFirstSeen) {
  changes(finding("a", "cn1"), finding("a", "cn1"), entry("a", "cn1", TODAY));
  EXPECT_NE(read_file(folder / "findings").find(R"("first_seen": "2025-11-20T22:30:00Z")"),
            std::string::npos);
}

TEST_P(SinceAcknowledgedTest, WhatIsLeftOfAFindingThatNamesOneOfItsNodesIsTheSame) {
  const std::string down = finding("a", "cn[1-2]", 80, R"(, "message": "cn1 is down")");
  EXPECT_EQ(changes(down, down, entry("a", "cn2", TODAY)),
            "0 new, 0 worse, 1 same, 0 better, 0 gone\n");
}

INSTANTIATE_TEST_SUITE_P(CollapsedBy, SinceAcknowledgedTest,
                         ::testing::Values("pattern", "text", "id"),
                         [](const auto& mode) { return std::string(mode.param); });

}  // namespace
}  // namespace vond::test
