// How old the inputs are, seen from the report's time.
#include <gtest/gtest.h>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

constexpr std::time_t REPORT_TIME = 1763699400;
constexpr std::time_t DAY = std::time_t{24} * 60 * 60;

class AgesTest : public testing::Test {
 protected:
  /// Returns the report on a file that was changed so many seconds before it.
  std::string report_on_file_of_age(std::time_t age) const {
    folder.write("f", "{\"id\": \"a\", \"severity\": 10}\n");
    set_last_change(folder / "f", REPORT_TIME - age);
    const Outcome outcome = Command({"f"}).in_folder(folder.path()).run();
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.status, 0);
    return outcome.output;
  }

  static bool holds(const std::string& report, const std::string& text) {
    return report.find(text) != std::string::npos;
  }

  TemporaryFolder folder;
};

TEST_F(AgesTest, StandInTheHeader) {
  EXPECT_TRUE(holds(report_on_file_of_age(120), "  Input:    f, 2 minutes old\n"));
}

TEST_F(AgesTest, OfADayAreNotWorthMentioning) {
  EXPECT_FALSE(holds(report_on_file_of_age(DAY), "older than a day"));
}

TEST_F(AgesTest, OfMoreThanADayStandInTheValidationBlockAndAreNoDoubt) {
  const std::string report = report_on_file_of_age(3 * DAY);
  EXPECT_TRUE(holds(report, "  Input:    f, 3 days old\n"));
  EXPECT_TRUE(holds(report, "  1 input is older than a day: f, 3 days old\n"));
  EXPECT_TRUE(holds(report, "\nEnd of report. Verdict: PASS\n"));
}

TEST_F(AgesTest, OfFilesFromTheFutureSaySo) {
  const std::string report = report_on_file_of_age(-2 * DAY);
  EXPECT_TRUE(holds(report, "  Input:    f, 2 days in the future\n"));
  EXPECT_TRUE(holds(report, "  1 input is from the future: f, 2 days in the future\n"));
}

TEST_F(AgesTest, AreCountedToTheTimeThatIsSet) {
  folder.write("f", "{\"id\": \"a\", \"severity\": 10}\n");
  set_last_change(folder / "f", 0);
  const Outcome outcome =
      Command({"f"}).environment("SOURCE_DATE_EPOCH", "7200").in_folder(folder.path()).run();
  EXPECT_TRUE(holds(outcome.output, "  Input:    f, 2 hours old\n"));
}

TEST_F(AgesTest, StayWhenFindingsAreCollapsedAsOftenAsNeedBe) {
  report_on_file_of_age(3 * DAY);
  folder.write("new", "{\"id\": \"a\", \"severity\": 10}\n");
  const auto report_on = [this](const std::vector<std::string>& arguments) {
    return Command(arguments).in_folder(folder.path()).run().output;
  };
  report_on({"-e", "findings:once", "new", "f"});
  EXPECT_TRUE(holds(report_on({"once"}), "  1 input is older than a day: once, 3 days old\n"));
  report_on({"-e", "findings:twice", "once", "new"});
  EXPECT_TRUE(holds(report_on({"twice"}), "  1 input is older than a day: twice, 3 days old\n"));
}

TEST_F(AgesTest, AreThoseOfFilesOnStandardInputTooButNotOfPipes) {
  const std::string path = folder.write("f", "{\"id\": \"a\", \"severity\": 10}\n");
  EXPECT_TRUE(holds(Command({}).input_file(path).run().output,
                    "  Input:    standard input, 2 minutes old\n"));
  EXPECT_TRUE(
      holds(Command({}).input(read_file(path)).run().output, "  Input:    standard input\n"));
}

}  // namespace
}  // namespace vond::test
