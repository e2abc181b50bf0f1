#include "standalone/findings/line_parser.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "standalone/input/line_reader.h"

namespace {

using vond::standalone::FindingParser;
using vond::standalone::JsonFault;
using vond::standalone::LineParser;
using vond::standalone::LineReader;
using Views = std::vector<std::string_view>;

/// A parser that has read one line.
class Parsed {
 public:
  explicit Parsed(const std::string& line)
      : text_(line + std::string(LineReader::PADDING, '"')),
        fault_(parser_.parse(std::string_view(text_).substr(0, line.size()))) {}

  /// "OFFSET: MESSAGE", "" when there is none.
  std::string fault() const {
    return fault_ ? std::to_string(fault_->offset) + ": " + fault_->message : "";
  }
  const LineParser& parser() const { return parser_; }
  const FindingParser& result() const { return parser_.result(); }

 private:
  std::string text_;
  LineParser parser_{false};
  std::optional<JsonFault> fault_;
};

// --- Labels ---

TEST(LineParser, TheLabelIsTheNodeOfAFindingWithoutNodes) {
  for (const char* nodes : {"", R"(, "nodes": null)"}) {
    const Parsed line(R"(cn001: {"id": "a", "severity": 1)" + std::string(nodes) + "}");
    EXPECT_EQ(line.fault(), "");
    EXPECT_EQ(line.result().finding().nodes, Views{"cn001"});
    EXPECT_FALSE(line.parser().is_as_it_stands());
  }
}

TEST(LineParser, NodesOfAFindingGoBeforeTheLabel) {
  EXPECT_EQ(Parsed(R"(cn001: {"id": "a", "severity": 1, "nodes": "n2"})").result().finding().nodes,
            Views{"n2"});
  EXPECT_EQ(Parsed(R"(cn001: {"id": "a", "severity": 1, "nodes": []})").result().finding().nodes,
            Views{});
}

TEST(LineParser, AFoldedLabelIsAllItsNodes) {
  EXPECT_EQ(Parsed(R"(cn[1-2],m: {"id": "a", "severity": 1})").result().finding().nodes,
            (Views{"cn1", "cn2", "m"}));
}

TEST(LineParser, ExaminedIsTheLabelWhenItIsTrue) {
  const Parsed line(R"(cn[1-2]: {"examined": true})");
  EXPECT_EQ(line.result().kind(), FindingParser::Kind::EXAMINED);
  EXPECT_EQ(line.result().examined(), (Views{"cn1", "cn2"}));
  EXPECT_EQ(Parsed(R"(cn1: {"examined": "n2"})").result().examined(), Views{"n2"});
  EXPECT_EQ(Parsed(R"({"examined": true})").fault(),
            "13: examined is true, expected the name of a node, a set of nodes or an array of "
            "those");
  EXPECT_EQ(Parsed(R"(cn1: {"examined": false})").fault(),
            "18: cn1: examined is false, expected the name of a node, a set of nodes or an array "
            "of those");
}

TEST(LineParser, FaultsNameTheLabelAndCountFromTheStartOfTheLine) {
  EXPECT_EQ(Parsed(R"(cn1: {"id": 5})").fault(), "12: cn1: id is 5, expected a string");
  EXPECT_EQ(Parsed("cn1: {").fault(),
            "6: cn1: found the end of the line, expected a key in double quotes or \"}\"");
  EXPECT_EQ(Parsed("cn1: {}").fault(),
            "5: cn1: the key \"id\" is missing, expected it in every finding");
}

TEST(LineParser, UnknownKeysStandBehindTheLabel) {
  const Parsed line(R"(cn1: {"id": "a", "severity": 1, "zz": 1})");
  ASSERT_EQ(line.result().unknown_keys().size(), 1U);
  EXPECT_EQ(line.parser().offset_of(line.result().unknown_keys()[0].where), 32U);
}

// --- Bytes that are not UTF-8 ---

TEST(LineParser, BytesThatAreNotUtf8AreReadAsWhatIsShown) {
  const Parsed line(
      "{\"id\": \"caf\xE9\", \"severity\": 1, \"message\": \"\xFF\\n\xC3\xA4\\\\\x80\"}");
  EXPECT_EQ(line.fault(), "");
  EXPECT_EQ(line.result().finding().wording.id, "caf\\xe9");
  EXPECT_EQ(line.result().finding().wording.texts.message, "\\xff \xC3\xA4\\\\x80");
  EXPECT_EQ(line.parser().first_mended_byte(), 11U);
  EXPECT_FALSE(line.parser().is_as_it_stands());
}

TEST(LineParser, AByteBehindABackslashIsNoEscape) {
  EXPECT_EQ(Parsed("{\"id\": \"\\\xE9\", \"severity\": 1}").fault(),
            "9: found the byte 0xe9, expected text in UTF-8");
}

TEST(LineParser, PlacesBehindMendedBytesAreThoseOfTheLine) {
  EXPECT_EQ(Parsed("{\"id\": \"\xE9\xE9\", \"severity\": 500}").fault().substr(0, 19),
            "25: severity is 500");
  const Parsed line("{\"id\": \"\xE9\", \"severity\": 5, \"z\": 1}");
  ASSERT_EQ(line.result().unknown_keys().size(), 1U);
  EXPECT_EQ(line.parser().offset_of(line.result().unknown_keys()[0].where), 27U);
}

TEST(LineParser, BytesOutsideOfStringsMakeTheLineUnusable) {
  EXPECT_EQ(Parsed("{\"id\": \"a\"\xE9}").fault().substr(0, 3), "10:");
}

TEST(LineParser, LabelsAndStrangeBytesGoTogether) {
  const Parsed line("cn1: {\"id\": \"\xE9\", \"severity\": 1}");
  EXPECT_EQ(line.result().finding().nodes, Views{"cn1"});
  EXPECT_EQ(line.parser().first_mended_byte(), 13U);
}

TEST(LineParser, ALineLikeAnyOtherIsAsItStands) {
  const Parsed line("{\"id\": \"\xC3\xA4\", \"severity\": 1}");
  EXPECT_TRUE(line.parser().is_as_it_stands());
  EXPECT_EQ(line.parser().first_mended_byte(), std::nullopt);
}

}  // namespace
