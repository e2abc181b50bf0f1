#include "vond/log/output_log.h"

#include <gtest/gtest.h>

#include <exception>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <tuple>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include "tests/support/allocations.h"
#include "tests/support/captured_standard_error.h"
#include "tests/support/grouping_locale.h"
#include "tests/support/recording_buffer.h"

namespace {

using vond::log::OutputLog;
using vond::log::OutputStream;
using vond::log::StreamFileType;
using vond::test::BufferThatFailsToFlush;
using vond::test::CapturedStandardError;
using vond::test::FailingAllocation;
using vond::test::GroupingLocale;
using vond::test::RecordingBuffer;

using Events = std::vector<std::string>;
using Stream = OutputLog::OutputLogStream;

const std::string FLUSH = RecordingBuffer::FLUSH;
const std::string RED = "\033[0;31m";
const std::string YELLOW = "\033[0;33m";
const std::string GREEN = "\033[0;32m";
const std::string RESET = "\033[0m";

static_assert(std::is_same_v<std::underlying_type_t<OutputLog::Colors>, int>);
static_assert(OutputLog::NONE == -1 && OutputLog::RED == 0 && OutputLog::YELLOW == 1 &&
              OutputLog::GREEN == 2);
static_assert(std::is_same_v<decltype(OutputLog::text), std::stringstream>);
static_assert(std::is_same_v<decltype(OutputLog::singleton_obj), std::unique_ptr<Stream>>);
static_assert(std::is_same_v<decltype(Stream::color_codes), std::vector<std::string>>);
static_assert(std::is_same_v<decltype(Stream::reset_code), std::string>);
static_assert(std::is_same_v<decltype(Stream::streams), std::vector<OutputStream>>);
static_assert(
    std::is_same_v<decltype(Stream::files), std::vector<std::shared_ptr<StreamFileType>>>);
static_assert(std::is_same_v<decltype(Stream::current_color), int>);
static_assert(std::is_same_v<decltype(OutputStream::stream), std::ostream*>);
static_assert(std::is_same_v<decltype(OutputStream::colored), bool>);
static_assert(std::is_nothrow_destructible_v<OutputLog>);

/// A destination that notes what reaches it.
struct Destination {
  RecordingBuffer buffer;
  std::ostream stream{&buffer};

  const Events& events() const { return buffer.events; }
};

/// Starts every test with a shared object without destinations.
class OutputLogTest : public ::testing::Test {
 protected:
  void SetUp() override { OutputLog::singleton_obj = std::make_unique<Stream>(); }
  void TearDown() override { OutputLog::singleton_obj.reset(); }

  static void add(Destination& destination, bool colored) {
    OutputLog::singleton_obj->streams.push_back({&destination.stream, colored});
  }

