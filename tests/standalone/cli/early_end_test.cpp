// Extensions that end the process: a message names them, and nothing looks whole that is not.
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <map>
#include <string>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

/// Every place where the code of an extension runs, and the text that is written by then.
const std::map<std::string, std::string> PLACES = {{"static constructor", ""},
                                                   {"constructor", ""},
                                                   {"run", "before the end\n"},
                                                   {"destructor", "before the end\n"},
                                                   {"static destructor", "before the end\n"}};

class EarlyEndTest : public ::testing::Test {
 protected:
  /// Runs an extension that ends the process like `how` in the place `where`.
  Outcome end(const std::string& where, const std::string& how) {
    return Command({"-o", folder / "output", "-e", ENDS_THE_PROCESS_PATH, findings})
        .environment("END_WHERE", where)
        .environment("END_HOW", how)
        .run();
  }

  /// Expects that the extension is blamed in every place, and that the file stays as it was.
  void expect_blame(const std::string& how, const std::string& blame, int status) {
    for (const auto& [place, text] : PLACES) {
      const Outcome outcome = end(place, how);
      EXPECT_EQ(outcome.output, text) << place;
      EXPECT_EQ(outcome.errors, std::string("vond-report: error: ") + ENDS_THE_PROCESS_PATH +
                                    ": the extension " + blame + "; the report is not complete\n")
          << place;
      EXPECT_EQ(outcome.status, status) << place;
      EXPECT_EQ(folder.names(), (std::vector<std::string>{"findings", "output"})) << place;
      EXPECT_EQ(read_file(folder / "output"), "old") << place;
    }
  }

  TemporaryFolder folder;
  std::string findings = folder.write("findings", R"({"id": "a", "severity": 10})");
  std::string output = folder.write("output", "old");
};

TEST_F(EarlyEndTest, TheExtensionThatEndsNothingWorks) {
  const Outcome outcome = end("nowhere", "exit(7)");
  EXPECT_EQ(outcome.output, "before the end\n");
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(read_file(output), "before the end\n");
}

TEST_F(EarlyEndTest, AnExitIsNamedAndItsStatusDoesNotCount) {
  expect_blame("exit(0)", "ended the process with exit(0)", 3);
  expect_blame("exit(7)", "ended the process with exit(7)", 3);
}

TEST_F(EarlyEndTest, AQuickExitIsNamed) {
  expect_blame("quick_exit", "ended the process with quick_exit", 3);
}

TEST_F(EarlyEndTest, AnAbortIsNamedAndTakesItsCourse) {
  expect_blame("abort", "crashed: SIGABRT (aborted)", 128 + SIGABRT);
}

TEST_F(EarlyEndTest, ASignalThatIsRaisedIsNamedAndTakesItsCourse) {
  if (is_under_address_sanitizer()) {
    GTEST_SKIP() << "the sanitizer tells of it, too";
  }
  expect_blame("raise", "crashed: SIGILL (illegal instruction)", 128 + SIGILL);
}

TEST_F(EarlyEndTest, AFaultIsNamedAndTakesItsCourse) {
  if (is_under_address_sanitizer()) {
    GTEST_SKIP() << "the sanitizer tells of it, too";
  }
  expect_blame("segfault", "crashed: SIGSEGV (invalid access to memory)", 128 + SIGSEGV);
  expect_blame("division", "crashed: SIGFPE (arithmetic error)", 128 + SIGFPE);
}

TEST_F(EarlyEndTest, AnOverflowOfTheStackIsNamedAndTakesItsCourse) {
  if (is_under_address_sanitizer()) {
    GTEST_SKIP() << "the sanitizer tells of it, too";
  }
  expect_blame("overflow", "crashed: SIGSEGV (invalid access to memory)", 128 + SIGSEGV);
}

TEST_F(EarlyEndTest, AFindingOfTheSanitizerIsShownBehindTheMessage) {
  if (!is_under_address_sanitizer()) {
    GTEST_SKIP() << "there is no sanitizer";
  }
  const Outcome outcome = end("run", "segfault");
  EXPECT_NE(outcome.errors.find("the extension crashed: SIGSEGV"), std::string::npos);
  EXPECT_NE(outcome.errors.find("AddressSanitizer"), std::string::npos) << outcome.errors;
  EXPECT_EQ(outcome.status, 99);
}

TEST_F(EarlyEndTest, OfSeveralTheOneAtFaultIsNamedAndTheTextOfTheOthersStays) {
  const Outcome outcome = Command({"-e", PRINTS_A_LINE_PATH, "-e", ENDS_THE_PROCESS_PATH, "-e",
                                   PRINTS_A_LINE_PATH, findings})
                              .environment("END_WHERE", "run")
                              .environment("END_HOW", "exit(0)")
                              .run();
  EXPECT_EQ(outcome.output, "all is well\nbefore the end\n");
  EXPECT_EQ(outcome.errors, std::string("vond-report: error: ") + ENDS_THE_PROCESS_PATH +
                                ": the extension ended the process with exit(0); the report is "
                                "not complete\n");
  EXPECT_EQ(outcome.status, 3);
}

TEST_F(EarlyEndTest, TheNameInTheMessageOfACrashIsHarmless) {
  const std::string link = folder / "\033[2J.so";
  ASSERT_EQ(symlink(ENDS_THE_PROCESS_PATH, link.c_str()), 0);
  const Outcome outcome = Command({"-e", link, findings})
                              .environment("END_WHERE", "run")
                              .environment("END_HOW", "abort")
                              .run();
  EXPECT_EQ(outcome.errors,
            "vond-report: error: " + folder.path() +
                "/\\x1b[2J.so: the extension crashed: SIGABRT (aborted); the report "
                "is not complete\n");
}

}  // namespace
}  // namespace vond::test
