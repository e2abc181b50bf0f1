#include "standalone/json/json_fault.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using vond::standalone::find_json_fault;
using vond::standalone::MAX_JSON_DEPTH;

/// Returns "OFFSET: MESSAGE" or "".
std::string fault_of(std::string_view text) {
  const auto fault = find_json_fault(text, "line");
  return fault ? std::to_string(fault->offset) + ": " + fault->message : "";
}

struct Case {
  std::string text;
  std::string fault;
};

TEST(JsonFault, IsNoneInJson) {
  for (const char* text : {"{}", "[]", "0", "-0", "-1.5e+10", "1E-2", "10", "true", "false", "null",
                           "\"\"", " \t\r\n{ \"a\" : [ 1 , { } , [ ] , \"x\" ] , \"\" : null } \n",
                           R"("\"\\\/\b\f\n\r\t\u00e4\ud83d\ude00")", "\"\xC3\xA4\x7f\"", "1e400",
                           "123456789012345678901234567890"}) {
    EXPECT_EQ(fault_of(text), "") << text;
  }
}

TEST(JsonFault, TellsWhatTheTextLacksAtItsEnd) {
  const Case cases[] = {
      {"", "0: found the end of the line, expected a JSON value"},
      {"{", "1: found the end of the line, expected a key in double quotes or \"}\""},
      {"{\"a\"", "4: found the end of the line after the key, expected \":\""},
      {"{\"a\":", "5: found the end of the line, expected a JSON value"},
      {"{\"a\":1", "6: found the end of the line, expected \",\" or \"}\""},
      {"{\"a\":1,", "7: found the end of the line, expected a key in double quotes"},
      {"[", "1: found the end of the line, expected a JSON value"},
      {"[1", "2: found the end of the line, expected \",\" or \"]\""},
      {"[1,", "3: found the end of the line, expected a JSON value"},
      {"[\"ab",
       "1: found a string without end, expected a closing quote before the end of the "
       "line"},
      {"[\"ab\\",
       "1: found a string without end, expected a closing quote before the end of the "
       "line"},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(fault_of(each.text), each.fault);
  }
}

TEST(JsonFault, TellsWhatStandsInTheWrongPlace) {
  const Case cases[] = {
      {"{\"a\":1,}", "7: found \"}\", expected a key in double quotes"},
      {"{a:1}", "1: found \"a\", expected a key in double quotes or \"}\""},
      {"{'a':1}", "1: found \"'\", expected a key in double quotes or \"}\""},
      {"{\"a\" 1}", "5: found \"1\" after the key, expected \":\""},
      {"{\"a\":1 \"b\":2}", "7: found a string, expected \",\" or \"}\""},
      {"{\"a\":1]", "6: found \"]\", expected \",\" or \"}\""},
      {"{\"a\"::1}", "5: found \":\", expected a JSON value"},
      {"[1 2]", "3: found \"2\", expected \",\" or \"]\""},
      {"[1}", "2: found \"}\", expected \",\" or \"]\""},
      {"[,1]", "1: found \",\", expected a JSON value"},
      {"[1,]", "3: found \"]\", expected a JSON value"},
      {"{} {}", "3: found \"{\" after the value, expected the end of the line"},
      {"{}x", "2: found \"x\" after the value, expected the end of the line"},
      {"\xEF\xBB\xBF{}", "0: found \"\\ufeff\", expected a JSON value"},
      {"[\x01]", "1: found \"\\x01\", expected a JSON value"},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(fault_of(each.text), each.fault);
  }
}

TEST(JsonFault, TellsWrongWordsAndNumbers) {
  const Case cases[] = {
      {"[True]", "1: found \"True\", expected a JSON value; did you mean \"true\"?"},
      {"[nul]", "1: found \"nul\", expected a JSON value; did you mean \"null\"?"},
      {"[NaN]", "1: found \"NaN\", expected a JSON value"},
      {"[trueish]", "1: found \"trueish\", expected a JSON value"},
      {"[01]", "1: found \"01\", expected a number such as 7, -1, 0.5 or 1e6"},
      {"[-]", "1: found \"-\", expected a number such as 7, -1, 0.5 or 1e6"},
      {"[1.]", "1: found \"1.\", expected a number such as 7, -1, 0.5 or 1e6"},
      {"[1e+]", "1: found \"1e+\", expected a number such as 7, -1, 0.5 or 1e6"},
      {"[0x10]", "1: found \"0x10\", expected a number such as 7, -1, 0.5 or 1e6"},
      {"[.5]", "1: found \".5\", expected a JSON value"},
      {"[+5]", "1: found \"+5\", expected a JSON value"},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(fault_of(each.text), each.fault);
  }
}

TEST(JsonFault, TellsWhatStringsMustNotHold) {
  const Case cases[] = {
      {"[\"a\tb\"]",
       "3: found the control character \\x09 in a string, expected it written as \\u0009"},
      {R"(["a\qb"])",
       "3: found \\q in a string, expected a backslash before one of \" \\ / b f n r t u"},
      {"[\"\\\xC3\xA4\"]",
       "2: found \\\xC3\xA4 in a string, expected a backslash before one of "
       "\" \\ / b f n r t u"},
      {R"(["\u12G4"])", "2: found \\u12 in a string, expected \\u and four hexadecimal digits"},
      {R"(["\u12)", "2: found \\u12 in a string, expected \\u and four hexadecimal digits"},
      {R"(["a\ud800b"])",
       "3: found the lone surrogate \\ud800, expected a pair such as \\ud83d\\ude00"},
      {R"(["\ud800\u0041"])",
       "2: found the lone surrogate \\ud800, expected a pair such as \\ud83d\\ude00"},
      {R"(["\uDC00"])",
       "2: found the lone surrogate \\uDC00, expected a pair such as \\ud83d\\ude00"},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(fault_of(each.text), each.fault);
  }
}

TEST(JsonFault, TellsFirstThatTheTextIsNoText) {
  EXPECT_EQ(fault_of("[x\xFF"), "2: found the byte 0xff, expected text in UTF-8");
  EXPECT_EQ(fault_of("[\"\xED\xA0\x80\"]"), "2: found the byte 0xed, expected text in UTF-8");
  EXPECT_EQ(fault_of("[\"\xC0\xAF\"]"), "2: found the byte 0xc0, expected text in UTF-8");
  EXPECT_EQ(fault_of("[\"\xE2\x80"), "2: found the byte 0xe2, expected text in UTF-8");
  EXPECT_EQ(fault_of(std::string("x\0y", 3)), "1: found a NUL byte, expected text in UTF-8");
}

TEST(JsonFault, LimitsTheDepth) {
  const auto nested = [](int depth) {
    const auto count = static_cast<std::size_t>(depth);
    return std::string(count, '[') + std::string(count, ']');
  };
  EXPECT_EQ(fault_of(nested(MAX_JSON_DEPTH)), "");
  EXPECT_EQ(fault_of(nested(MAX_JSON_DEPTH + 1)),
            "1024: found arrays and objects within each other, expected at most 1024 levels of "
            "them");
  EXPECT_EQ(fault_of(nested(1'000'000)).substr(0, 5), "1024:");
}

}  // namespace
