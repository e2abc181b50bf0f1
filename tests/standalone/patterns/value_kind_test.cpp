#include "standalone/patterns/value_kind.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/patterns/natural_order.h"

namespace {

using vond::standalone::read_number;
using vond::standalone::read_time;
using vond::standalone::stands_naturally_before;

/// `before|number|behind`, "none" for other values.
std::string parts(std::string_view value) {
  const auto number = read_number(value);
  return number ? std::string(number->before) + "|" + std::string(number->text) + "|" +
                      std::string(number->behind)
                : "none";
}

TEST(NumberValue, StandsBetweenCharactersWithoutDigits) {
  EXPECT_EQ(parts("83C"), "|83|C");
  EXPECT_EQ(parts("core.2275"), "core.|2275|");
  EXPECT_EQ(parts("12.3GB"), "|12.3|GB");
  EXPECT_EQ(parts("-5"), "|-5|");
  EXPECT_EQ(parts("1,200"), "|1,200|");
  EXPECT_EQ(parts("3.2e+03"), "|3.2e+03|");
  EXPECT_EQ(parts("1,234,567.5%"), "|1,234,567.5|%");
  EXPECT_EQ(parts("x3e"), "x|3|e");
  EXPECT_EQ(parts("3e+"), "|3|e+");
  EXPECT_EQ(parts("0"), "|0|");
  EXPECT_EQ(parts("0.05s"), "|0.05|s");
  EXPECT_EQ(parts("5."), "|5|.");
}

TEST(NumberValue, HasItsSignUnlessThatJoinsWords) {
  EXPECT_EQ(parts("+5"), "|+5|");
  EXPECT_EQ(parts("x:-5"), "x:|-5|");
  EXPECT_EQ(parts("eth-5"), "eth-|5|");
  EXPECT_EQ(parts("--5"), "--|5|");
  EXPECT_EQ(parts("_-5"), "_-|5|");
}

TEST(NumberValue, MayHaveTheMinusSignOfTypography) {
  EXPECT_EQ(parts("\u22125C"), "|\u22125|C");
  EXPECT_EQ(parts("x:\u2212.5"), "x:|\u2212.5|");
  EXPECT_EQ(parts("core\u22125"), "core\u2212|5|");
  EXPECT_EQ(parts("\u2212\u22125"), "\u2212\u2212|5|");
  EXPECT_EQ(parts("\u00B15"), "\u00B1|5|");
  EXPECT_EQ(parts("3e\u22125"), "none");
  EXPECT_EQ(read_number("\u22121.5")->number, read_number("-1.5")->number);
  EXPECT_EQ(read_number("\u22120")->number, read_number("0")->number);
}

TEST(NumberValue, MayLackItsWholePart) {
  EXPECT_EQ(parts(".5"), "|.5|");
  EXPECT_EQ(parts(".05e3s"), "|.05e3|s");
  EXPECT_EQ(parts("-.5"), "|-.5|");
  EXPECT_EQ(parts("+.5"), "|+.5|");
  EXPECT_EQ(parts("load:.5"), "load:|.5|");
  EXPECT_EQ(parts("load:-.5"), "load:|-.5|");
  EXPECT_EQ(parts("load-.5"), "load-|.5|");
  EXPECT_EQ(parts(".5.log"), "|.5|.log");
}

TEST(NumberValue, TakesNoPointThatJoinsWords) {
  EXPECT_EQ(parts("core.5"), "core.|5|");
  EXPECT_EQ(parts("_.5"), "_.|5|");
  EXPECT_EQ(parts("x..5"), "x..|5|");
}

TEST(NumberValue, BehindTheOwnNodeIsPartOfItsName) {
  EXPECT_EQ(parts("\x02.5"), "\x02.|5|");
  EXPECT_EQ(parts("\x03-5"), "\x03-|5|");
}

TEST(NumberValue, IsNothingWithOtherDigits) {
  for (const std::string_view value :
       {"", "x", "1.2.3", "a1b2", "0x1f", "1,2", "1,2000", "1200,300", "13,31,48", "1e5e5",
        "192.168.0.1", ".1.2.3", ".5-.7", "2026-01-31", "12:30"}) {
    EXPECT_EQ(parts(value), "none") << value;
  }
}

TEST(NumberValue, IsNothingWithLeadingZeros) {
  for (const std::string_view value : {"007", "00", "-05", "01.5", "0,200", "core.05"}) {
    EXPECT_EQ(parts(value), "none") << value;
  }
}

TEST(NumberValue, IsNothingWithAnExponentThatNobodyCanCount) {
  EXPECT_EQ(parts("1e123456789012345"), "|1e123456789012345|");
  EXPECT_EQ(parts("1e1234567890123456"), "none");
}

TEST(NumberValue, IsComparedExactly) {
  const std::vector<std::string> ascending = {"-1e999999999",
                                              "-100000000000000000000000000001",
                                              "-100000000000000000000000000000",
                                              "-3",
                                              "-2.5",
                                              "-.12",
                                              "-0.1",
                                              "0",
                                              "1e-999999999",
                                              "0.001",
                                              ".01",
                                              "0.1",
                                              "0.10000000000000000000000000001",
                                              "2.9",
                                              "2.10e1",
                                              "1,199.99",
                                              "1,200",
                                              "1201",
                                              "3.2e+03",
                                              "10000",
                                              "9007199254740993",
                                              "9007199254740994",
                                              "1e999999999"};
  for (std::size_t i = 0; i < ascending.size(); ++i) {
    for (std::size_t j = 0; j < ascending.size(); ++j) {
      EXPECT_EQ(read_number(ascending[i])->number < read_number(ascending[j])->number, i < j)
          << ascending[i] << " " << ascending[j];
    }
  }
}

TEST(NumberValue, IsTheSameHoweverItIsWritten) {
  for (const std::string_view other :
       {"1,200", "1200.0", "1.2e3", "1.2E+03", "12000e-1", "+1200"}) {
    EXPECT_EQ(read_number("1200")->number, read_number(other)->number) << other;
  }
  EXPECT_EQ(read_number("0.05")->number, read_number(".050")->number);
  EXPECT_EQ(read_number("0")->number, read_number(".0")->number);
  EXPECT_EQ(read_number("0")->number, read_number("-0.00e5")->number);
}

void expect_times_in_order(const std::vector<std::string>& values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto time = read_time(values[i]);
    ASSERT_TRUE(time) << values[i];
    EXPECT_TRUE(time->is_like(*read_time(values[0]))) << values[i];
    for (std::size_t j = 0; j < values.size(); ++j) {
      EXPECT_EQ(time->key() < read_time(values[j])->key(), i < j) << values[i] << " " << values[j];
    }
  }
}

