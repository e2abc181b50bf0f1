#include "standalone/input/line_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/standalone/support/test_input.h"

namespace {

using vond::standalone::InputFile;
using vond::standalone::LineReader;
using vond::test::TestFile;

/// Returns "NUMBER:COLUMN:TEXT" of each line, "NUMBER:too long" of long ones.
std::vector<std::string> lines_of(const std::string& content, std::size_t longest_line = 1000) {
  const TestFile input(content);
  InputFile file(input.path(), "a file");
  LineReader reader(file, longest_line);
  LineReader::Line line;
  std::vector<std::string> lines;
  while (reader.next(line)) {
    lines.push_back(std::to_string(line.number) + ":" +
                    (line.is_too_long
                         ? "too long"
                         : std::to_string(line.column) + ":" + std::string(line.text)));
  }
  EXPECT_EQ(reader.bytes_read(), content.size());
  return lines;
}

using Lines = std::vector<std::string>;

TEST(LineReader, FindsNoLineInAnEmptyFile) { EXPECT_EQ(lines_of(""), Lines{}); }

TEST(LineReader, EndsLinesWithLfAndCrlf) {
  EXPECT_EQ(lines_of("a\nb\r\n\n\r\nc\rd\n"),
            (Lines{"1:1:a", "2:1:b", "3:1:", "4:1:", "5:1:c\rd"}));
}

TEST(LineReader, TakesALastLineWithoutEnd) {
  EXPECT_EQ(lines_of("a\nb"), (Lines{"1:1:a", "2:1:b"}));
  EXPECT_EQ(lines_of("a\nb\r"), (Lines{"1:1:a", "2:1:b"}));
}

TEST(LineReader, SkipsAByteOrderMarkAtTheStartOnly) {
  EXPECT_EQ(lines_of("\xEF\xBB\xBF"
                     "a\n\xEF\xBB\xBF"
                     "b\n"),
            (Lines{"1:4:a",
                   "2:1:\xEF\xBB\xBF"
                   "b"}));
  EXPECT_EQ(lines_of("\xEF\xBB\xBF"), Lines{"1:4:"});
  EXPECT_EQ(lines_of("\xEF\xBB"), Lines{"1:1:\xEF\xBB"});
}

TEST(LineReader, LimitsTheTextAndNotWhatStandsAroundIt) {
  EXPECT_EQ(lines_of("\xEF\xBB\xBF"
                     "1234\r\n12345\n1234",
                     4),
            (Lines{"1:4:1234", "2:too long", "3:1:1234"}));
  EXPECT_EQ(lines_of("12345\r\n", 4), Lines{"1:too long"});
  EXPECT_EQ(lines_of("12345", 4), Lines{"1:too long"});
}

TEST(LineReader, GoesOnBehindALineOfAnyLength) {
  const std::string long_line(3'000'000, 'x');
  EXPECT_EQ(lines_of("a\n" + long_line + "\nb\n", 10), (Lines{"1:1:a", "2:too long", "3:1:b"}));
  EXPECT_EQ(lines_of(long_line, 10), Lines{"1:too long"});
}

TEST(LineReader, HandsOutTheSameLinesWhereverItsBlocksEnd) {
  std::string content;
  Lines expected;
  for (std::size_t length = 0; length < 1200; ++length) {
    const std::string text(length, static_cast<char>('a' + length % 26));
    content += text + (length % 3 == 0 ? "\r\n" : "\n");
    expected.push_back(std::to_string(length + 1) + ":1:" + text);
  }
  content += std::string(700'000, 'z');
  expected.push_back("1201:1:" + std::string(700'000, 'z'));
  EXPECT_EQ(lines_of(content, 1'000'000), expected);
}

TEST(LineReader, KeepsHowTheFileBegins) {
  const std::string text = "\xEF\xBB\xBF" + std::string(300'000, 'x');
  const TestFile input(text);
  InputFile file(input.path(), "a file");
  LineReader reader(file, 10);
  EXPECT_EQ(reader.beginning(), "");
  LineReader::Line line;
  while (reader.next(line)) {
  }
  EXPECT_EQ(reader.beginning(), text.substr(0, LineReader::BEGINNING));
}

}  // namespace
