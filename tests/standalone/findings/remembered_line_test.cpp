// That lines which are recognised tell what parsing them would tell is judged through the reader,
// in repeated_findings_test.cpp.

#include "standalone/findings/remembered_line.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "standalone/findings/finding_parser.h"
#include "standalone/input/line_reader.h"

namespace {

using vond::standalone::Finding;
using vond::standalone::FindingParser;
using vond::standalone::LineReader;
using vond::standalone::OwnedWording;
using vond::standalone::RememberedLine;

/// A parser that has read a line, which goes with it.
class ParsedLine {
 public:
  explicit ParsedLine(const std::string& line)
      : text_(line + std::string(LineReader::PADDING, ' ')), size_(line.size()), parser_(false) {
    parser_.parse(text());
  }
  std::string_view text() const { return std::string_view(text_).substr(0, size_); }
  const FindingParser& parser() const { return parser_; }

 private:
  std::string text_;
  std::size_t size_;
  FindingParser parser_;
};

bool can_remember(const std::string& line) {
  const ParsedLine parsed(line);
  return RememberedLine::can_remember(parsed.text(), parsed.parser());
}

std::string line_of(const std::string& node, const std::string& row_id) {
  return R"({"id":"i","severity":80,"type":"diagnosis","category":"c\u0041","message":"m",)"
         R"("remedy":"r","nodes":[")" +
         node + R"("],"row_ids":[)" + row_id + R"(],"definitions":["d","e"],"based_on":["x"]})";
}

TEST(RememberedLine, RecognisesNothingBeforeItRemembersSomething) {
  RememberedLine remembered;
  EXPECT_EQ(remembered.read(line_of("n1", "1")), nullptr);
}

TEST(RememberedLine, KeepsEveryTextWhenTheLineIsGone) {
  RememberedLine remembered;
  OwnedWording expected;
  {
    const auto parsed = std::make_unique<ParsedLine>(line_of("n1", "1"));
    expected = owned(parsed->parser().finding().wording);
    remembered.remember(parsed->text(), parsed->parser(), 7);
  }
  const std::string line = line_of("n2", "22");
  const Finding* const finding = remembered.read(line);
  ASSERT_NE(finding, nullptr);
  const auto& [wording, nodes, row_ids, count, first_seen, wording_number, pattern_number, values] =
      *finding;
  EXPECT_EQ(wording, expected);
  EXPECT_EQ(nodes, std::vector<std::string_view>{"n2"});
  EXPECT_EQ(row_ids, std::vector<int>{22});
  EXPECT_EQ(count, 1U);
  EXPECT_EQ(first_seen, std::nullopt);
  EXPECT_EQ(wording_number, 7U);
  EXPECT_EQ(pattern_number, Finding::UNKNOWN_PATTERN);
  EXPECT_TRUE(values.empty());
}

TEST(RememberedLine, IsNotTakenForAnother) {
  RememberedLine remembered;
  const ParsedLine parsed(line_of("n1", "1"));
  remembered.remember(parsed.text(), parsed.parser(), 7);
  for (const std::string& line :
       {line_of("", "1"), line_of("n[1-2]", "1"), line_of("n\\u0031", "1"), line_of("n1", "-1"),
        line_of("n1", "01"), line_of("n1", "1234567890"), line_of("n1", ""), line_of("n1", "1,2"),
        line_of("n1", "1") + " ", line_of("n1", "1").substr(1), std::string()}) {
    EXPECT_EQ(remembered.read(line), nullptr) << line;
  }
  const std::string again = line_of("n1", "1");
  EXPECT_NE(remembered.read(again), nullptr);
}

TEST(RememberedLine, GivesWayToTheNextOne) {
  RememberedLine remembered;
  const ParsedLine first(line_of("n1", "1"));
  const ParsedLine second(R"({"id":"other","severity":1,"nodes":"n1"})");
  remembered.remember(first.text(), first.parser(), 1);
  remembered.remember(second.text(), second.parser(), 2);
  EXPECT_EQ(remembered.read(first.text()), nullptr);
  const std::string line = R"({"id":"other","severity":1,"nodes":"n5"})";
  const Finding* const finding = remembered.read(line);
  ASSERT_NE(finding, nullptr);
  EXPECT_EQ(finding->wording.id, "other");
  EXPECT_EQ(finding->wording_number, 2U);
  EXPECT_TRUE(finding->row_ids.empty());
  EXPECT_TRUE(finding->wording.definitions.empty());
}

TEST(RememberedLine, CanBeALineOfOnePlainNodeAndAtMostOneRowId) {
  EXPECT_TRUE(can_remember(line_of("n1", "1")));
  EXPECT_TRUE(can_remember(line_of("n1", "")));
  EXPECT_FALSE(can_remember(line_of("n1", "1,2")));
  EXPECT_FALSE(can_remember(line_of("n[1-2]", "1")));
  EXPECT_FALSE(can_remember(line_of("n[1]", "1"))) << "the name stands in the set's own memory";
  EXPECT_FALSE(can_remember(line_of("n\\u0031", "1")));
  EXPECT_FALSE(can_remember(R"({"id":"i","severity":1})"));
}

TEST(RememberedLine, CanBeNoneWithAnUnknownKeyWhichIsToBeCounted) {
  EXPECT_FALSE(can_remember(R"({"id":"i","severity":1,"nodes":"n1","other":1})"));
  EXPECT_TRUE(can_remember(R"({"id":"i","severity":1,"nodes":"n1","x-note":1})"));
}

TEST(RememberedLine, CanBeNoneThatIsLong) {
  const std::string start = R"({"id":"i","severity":1,"nodes":"n1","message":")";
  const std::string end = "\"}";
  const std::size_t around = start.size() + end.size();
  EXPECT_TRUE(can_remember(start + std::string(1024 - around, 'm') + end));
  EXPECT_FALSE(can_remember(start + std::string(1025 - around, 'm') + end));
}

}  // namespace