  static int current_color() { return OutputLog::singleton_obj->current_color; }
};

using OutputLogDeathTest = OutputLogTest;

TEST_F(OutputLogTest, SharedObjectHasItsFieldsInTheOrderOfTheContract) {
  const Stream stream;
  const auto& [f1, f2, f3, f4, f5] = stream;
  EXPECT_EQ(&f1, &stream.color_codes);
  EXPECT_EQ(&f2, &stream.reset_code);
  EXPECT_EQ(&f3, &stream.streams);
  EXPECT_EQ(&f4, &stream.files);
  EXPECT_EQ(&f5, &stream.current_color);
  const OutputStream destination;
  const auto& [d1, d2] = destination;
  EXPECT_EQ(&d1, &destination.stream);
  EXPECT_EQ(&d2, &destination.colored);
}

TEST_F(OutputLogTest, SharedObjectStartsWithThreeColorsAndNoDestinations) {
  const Stream stream;
  EXPECT_EQ(stream.color_codes, (Events{"\x1B[0;31m", "\x1B[0;33m", "\x1B[0;32m"}));
  EXPECT_EQ(stream.reset_code, "\x1B[0m");
  EXPECT_TRUE(stream.streams.empty());
  EXPECT_TRUE(stream.files.empty());
  EXPECT_EQ(stream.current_color, -1);
}

TEST_F(OutputLogTest, FirstStatementMakesTheSharedObject) {
  OutputLog::singleton_obj.reset();
  { OutputLog(OutputLog::RED).text << "goes nowhere"; }
  ASSERT_NE(OutputLog::singleton_obj, nullptr);
  EXPECT_TRUE(OutputLog::singleton_obj->streams.empty());
  EXPECT_EQ(current_color(), -1);
}

TEST_F(OutputLogTest, FirstStatementWithoutColorMakesTheSharedObjectToo) {
  OutputLog::singleton_obj.reset();
  { const OutputLog statement; }
  EXPECT_NE(OutputLog::singleton_obj, nullptr);
}

TEST_F(OutputLogTest, LaterStatementsUseTheSharedObjectThatIsThere) {
  const Stream* const shared = OutputLog::singleton_obj.get();
  { const OutputLog statement(OutputLog::NONE); }
  EXPECT_EQ(OutputLog::singleton_obj.get(), shared);
}

TEST_F(OutputLogTest, StatementOutlivesTheSharedObject) {
  Destination destination;
  add(destination, false);
  {
    OutputLog statement(OutputLog::NONE);
    statement.text << "lost";
    OutputLog::singleton_obj.reset();
  }
  EXPECT_EQ(destination.events(), Events());
  EXPECT_EQ(OutputLog::singleton_obj, nullptr);
}

TEST_F(OutputLogTest, NothingReachesADestinationBeforeTheStatementEnds) {
  Destination destination;
  add(destination, false);
  {
    OutputLog statement(OutputLog::NONE);
    statement.text << "line\n";
    EXPECT_EQ(destination.events(), Events());
  }
  EXPECT_EQ(destination.events(), (Events{"line\n", FLUSH}));
}

TEST_F(OutputLogTest, StatementOfManyLinesIsOneWriteAndOneFlushForEachDestination) {
  Destination first;
  Destination second;
  add(first, false);
  add(second, true);
  {
    OutputLog statement(OutputLog::NONE);
    statement.text << "one\n" << 2 << "\n\nthree";
  }
  const Events expected = {"one\n2\n\nthree", FLUSH};
  EXPECT_EQ(first.events(), expected);
  EXPECT_EQ(second.events(), expected);
}

TEST_F(OutputLogTest, StatementsReachDestinationsInTheirOrder) {
  Destination destination;
  add(destination, false);
  { OutputLog(OutputLog::NONE).text << "first"; }
  { OutputLog().text << "second"; }
  EXPECT_EQ(destination.events(), (Events{"first", FLUSH, "second", FLUSH}));
}

TEST_F(OutputLogTest, ZeroBytesAndBlanksAreWrittenAsTheyAre) {
  Destination destination;
  add(destination, false);
  const std::string text("  a\0b \n\n ", 9);
  { OutputLog(OutputLog::NONE).text << text; }
  EXPECT_EQ(destination.events(), (Events{text, FLUSH}));
}

TEST_F(OutputLogTest, StatementWithoutTextWritesNothing) {
  Destination destination;
  add(destination, true);
  { const OutputLog statement(OutputLog::NONE); }
  EXPECT_EQ(destination.events(), Events());
  EXPECT_EQ(current_color(), -1);
}

TEST_F(OutputLogTest, ColoredStatementWithoutTextWritesNoResetAndEndsTheColor) {
  Destination destination;
  add(destination, true);
  {
    const OutputLog statement(OutputLog::GREEN);
    EXPECT_EQ(current_color(), 2);
  }
  EXPECT_EQ(destination.events(), Events{GREEN});
  EXPECT_EQ(current_color(), -1);
}

TEST_F(OutputLogTest, ColoredStatementWritesCodeAtOnceThenTextThenResetThenFlush) {
  Destination destination;
  add(destination, true);
  {
    OutputLog statement(OutputLog::RED);
    EXPECT_EQ(destination.events(), Events{RED});
    EXPECT_EQ(current_color(), 0);
    statement.text << "FAIL\n";
  }
  EXPECT_EQ(destination.events(), (Events{RED, "FAIL\n", RESET, FLUSH}));
  EXPECT_EQ(current_color(), -1);
}

TEST_F(OutputLogTest, EveryColorHasItsCode) {
  for (const auto& [color, code] :
       {std::pair(OutputLog::RED, RED), {OutputLog::YELLOW, YELLOW}, {OutputLog::GREEN, GREEN}}) {
    Destination destination;
    OutputLog::singleton_obj->streams = {{&destination.stream, true}};
    { OutputLog(color).text << "x"; }
    EXPECT_EQ(destination.events(), (Events{code, "x", RESET, FLUSH}));
  }
}

TEST_F(OutputLogTest, PlainDestinationGetsNoCodes) {
  Destination destination;
  add(destination, false);
  {
    OutputLog statement(OutputLog::RED);
    EXPECT_EQ(current_color(), -1);
    statement.text << "FAIL";
  }
  EXPECT_EQ(destination.events(), (Events{"FAIL", FLUSH}));
}

TEST_F(OutputLogTest, OfTwoColoredDestinationsOnlyTheFirstGetsTheReset) {
  Destination first;
  Destination second;
  add(first, true);
  add(second, true);
  { OutputLog(OutputLog::YELLOW).text << "x"; }
  EXPECT_EQ(first.events(), (Events{YELLOW, "x", RESET, FLUSH}));
  EXPECT_EQ(second.events(), (Events{YELLOW, "x", FLUSH}));
}

TEST_F(OutputLogTest, ColoredDestinationBehindAPlainOneGetsNoReset) {
  Destination plain;
  Destination colored;
  add(plain, false);
  add(colored, true);
  { OutputLog(OutputLog::YELLOW).text << "x"; }
  EXPECT_EQ(plain.events(), (Events{"x", FLUSH}));
  EXPECT_EQ(colored.events(), (Events{YELLOW, "x", FLUSH}));
}

TEST_F(OutputLogTest, ColorEndsWithItsStatement) {
  Destination destination;
  add(destination, true);
  { OutputLog(OutputLog::RED).text << "red"; }
  { OutputLog(OutputLog::NONE).text << "plain"; }
  { OutputLog().text << "plain too"; }
  EXPECT_EQ(destination.events(),
            (Events{RED, "red", RESET, FLUSH, "plain", FLUSH, "plain too", FLUSH}));
}

TEST_F(OutputLogTest, StatementWithoutColorLeavesTheColorInForceAsItIs) {
  Destination destination;
  add(destination, true);
  OutputLog::singleton_obj->set_color(OutputLog::GREEN);
  {
    OutputLog statement;
    EXPECT_EQ(current_color(), 2);
    statement.text << "x";
  }
  EXPECT_EQ(destination.events(), (Events{GREEN, "x", RESET, FLUSH}));
}

TEST_F(OutputLogTest, StatementOfNoColorLeavesTheColorInForceAsItIs) {
  Destination destination;
  add(destination, true);
  OutputLog::singleton_obj->set_color(OutputLog::GREEN);
  OutputLog::singleton_obj->set_color(OutputLog::NONE);
  EXPECT_EQ(current_color(), 2);
  EXPECT_EQ(destination.events(), Events{GREEN});
}

TEST_F(OutputLogTest, NegativeColorsAreNoColor) {
  Destination destination;
  add(destination, true);
  { OutputLog(static_cast<OutputLog::Colors>(-5)).text << "x"; }
  EXPECT_EQ(destination.events(), (Events{"x", FLUSH}));
}

/// Makes a statement in `color` and returns what it threw: its dynamic type and what it wrote to
/// standard error.
std::pair<std::string, std::string> make_statement_in(int color) {
  const CapturedStandardError standard_error;
  try {
    OutputLog(static_cast<OutputLog::Colors>(color)).text << "never seen";
  } catch (const std::exception& error) {
    return {typeid(error).name(), standard_error.text()};
  }
  return {"nothing", standard_error.text()};
}

TEST_F(OutputLogTest, InvalidColorThrowsAPlainExceptionAndSaysSoOnStandardError) {
  Destination destination;
  add(destination, true);
  EXPECT_EQ(make_statement_in(3), std::pair(std::string(typeid(std::exception).name()),
                                            std::string("invalid color 3\n")));
  EXPECT_EQ(make_statement_in(12345), std::pair(std::string(typeid(std::exception).name()),
                                                std::string("invalid color 12345\n")));
  EXPECT_EQ(destination.events(), Events());
  EXPECT_EQ(current_color(), -1);
}

TEST_F(OutputLogTest, InvalidColorIsRefusedForAPlainDestinationToo) {
  Destination destination;
  add(destination, false);
  EXPECT_EQ(make_statement_in(3).second, "invalid color 3\n");
  EXPECT_EQ(destination.events(), Events());
}

TEST_F(OutputLogTest, InvalidColorPassesSilentlyWithoutDestinations) {
  EXPECT_EQ(make_statement_in(3), std::pair(std::string("nothing"), std::string()));
}

TEST_F(OutputLogTest, FlushSendsTheStatementToTheDestinationsOfTheSharedObject) {
  Destination destination;
  add(destination, false);
  Stream other;
  std::stringstream statement("text");
  other.flush(statement);
  EXPECT_EQ(destination.events(), (Events{"text", FLUSH}));
}

TEST_F(OutputLogTest, ResetReplacesTheSharedObject) {
  Destination destination;
  add(destination, false);
  OutputLog::singleton_obj.reset(new Stream);
  { OutputLog(OutputLog::NONE).text << "x"; }
  EXPECT_EQ(destination.events(), Events());
}

TEST_F(OutputLogTest, ErrorsOfADestinationAreNotChecked) {
  Destination failing;
  Destination good;
  add(failing, false);
  add(good, false);
  failing.stream.setstate(std::ios::badbit);
  { OutputLog(OutputLog::NONE).text << "x"; }
  EXPECT_EQ(good.events(), (Events{"x", FLUSH}));
}

TEST_F(OutputLogTest, NumbersReadTheSameUnderALocaleThatGroupsDigits) {
  Destination destination;
  add(destination, false);
  const GroupingLocale locale;
  {
    OutputLog statement(OutputLog::NONE);
    statement.text << 1234567 << ' ' << 1.5;
  }
  { OutputLog().text << 1234567; }
  EXPECT_EQ(destination.events(), (Events{"1234567 1.5", FLUSH, "1234567", FLUSH}));
}

TEST_F(OutputLogTest, InvalidColorReadsTheSameUnderALocaleThatGroupsDigits) {
  Destination destination;
  add(destination, true);
  const GroupingLocale locale;
  EXPECT_EQ(make_statement_in(1234).second, "invalid color 1234\n");
}

TEST_F(OutputLogDeathTest, FailureToFlushEndsTheProgram) {
  BufferThatFailsToFlush buffer;
  std::ostream stream(&buffer);
  stream.exceptions(std::ios::badbit);
  OutputLog::singleton_obj->streams = {{&stream, false}};
  EXPECT_EXIT(
      {
        try {
          OutputLog(OutputLog::NONE).text << "x";
        } catch (...) {
          std::_Exit(0);
        }
      },
      ::testing::KilledBySignal(SIGABRT), "terminate called");
}

TEST_F(OutputLogDeathTest, AllocationFailureWhileEmittingEndsTheProgram) {
  Destination destination;
  add(destination, false);
  EXPECT_EXIT(
      {
        try {
          auto statement = std::make_unique<OutputLog>(OutputLog::NONE);
          statement->text << "a text that is too long for a string without allocation";
          const FailingAllocation failing(1);
          statement.reset();
        } catch (...) {
          std::_Exit(0);
        }
      },
      ::testing::KilledBySignal(SIGABRT), "terminate called");
}

}  // namespace
