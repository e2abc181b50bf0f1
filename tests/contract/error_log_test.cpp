#include "vond/log/error_log.h"

#include <gtest/gtest.h>
#include <syslog.h>

#include <cstdarg>
#include <cstdio>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/support/allocations.h"
#include "tests/support/captured_standard_error.h"
#include "tests/support/grouping_locale.h"

namespace {

struct SystemLogEntry {
  int priority;
  std::string format;
  std::string text;
};

std::vector<SystemLogEntry> system_log;

}  // namespace

// In place of the C library's: nothing that these tests report may reach the machine's log.
extern "C" void syslog(int priority, const char* format, ...) {
  char text[512];
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  system_log.push_back({priority, format, text});
}

namespace {

using vond::log::ErrorLog;
using vond::log::LOG_LEVEL;
using vond::log::LOG_OUTPUT;
using vond::test::CapturedStandardError;
using vond::test::FailingAllocation;
using vond::test::GroupingLocale;

static_assert(std::is_same_v<decltype(LOG_LEVEL), int>);
static_assert(std::is_same_v<decltype(LOG_OUTPUT), int>);
static_assert(std::is_constructible_v<ErrorLog, const char*, const char*, unsigned int, int>);
static_assert(std::is_same_v<decltype(std::declval<ErrorLog&>().stream()), std::stringstream&>);
static_assert(std::is_nothrow_destructible_v<ErrorLog>);

class ErrorLogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    LOG_LEVEL = 4;
    LOG_OUTPUT = 0;
    system_log.clear();
  }
  void TearDown() override {
    LOG_LEVEL = 4;
    LOG_OUTPUT = 0;
  }

  /// Makes a report and returns what it wrote to standard error.
  static std::string report(const std::string& text, int level = 3) {
    const CapturedStandardError standard_error;
    { ErrorLog("file.cpp", "function", 42, level).stream() << text; }
    return standard_error.text();
  }
};

using ErrorLogDeathTest = ErrorLogTest;

TEST_F(ErrorLogTest, ReportIsItsTextAloneAndALineEnd) {
  EXPECT_EQ(report("boom"), "boom\n");
  EXPECT_TRUE(system_log.empty());
}

TEST_F(ErrorLogTest, ReportIsEmittedWhenTheStatementEnds) {
  const CapturedStandardError standard_error;
  {
    ErrorLog statement("file.cpp", "function", 42, 3);
    statement.stream() << "boom " << 12;
    EXPECT_EQ(standard_error.text(), "");
  }
  EXPECT_EQ(standard_error.text(), "boom 12\n");
}

TEST_F(ErrorLogTest, ReportMoreDetailedThanTheLogLevelIsDropped) {
  LOG_LEVEL = 2;
  EXPECT_EQ(report("boom", 3), "");
  LOG_OUTPUT = 1;
  EXPECT_EQ(report("boom", 3), "");
  EXPECT_TRUE(system_log.empty());
}

TEST_F(ErrorLogTest, ReportOfTheLogLevelAndBelowIsEmitted) {
  LOG_LEVEL = 3;
  EXPECT_EQ(report("boom", 3), "boom\n");
  EXPECT_EQ(report("boom", 0), "boom\n");
  LOG_LEVEL = 7;
  EXPECT_EQ(report("boom", 3), "boom\n");
}

TEST_F(ErrorLogTest, LogLevelCountsWhenTheStatementEnds) {
  LOG_LEVEL = 2;
  const CapturedStandardError standard_error;
  {
    ErrorLog statement("file.cpp", "function", 42, 3);
    statement.stream() << "boom";
    LOG_LEVEL = 3;
  }
  EXPECT_EQ(standard_error.text(), "boom\n");
}

TEST_F(ErrorLogTest, ReportGoesToTheSystemLogAloneWhenThatIsTheOutput) {
  LOG_OUTPUT = 1;
  EXPECT_EQ(report("boom", 3), "");
  ASSERT_EQ(system_log.size(), 1U);
  EXPECT_EQ(system_log[0].priority, 3);
  EXPECT_EQ(system_log[0].format, "%s\n");
  EXPECT_EQ(system_log[0].text, "boom\n");
}

TEST_F(ErrorLogTest, EveryOutputButZeroIsTheSystemLog) {
  LOG_OUTPUT = -1;
  EXPECT_EQ(report("boom", 2), "");
  ASSERT_EQ(system_log.size(), 1U);
  EXPECT_EQ(system_log[0].priority, 2);
}

TEST_F(ErrorLogTest, ReportIsNoFormatForTheSystemLog) {
  LOG_OUTPUT = 1;
  report("100%s %n");
  ASSERT_EQ(system_log.size(), 1U);
  EXPECT_EQ(system_log[0].text, "100%s %n\n");
}

TEST_F(ErrorLogTest, EmptyReportIsEmittedToo) {
  EXPECT_EQ(report(""), "\n");
  LOG_OUTPUT = 1;
  EXPECT_EQ(report(""), "");
  ASSERT_EQ(system_log.size(), 1U);
  EXPECT_EQ(system_log[0].text, "\n");
}

TEST_F(ErrorLogTest, NumbersReadTheSameUnderALocaleThatGroupsDigits) {
  const GroupingLocale locale;
  const CapturedStandardError standard_error;
  { ErrorLog("file.cpp", "function", 42, 3).stream() << 1234567; }
  EXPECT_EQ(standard_error.text(), "1234567\n");
}

TEST_F(ErrorLogDeathTest, AllocationFailureWhileReportingEndsTheProgram) {
  EXPECT_EXIT(
      {
        try {
          auto statement = std::make_unique<ErrorLog>("file.cpp", "function", 42, 3);
          statement->stream() << "a text that is too long for a string without allocation";
          const FailingAllocation failing(1);
          statement.reset();
        } catch (...) {
          std::_Exit(0);
        }
      },
      ::testing::KilledBySignal(SIGABRT), "terminate called");
}

}  // namespace
