// What is acknowledged, in the summary.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/standalone/libvond_host/report_blocks.h"

namespace vond::test {
namespace {

using standalone::ReportFacts;
using Entry = ReportFacts::Acknowledgement;
using State = Entry::State;

/// 2025-11-21 04:30 UTC.
constexpr std::time_t NOW = 1763699400;
constexpr std::time_t DAY = 86400;
/// The last second of 2025-11-21.
constexpr std::time_t TONIGHT = 1763769599;
/// The last second of 2026-01-31.
constexpr std::time_t END_OF_JANUARY = 1769903999;

class AcknowledgedLinesTest : public ReportBlocks {
 protected:
  AcknowledgedLinesTest() {
    facts.written_at = NOW;
    facts.findings_read = 1;
    facts.acknowledged = ReportFacts::Acknowledged{};
    set_width(80);
  }

  Entry& add(const std::string& id, std::time_t until = END_OF_JANUARY,
             State state = State::ACTIVE) {
    return facts.acknowledged->entries.emplace_back(
        Entry{id, {"cn001", "cn002"}, until, "RMA 4711", "mh", state, false});
  }

  void add_expired(const std::string& id) { add(id, NOW - 1, State::EXPIRED).is_back = true; }

  /// Returns the lines behind the failing definitions.
  std::string lines(bool colored = false) const {
    const std::string text = summary(colored);
    const std::size_t begin = text.find('\n', text.find("  Failing definitions")) + 1;
    return text.substr(begin, text.find(RULE) - begin);
  }
};

TEST_F(AcknowledgedLinesTest, AreNoneWhenNothingIsAcknowledged) {
  EXPECT_EQ(lines(), "");
  facts.acknowledged.reset();
  EXPECT_EQ(lines(), "");
}

TEST_F(AcknowledgedLinesTest, TellWhatIsCoveredByWhat) {
  facts.acknowledged->issues = 3;
  facts.acknowledged->nodes = std::vector<std::string>(12, "cn");
  add("disk-full#sda1");
  EXPECT_EQ(lines(),
            "  Acknowledged: 3 issues on 12 nodes\n"
            "    disk-full#sda1 on cn[001-002] until 2026-01-31: RMA 4711 (mh)\n");
}

TEST_F(AcknowledgedLinesTest, LeaveOutWhatIsNotKnown) {
  facts.acknowledged->issues = 1;
  Entry& entry = add("a");
  entry.by = "";
  entry.nodes.clear();
  EXPECT_EQ(lines(),
            "  Acknowledged: 1 issue\n"
            "    a on every node until 2026-01-31: RMA 4711\n");
}

TEST_F(AcknowledgedLinesTest, TellTheTimeOfAnEndWithinADay) {
  add("a", END_OF_JANUARY - 3600);
  EXPECT_EQ(lines(),
            "  Acknowledged: 0 issues\n"
            "    a on cn[001-002] until 2026-01-31 22:59 UTC: RMA 4711 (mh)\n");
}

TEST_F(AcknowledgedLinesTest, WarnSevenDaysBeforeTheEnd) {
  add("e", NOW + 8 * DAY);
  add("d", TONIGHT + 7 * DAY);
  add("b", TONIGHT + DAY);
  add("c", TONIGHT + 2 * DAY);
  add("a", TONIGHT);
  EXPECT_EQ(lines(),
            "  Acknowledged: 0 issues\n"
            "    ends within a day: a on cn[001-002] until 2025-11-21: RMA 4711 (mh)\n"
            "    ends in 1 day: b on cn[001-002] until 2025-11-22: RMA 4711 (mh)\n"
            "    ends in 2 days: c on cn[001-002] until 2025-11-23: RMA 4711 (mh)\n"
            "    ends in 7 days: d on cn[001-002] until 2025-11-28: RMA 4711 (mh)\n"
            "    e on cn[001-002] until 2025-11-29 04:30 UTC: RMA 4711 (mh)\n");
}

TEST_F(AcknowledgedLinesTest, TellWhatHasEndedSinceTheReportWasBegun) {
  add("b", NOW);
  add("a", NOW - 1);
  add("c", NOW - 3 * DAY);
  EXPECT_EQ(lines(),
            "  Acknowledged: 0 issues\n"
            "    ended meanwhile: c on cn[001-002] until 2025-11-18 04:30 UTC: RMA 4711 (mh)\n"
            "    ended meanwhile: a on cn[001-002] until 2025-11-21 04:29 UTC: RMA 4711 (mh)\n"
            "    ends within a day: b on cn[001-002] until 2025-11-21 04:30 UTC: RMA 4711\n"
            "      (mh)\n");
}

TEST_F(AcknowledgedLinesTest, TellWhatIsBackAndWhatIsNotFound) {
  add_expired("old");
  add("expired and gone", NOW - 1, State::EXPIRED);
  add("healed", TONIGHT, State::UNUSED);
  EXPECT_EQ(lines(),
            "  Expired and back: 1\n"
            "    old on cn[001-002] until 2025-11-21 04:29 UTC: RMA 4711 (mh)\n"
            "  Acknowledgements that cover nothing: 1\n"
            "    healed on cn[001-002] until 2025-11-21: RMA 4711 (mh)\n");
}

TEST_F(AcknowledgedLinesTest, AreAtMostFiveOfAKind) {
  for (int i = 1; i <= 8; ++i) {
    add("a" + std::to_string(i));
    add_expired("e" + std::to_string(i));
  }
  const std::string text = lines();
  EXPECT_NE(text.find("    a5 on cn[001-002] until 2026-01-31: RMA 4711 (mh)\n"
                      "    and 3 more\n"
                      "  Expired and back: 8\n"),
            std::string::npos)
      << text;
  EXPECT_EQ(text.find("a6"), std::string::npos);
  EXPECT_EQ(text.find("e6"), std::string::npos);
  EXPECT_NE(text.find("(mh)\n    and 3 more\n", text.find("e5")), std::string::npos) << text;
}

TEST_F(AcknowledgedLinesTest, TakeTwoLinesAndLeaveOutSomeOfTheReason) {
  Entry& entry = add("dimm-lot-defective#24-17");
  entry.reason = std::string(60, 'x') + " " + std::string(200, 'y');
  EXPECT_EQ(lines(),
            "  Acknowledged: 0 issues\n"
            "    dimm-lot-defective#24-17 on cn[001-002] until 2026-01-31:\n"
            "      " +
                std::string(60, 'x') + " yyyyy... (mh)\n");
}

TEST_F(AcknowledgedLinesTest, CountNodesThatWouldFillALine) {
  Entry& entry = add("a");
  entry.nodes.clear();
  for (int i = 0; i < 30; ++i) {
    entry.nodes.push_back("n" + std::to_string(2 * i));
  }
  EXPECT_NE(lines().find("    a on 30 nodes until 2026-01-31: RMA 4711 (mh)\n"), std::string::npos)
      << lines();
}

TEST_F(AcknowledgedLinesTest, AreYellowWhenSomebodyShouldAct) {
  facts.acknowledged->issues = 1;
  add("a");
  add("soon", TONIGHT);
  add_expired("back");
  add("unused", END_OF_JANUARY, State::UNUSED);
  const std::string entry = " on cn[001-002] until ";
  EXPECT_EQ(lines(true),
            "  Acknowledged: 1 issue\n"
            "\x1B[0;33m    ends within a day: soon" +
                entry +
                "2025-11-21: RMA 4711 (mh)\x1B[0m\n"
                "    a" +
                entry +
                "2026-01-31: RMA 4711 (mh)\n"
                "\x1B[0;33m  Expired and back: 1\x1B[0m\n"
                "\x1B[0;33m    back" +
                entry +
                "2025-11-21 04:29 UTC: RMA 4711 (mh)\x1B[0m\n"
                "\x1B[0;33m  Acknowledgements that cover nothing: 1\x1B[0m\n"
                "\x1B[0;33m    unused" +
                entry + "2026-01-31: RMA 4711 (mh)\x1B[0m\n");
}

TEST_F(AcknowledgedLinesTest, TellThatAcknowledgementsAreIgnored) {
  facts.acknowledged->is_ignored = true;
  EXPECT_EQ(lines(), "  Acknowledgements: ignored (--ignore-acknowledged)\n");
}

TEST_F(AcknowledgedLinesTest, FitEveryWidth) {
  add("dimm-lot-defective#24-17").reason = std::string(300, 'r');
  for (int width = 1; width <= 200; ++width) {
    set_width(width);
    EXPECT_NE(lines().find("dimm"), std::string::npos) << width;
  }
}

}  // namespace
}  // namespace vond::test