TEST(TimeValue, IsComparedAsATime) {
  expect_times_in_order({"1999-12-31", "2000-01-01", "2000-02-29", "2000-03-01", "2024-12-31"});
  expect_times_in_order({"00:00:00", "00:00:00.01", "00:00:00,1", "09:59:60", "10:00:01"});
  expect_times_in_order({"2026-01-31 23:59:59", "2026-01-31 23:59:59.5", "2026-02-01 00:00:00"});
  expect_times_in_order({"2026-01-31T23:59:59+02:00", "2026-01-31T23:59:59Z",
                         "2026-01-31T23:59:59.25-01", "2026-01-31T23:59:59-0130"});
  expect_times_in_order({"Jan  9 00:00:00", "Jan 10 00:00:00", "Feb 29 12:00:00", "Mar 1 00:00:00",
                         "Dec 31 23:59:59"});
  expect_times_in_order({"Sat Jan 31 23:59:59", "Fri Feb  6 00:00:00"});
}

TEST(TimeValue, IsOfOneFormAlone) {
  const std::vector<std::string> forms = {"2026-01-31",           "23:59:59",
                                          "2026-01-31 23:59:59",  "2026-01-31T23:59:59",
                                          "2026-01-31 23:59:59Z", "2026-01-31T23:59:59Z",
                                          "Jan 31 23:59:59",      "Sat Jan 31 23:59:59"};
  for (const std::string& one : forms) {
    for (const std::string& other : forms) {
      EXPECT_EQ(read_time(one)->is_like(*read_time(other)), one == other) << one << " " << other;
    }
  }
}

TEST(TimeValue, IsNothingWhenThereIsNoSuchTime) {
  for (const std::string_view value : {"",
                                       "x",
                                       "12:30",
                                       "24:00:00",
                                       "23:60:00",
                                       "23:59:61",
                                       "2026-13-01",
                                       "2026-00-01",
                                       "2026-01-32",
                                       "2026-01-00",
                                       "2026-01-31_23:59:59",
                                       "2026-01-31T23:59",
                                       "2026-01-31 25:00:00",
                                       "23:59:59Z",
                                       "23:59:59.",
                                       "Jan 32 00:00:00",
                                       "Jan  31 00:00:00",
                                       "Jan 31 00:00:00.5",
                                       "Jan",
                                       "Jan 31",
                                       "Jan 31 ",
                                       "Sat",
                                       "Sat ",
                                       "Sat Jan",
                                       "Foo 31 00:00:00"}) {
    EXPECT_FALSE(read_time(value)) << value;
  }
}

TEST(NaturalOrder, CountsRunsOfDigitsAsNumbers) {
  const std::vector<std::string> ascending = {"",
                                              "-",
                                              "0",
                                              "00",
                                              "01",
                                              "1",
                                              "2",
                                              "9a",
                                              "10",
                                              "99999999999999999999",
                                              "100000000000000000000",
                                              "a",
                                              "a1b2",
                                              "a01b3",
                                              "a1b10",
                                              "a2",
                                              "b",
                                              "core.a7",
                                              "core.b12"};
  for (std::size_t i = 0; i < ascending.size(); ++i) {
    for (std::size_t j = 0; j < ascending.size(); ++j) {
      EXPECT_EQ(stands_naturally_before(ascending[i], ascending[j]), i < j)
          << ascending[i] << " " << ascending[j];
    }
  }
}

}  // namespace
