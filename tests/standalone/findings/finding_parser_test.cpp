// What a finding may say and how it is refused is judged through the reader, in
// findings_reader_test.cpp: here stands what the parser promises to it.

#include "standalone/findings/finding_parser.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "standalone/input/line_reader.h"

namespace {

using vond::postprocessor::DIAGNOSES;
using vond::postprocessor::OBSERVATIONS;
using vond::standalone::BrokenJson;
using vond::standalone::Finding;
using vond::standalone::FindingParser;
using vond::standalone::LineReader;
using vond::standalone::ValueFault;
using vond::standalone::Wording;
using Views = std::vector<std::string_view>;

/// A line with the bytes behind it that may be read. They hold what would be taken for more.
class Line {
 public:
  explicit Line(const std::string& text)
      : text_(text + std::string(LineReader::PADDING, '"')), size_(text.size()) {}
  std::string_view text() const { return std::string_view(text_).substr(0, size_); }

 private:
  std::string text_;
  std::size_t size_;
};

/// Returns "OFFSET: MESSAGE", "broken" or "".
std::string fault_of(FindingParser& parser, const std::string& text) {
  const Line line(text);
  try {
    parser.parse(line.text());
  } catch (const ValueFault& fault) {
    return std::to_string(fault.where - line.text().data()) + ": " + fault.message;
  } catch (const BrokenJson&) {
    return "broken";
  } catch (const simdjson::simdjson_error&) {
    return "broken";
  }
  return "";
}

std::string fault_of(const std::string& text) {
  FindingParser parser(false);
  return fault_of(parser, text);
}

// A new key needs a place in this line, in FULL_WORDING or in the test of nodes and row ids.
const std::string FULL_LINE =
    R"({"id": "i", "severity": 80, "type": "diagnosis", "category": "c", "message": "m", )"
    R"("remedy": "r", "nodes": ["n1", "n[2-3]"], "row_ids": [3, -4], "definitions": ["d", "e"], )"
    R"("based_on": ["x", "y"], "count": 7, "first_seen": "2025-11-21T04:30:00Z", "unknown": 1, "x-note": 2})";
const Wording FULL_WORDING = {DIAGNOSES, "i", 80, {"m", "r", "c"}, {"d", "e"}, {"x", "y"}};

TEST(FindingParser, ReadsEveryKey) {
  FindingParser parser(false);
  const Line line(FULL_LINE);
  parser.parse(line.text());
  EXPECT_EQ(parser.kind(), FindingParser::Kind::FINDING);
  const auto& [wording, nodes, row_ids, count, first_seen, wording_number, pattern_number, values] =
      parser.finding();
  EXPECT_EQ(wording, FULL_WORDING);
  EXPECT_EQ(nodes, (Views{"n1", "n2", "n3"}));
  EXPECT_EQ(row_ids, (std::vector<int>{3, -4}));
  EXPECT_EQ(count, 7U);
  EXPECT_EQ(first_seen, 1763699400);
  EXPECT_EQ(wording_number, Finding::UNKNOWN_WORDING);
  EXPECT_EQ(pattern_number, Finding::UNKNOWN_PATTERN);
  EXPECT_TRUE(values.empty());
}

TEST(FindingParser, ForgetsEverythingThatTheLineBeforeTold) {
  FindingParser parser(false);
  const Line full(FULL_LINE);
  const Line least(R"({"id":"a","severity":1})");
  parser.parse(full.text());
  parser.parse(least.text());
  const auto& [wording, nodes, row_ids, count, first_seen, wording_number, pattern_number, values] =
      parser.finding();
  EXPECT_EQ(wording, (Wording{OBSERVATIONS, "a", 1, {}, {}, {}}));
  EXPECT_TRUE(nodes.empty());
  EXPECT_TRUE(row_ids.empty());
  EXPECT_EQ(count, 1U);
  EXPECT_EQ(first_seen, std::nullopt);
  EXPECT_EQ(wording_number, Finding::UNKNOWN_WORDING);
  EXPECT_EQ(pattern_number, Finding::UNKNOWN_PATTERN);
  EXPECT_TRUE(values.empty());
  EXPECT_TRUE(parser.unknown_keys().empty());
}

TEST(FindingParser, RefusesWhatIsNoTimeThatAFindingWasFirstSeen) {
  for (const char* time : {R"("2025-11-21")", R"("2025-02-30T00:00:00Z")", "5", "true"}) {
    EXPECT_EQ(fault_of(R"({"id":"a","severity":1,"first_seen":)" + std::string(time) + "}"),
              "36: first_seen is " + std::string(time) +
                  ", expected a time such as \"2025-11-21T04:30:00Z\"");
  }
}

TEST(FindingParser, ReadsHowManyFindingsALineStandsFor) {
  FindingParser parser(false);
  const auto count_in = [&parser](const std::string& count) {
    const Line line(R"({"id":"a","severity":1,"count":)" + count + "}");
    parser.parse(line.text());
    return parser.finding().count;
  };
  EXPECT_EQ(count_in("0"), 0U);
  EXPECT_EQ(count_in("400000"), 400000U);
  EXPECT_EQ(count_in("9007199254740991"), 9007199254740991U);
  EXPECT_EQ(count_in("null"), 1U);
}

TEST(FindingParser, RefusesACountThatIsNone) {
  for (const char* count : {"-1", "1.5", "9007199254740992", "\"1\"", "true"}) {
    EXPECT_EQ(fault_of(R"({"id":"a","severity":1,"count":)" + std::string(count) + "}"),
              "31: count is " + std::string(count) +
                  ", expected a whole number from 0 to 9007199254740991");
  }
}

TEST(FindingParser, ALabelIsNotTheNodeOfALineWithACount) {
  FindingParser parser(false);
  const Line counted(R"({"id":"a","severity":1,"count":1})");
  parser.parse(counted.text(), "gateway1");
  EXPECT_TRUE(parser.finding().nodes.empty());
  const Line plain(R"({"id":"a","severity":1,"count":null})");
  parser.parse(plain.text(), "gateway1");
  EXPECT_EQ(parser.finding().nodes, Views{"gateway1"});
}

TEST(FindingParser, ReadsTheNextLineAfterOneThatCannotBeUsed) {
  FindingParser parser(false);
  for (const char* bad : {R"({"id":"b","nodes":["n9"],"severity":101})", R"({"id":"b","x":01})",
                          "[", R"({"examined":["n8"],"id":"b"})"}) {
    EXPECT_NE(fault_of(parser, bad), "") << bad;
    const Line good(R"({"id":"a","severity":1})");
    parser.parse(good.text());
    EXPECT_EQ(parser.kind(), FindingParser::Kind::FINDING);
    EXPECT_EQ(parser.finding().wording.id, "a");
    EXPECT_TRUE(parser.finding().nodes.empty());
  }
}

TEST(FindingParser, KnowsLinesOfExaminedNodes) {
  FindingParser parser(false);
  const Line line(R"({"examined": ["n1", "n[2-3]"]})");
  parser.parse(line.text());
  EXPECT_EQ(parser.kind(), FindingParser::Kind::EXAMINED);
  EXPECT_EQ(parser.examined(), (Views{"n1", "n2", "n3"}));
  const Line next(R"({"examined": "n4"})");
  parser.parse(next.text());
  EXPECT_EQ(parser.examined(), Views{"n4"});
}

TEST(FindingParser, HandsOutViewsOfTheLine) {
  FindingParser parser(false);
  const Line line(R"({"id":"a","severity":1,"nodes":["n1"],"row_ids":[1, 23 ]})");
  parser.parse(line.text());
  const std::string_view text = line.text();
  EXPECT_EQ(parser.finding().wording.id.data(), text.data() + text.find('a'));
  EXPECT_EQ(parser.finding().nodes[0].data(), text.data() + text.find("n1"));
  EXPECT_EQ(parser.row_id_source(), "23");
  EXPECT_EQ(parser.row_id_source().data(), text.data() + text.find("23"));
}

TEST(FindingParser, TellsWhereUnknownKeysStand) {
  FindingParser parser(false);
  const Line line(R"({"id":"a","first":[1],"severity":1,"s\u0065cond":{},"x-note":1})");
  parser.parse(line.text());
  ASSERT_EQ(parser.unknown_keys().size(), 2U);
  EXPECT_EQ(parser.unknown_keys()[0].key, "first");
  EXPECT_EQ(parser.unknown_keys()[0].where - line.text().data(), 10);
  EXPECT_EQ(parser.unknown_keys()[1].key, "second");
}

TEST(FindingParser, KnowsKeysHoweverTheyAreWritten) {
  FindingParser parser(false);
  const Line line("{\"\\u0069\\u0064\":\"\xC3\xA4\",\"s\\u0065verity\":7}");
  parser.parse(line.text());
  EXPECT_EQ(parser.finding().wording.id, "\xC3\xA4");
  EXPECT_EQ(parser.finding().wording.severity, 7);
  EXPECT_EQ(fault_of(R"({"id":"a","\u0069d":"b"})"),
            "10: found the key \"id\" a second time, expected each key once in an object");
}

TEST(FindingParser, PointsAtWhatItRefuses) {
  EXPECT_EQ(fault_of(R"(  5)"), "2: the line is 5, expected an object with the keys of a finding");
  EXPECT_EQ(fault_of(R"( {"severity":1})"),
            "1: the key \"id\" is missing, expected it in every finding");
  EXPECT_EQ(fault_of(R"({"id":"a","severity":1,"row_ids":[1,"2"]})"),
            "36: row_ids[1] is \"2\", expected a whole number from -2147483648 to 2147483647");
}

TEST(FindingParser, TakesNoMoreThanOneObject) {
  for (const char* text : {R"({"id":"a","severity":1} {})", R"({"id":"a","severity":1}])",
                           R"({"id":"a","severity":1)", R"({"id":"a")"}) {
    EXPECT_EQ(fault_of(text), "broken") << text;
  }
  EXPECT_EQ(fault_of("{\"id\":\"a\",\"severity\":1} \t\r"), "");
}

TEST(FindingParser, LimitsTheDepthOfDefinitionsThatArePaths) {
  std::string path = "d";
  for (int level = 1; level < 257; ++level) {
    path += "/d";
  }
  const std::string line = R"({"id":"a","severity":1,"definitions":[")" + path + "\"]}";
  FindingParser paths(true);
  FindingParser names(false);
  EXPECT_NE(fault_of(paths, line).find("expected a path of at most 256 parts"), std::string::npos);
  EXPECT_EQ(fault_of(names, line), "");
}

TEST(FindingParser, ReadsLinesOfAnyLengthInAnyOrder) {
  FindingParser parser(false);
  for (const std::size_t size : {10U, 5000U, 3U, 3'000'000U, 100U, 4'000'000U}) {
    const std::string message(size, 'm');
    const Line line(R"({"id":"a","severity":1,"message":")" + message + "\"}");
    parser.parse(line.text());
    EXPECT_EQ(parser.finding().wording.texts.message, message);
  }
}

}  // namespace
