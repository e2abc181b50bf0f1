// What --syslog sends to the system log.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

class SyslogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (is_under_address_sanitizer()) {
      GTEST_SKIP() << "the sanitizer has to be the first library";
    }
  }

  Outcome run_noted(const std::vector<std::string>& arguments) {
    return Command(arguments)
        .environment("LD_PRELOAD", NOTES_SYSLOG_PATH)
        .environment("NOTED_SYSLOG", folder / "log")
        .run();
  }

  std::string log() const { return read_file(folder / "log"); }

  TemporaryFolder folder;
  std::string good = folder.write("good", R"({"id": "a", "severity": 10})");
  std::string bad = folder.write("bad", R"({"id": "a", "severity": 90})");
};

TEST_F(SyslogTest, TheVerdictIsOneLineAtTheEnd) {
  EXPECT_EQ(run_noted({"--syslog", good}).status, 0);
  EXPECT_EQ(log(), "5 verdict: PASS\n");
  EXPECT_EQ(run_noted({"--syslog", bad}).status, 1);
  EXPECT_EQ(log(), "5 verdict: PASS\n5 verdict: FAIL\n");
  EXPECT_EQ(run_noted({"--syslog", "--examined=x1", "--expect=x[1-2]", good}).status, 1);
  EXPECT_EQ(log(), "5 verdict: PASS\n5 verdict: FAIL\n5 verdict: UNKNOWN\n");
}

TEST_F(SyslogTest, ErrorsGoThereToo) {
  const std::string text = folder.write("text", "no finding\n");
  const Outcome outcome = run_noted({"--syslog", "--strict", text});
  EXPECT_EQ(outcome.status, 2);
  ASSERT_EQ(outcome.errors.find("vond-report: error: "), 0U);
  EXPECT_EQ(log(), "3 " + outcome.errors.substr(std::string("vond-report: ").size()));
}

TEST_F(SyslogTest, AnOutputThatIsNotCompleteHasAnErrorAndNoVerdict) {
  EXPECT_EQ(run_noted({"--syslog", "-o", "/dev/full", good}).status, 3);
  EXPECT_EQ(log(), "3 error: /dev/full: No space left on device\n");
}

TEST_F(SyslogTest, WarningsGoThereTooAsSuch) {
  const std::string text =
      folder.write("warned", R"({"id": "a", "severity": 10, "mesage": "misspelt"})");
  const Outcome outcome = run_noted({"--syslog", text});
  ASSERT_EQ(outcome.errors.find("vond-report: warning: "), 0U) << outcome.errors;
  EXPECT_EQ(log(), "4 " + outcome.errors.substr(std::string("vond-report: ").size()) +
                       "5 verdict: PASS\n");
}

TEST_F(SyslogTest, AnExtensionThatExitsIsToldThere) {
  const Outcome outcome = Command({"--syslog", "-e", ENDS_THE_PROCESS_PATH, good})
                              .environment("LD_PRELOAD", NOTES_SYSLOG_PATH)
                              .environment("NOTED_SYSLOG", folder / "log")
                              .environment("END_WHERE", "run")
                              .environment("END_HOW", "exit(0)")
                              .run();
  EXPECT_EQ(log(), "3 " + outcome.errors.substr(std::string("vond-report: ").size()));
}

TEST_F(SyslogTest, AShortageOfMemoryIsToldThere) {
  EXPECT_EQ(run_noted({"--syslog", "-e", STATEMENT_WITHOUT_MEMORY_PATH, good}).status, 3);
  EXPECT_EQ(log(), "3 error: out of memory; the report is not complete\n");
}

TEST_F(SyslogTest, WithoutTheOptionNothingGoesThere) {
  folder.write("log", "");
  run_noted({good});
  run_noted({folder / "missing"});
  EXPECT_EQ(log(), "");
}

}  // namespace
}  // namespace vond::test
