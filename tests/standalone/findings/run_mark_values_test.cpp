// Judged through the parser, which hands values to it.
#include "standalone/findings/run_mark_values.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "standalone/findings/line_parser.h"
#include "standalone/input/line_reader.h"

namespace {

using vond::standalone::FindingParser;
using vond::standalone::LineParser;
using vond::standalone::LineReader;

/// Reads one line. What it told lives as long as this.
class Parsed {
 public:
  explicit Parsed(const std::string& line)
      : text_(line + std::string(LineReader::PADDING, '"')),
        fault_(parser_.parse(std::string_view(text_).substr(0, line.size()))) {}

  const FindingParser& result() const { return parser_.result(); }
  /// "OFFSET: MESSAGE", "" when there is none.
  std::string fault() const {
    return fault_ ? std::to_string(fault_->offset) + ": " + fault_->message : std::string();
  }

 private:
  std::string text_;
  LineParser parser_{false};
  std::optional<vond::standalone::JsonFault> fault_;
};

TEST(RunMarks, ABeginTellsWhenAndWhereFindingsWereCollected) {
  const Parsed line(
      R"({"begin": {"format": 1, "written": "2025-11-21T04:30:00Z", "parts": ["r7", "r8"]}})");
  ASSERT_EQ(line.fault(), "");
  EXPECT_EQ(line.result().kind(), FindingParser::Kind::BEGIN);
  EXPECT_EQ(line.result().begin().written_at, 1763699400);
  EXPECT_EQ(line.result().begin().parts, (std::vector<std::string>{"r7", "r8"}));
}

TEST(RunMarks, ABeginNeedNotNameParts) {
  const Parsed line(R"({"begin": {"written": "1970-01-01T00:00:00Z", "format": 1}})");
  ASSERT_EQ(line.fault(), "");
  EXPECT_TRUE(line.result().begin().parts.empty());
}

TEST(RunMarks, AnEndTellsWhatWasThere) {
  const Parsed line(
      R"({"end": {"findings": 63, "examined": 66, "lines_rejected": 2, "complete": true}})");
  ASSERT_EQ(line.fault(), "");
  EXPECT_EQ(line.result().kind(), FindingParser::Kind::END);
  EXPECT_EQ(line.result().end().findings, 63U);
  EXPECT_EQ(line.result().end().lines_rejected, 2U);
  EXPECT_TRUE(line.result().end().is_complete);
}

TEST(RunMarks, AnEndNeedNotKnowWhoWasExamined) {
  for (const char* text : {R"({"end": {"findings": 0, "complete": false}})",
                           R"({"end": {"findings": 0, "examined": null, "complete": false}})"}) {
    const Parsed line(text);
    ASSERT_EQ(line.fault(), "");
    EXPECT_FALSE(line.result().end().is_complete);
  }
}

TEST(RunMarks, KeysThatALaterFormatMayHaveAreIgnored) {
  EXPECT_EQ(
      Parsed(R"({"end": {"findings": 0, "complete": true, "new": {"a": [1, null]}}})").fault(), "");
}

TEST(RunMarks, WhatIsNoBeginIsRefused) {
  const std::string written = R"("written":"2025-11-21T04:30:00Z")";
  EXPECT_EQ(Parsed(R"({"begin":1})").fault(), "9: begin is 1, expected an object");
  EXPECT_EQ(Parsed(R"({"begin":{}})").fault(),
            R"(9: the key "format" is missing, expected it in every "begin")");
  EXPECT_EQ(Parsed(R"({"begin":{"format":1}})").fault(),
            R"(9: the key "written" is missing, expected it in every "begin")");
  EXPECT_EQ(Parsed(R"({"begin":{"format":2,)" + written + "}}").fault(),
            "19: begin.format is 2, expected 1, the one that this program knows");
  EXPECT_EQ(Parsed(R"({"begin":{"format":1,"written":"today"}})").fault(),
            R"(31: begin.written is "today", expected a time such as "2025-11-21T04:30:00Z")");
  EXPECT_EQ(Parsed(R"({"begin":{"format":1,"written":5}})").fault(),
            R"(31: begin.written is 5, expected a time such as "2025-11-21T04:30:00Z")");
  EXPECT_EQ(Parsed(R"({"begin":{"format":1,)" + written + R"(,"parts":"r7"}})").fault(),
            R"(62: begin.parts is "r7", expected an array of strings)");
  EXPECT_EQ(Parsed(R"({"begin":{"format":1,)" + written + R"(,"parts":[""]}})").fault(),
            R"(63: begin.parts[0] is "", expected a string that is not empty)");
}

TEST(RunMarks, WhatIsNoEndIsRefused) {
  EXPECT_EQ(Parsed(R"({"end":[]})").fault(), "7: end is an array, expected an object");
  EXPECT_EQ(Parsed(R"({"end":{"complete":true}})").fault(),
            R"(7: the key "findings" is missing, expected it in every "end")");
  EXPECT_EQ(Parsed(R"({"end":{"findings":1}})").fault(),
            R"(7: the key "complete" is missing, expected it in every "end")");
  EXPECT_EQ(Parsed(R"({"end":{"findings":-1,"complete":true}})").fault(),
            "19: end.findings is -1, expected a whole number from 0 to 9007199254740991");
  EXPECT_EQ(Parsed(R"({"end":{"findings":1,"complete":1}})").fault(),
            "32: end.complete is 1, expected true or false");
  EXPECT_EQ(Parsed(R"({"end":{"findings":1,"examined":"3","complete":true}})").fault(),
            R"(32: end.examined is "3", expected a whole number from 0 to 9007199254740991)");
}

TEST(RunMarks, AKeyStandsOnce) {
  EXPECT_NE(Parsed(R"({"end":{"findings":1,"findings":1,"complete":true}})").fault(), "");
  EXPECT_NE(Parsed(R"({"end":{"findings":1,"x":1,"x":1,"complete":true}})").fault(), "");
}

TEST(RunMarks, BothNeedLinesOfTheirOwn) {
  const std::string end = R"("end":{"findings":1,"complete":true})";
  const std::string expected =
      ": found the key \"end\" in one object with others, expected a line of its own for \"end\"";
  EXPECT_EQ(Parsed(R"({"id":"a","severity":1,)" + end + "}").fault(), "23" + expected);
  EXPECT_EQ(Parsed("{" + end + R"(,"id":"a"})").fault(),
            "38: found the key \"id\" in one object with others, expected a line of its own for "
            "\"end\"");
  EXPECT_EQ(Parsed(R"({"examined":"n",)" + end + "}").fault(),
            "16: found the key \"end\" in one object with others, expected a line of its own for "
            "\"examined\"");
}

}  // namespace
