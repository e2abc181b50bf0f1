// No text from input steers the terminal of whoever reads the report or its messages.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <sstream>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

struct Range {
  unsigned first;
  unsigned last;
};

/// Characters that steer a terminal, turn the direction of text, or take no room.
constexpr Range HOSTILE[] = {
    {0x00, 0x1F},       {0x7F, 0x9F},       {0xAD, 0xAD},      {0x61C, 0x61C},   {0x180E, 0x180E},
    {0x200B, 0x200F},   {0x2028, 0x202E},   {0x2060, 0x206F},  {0xFEFF, 0xFEFF}, {0xFFF9, 0xFFFB},
    {0x1D173, 0x1D17A}, {0xE0001, 0xE0001}, {0xE0020, 0xE007F}};

bool is_hostile(unsigned code_point) {
  for (const auto& [first, last] : HOSTILE) {
    if (first <= code_point && code_point <= last) {
      return code_point != '\n';
    }
  }
  return false;
}

std::vector<unsigned> hostile_characters() {
  std::vector<unsigned> characters;
  for (const auto& [first, last] : HOSTILE) {
    for (unsigned character = first; character <= last; ++character) {
      characters.push_back(character);
    }
  }
  return characters;
}

std::string utf8(unsigned code_point) {
  const auto byte = [](unsigned value) { return static_cast<char>(value); };
  const auto rest = [&](unsigned shift) { return byte(0x80 | ((code_point >> shift) & 0x3F)); };
  if (code_point < 0x80) {
    return {byte(code_point)};
  }
  if (code_point < 0x800) {
    return {byte(0xC0 | (code_point >> 6)), rest(0)};
  }
  if (code_point < 0x10000) {
    return {byte(0xE0 | (code_point >> 12)), rest(6), rest(0)};
  }
  return {byte(0xF0 | (code_point >> 18)), rest(12), rest(6), rest(0)};
}

std::string json_escape(unsigned code_point) {
  char text[16];
  if (code_point < 0x10000) {
    std::snprintf(text, sizeof text, "\\u%04x", code_point);
  } else {
    const unsigned offset = code_point - 0x10000;
    std::snprintf(text, sizeof text, "\\u%04x\\u%04x", 0xD800 | (offset >> 10),
                  0xDC00 | (offset & 0x3FF));
  }
  return text;
}

/// Returns the code points of a UTF-8 text; a byte that is none comes as one of C1.
std::vector<unsigned> code_points(const std::string& text) {
  std::vector<unsigned> points;
  for (std::size_t at = 0; at < text.size();) {
    const auto byte = [&](std::size_t i) {
      return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
    };
    const unsigned lead = byte(at);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC0 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                                             : 4;
    unsigned point = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
      point = (point << 6) | (byte(at + i) & 0x3F);
    }
    points.push_back(length == 0 ? 0x80 : point);
    at += length == 0 ? 1 : length;
  }
  return points;
}

void expect_harmless(const std::string& text) {
  for (const unsigned point : code_points(text)) {
    ASSERT_FALSE(is_hostile(point)) << "U+" << std::hex << point << " in\n" << text;
  }
}

void expect_harmless(const Outcome& outcome) {
  expect_harmless(outcome.output);
  expect_harmless(outcome.errors);
  EXPECT_LE(outcome.status, 3) << outcome.errors;
}

/// A place for text in a line of findings.
struct Place {
  const char* name;
  /// The line around the text.
  const char* before;
  const char* after;
};

/// Where a text of any kind is good.
constexpr Place FREE_PLACES[] = {
    {"Id", R"({"severity": 90, "id": ")", R"("})"},
    {"Category", R"({"id": "a", "severity": 90, "category": ")", R"("})"},
    {"Message", R"({"id": "a", "severity": 90, "message": ")", R"("})"},
    {"Remedy", R"({"id": "a", "severity": 90, "remedy": ")", R"("})"},
    {"Node", R"({"id": "a", "severity": 90, "nodes": ")", R"("})"},
    {"NodeOfMany", R"({"id": "a", "severity": 90, "nodes": ["n1", ")", R"("]})"},
    {"Definition", R"({"id": "a", "severity": 90, "definitions": [")", R"("]})"},
    {"BasedOn", R"({"id": "a", "type": "diagnosis", "severity": 90, "based_on": [")", R"("]})"},
};

constexpr Place STRICT_PLACES[] = {
    {"Examined", R"({"examined": ")", R"("})"},
    {"NodeSet", R"({"id": "a", "severity": 90, "nodes": "n[1-2]x)", R"("})"},
    {"BadNodeSet", R"({"id": "a", "severity": 90, "nodes": "n[1-)", R"("})"},
    {"Severity", R"({"id": "a", "severity": ")", R"("})"},
    {"Type", R"({"id": "a", "severity": 90, "type": ")", R"("})"},
    {"UnknownKey", R"({"id": "a", "severity": 90, ")", R"(": 1})"},
    {"ValueOfUnknownKey", R"({"id": "a", "severity": 90, "k": ")", R"("})"},
    {"OutsideOfStrings", R"({"id": "a", "severity": 90, )", R"(})"},
    {"WholeLine", "", ""},
};

void PrintTo(const Place& place, std::ostream* stream) { *stream << place.name; }

class HostileTextTest : public ::testing::TestWithParam<Place> {
 protected:
  std::string line(const std::string& text) const {
    return GetParam().before + text + GetParam().after + "\n";
  }

  /// Feeds every character, so few at a time that every message about them is seen.
  void feed_all(const std::function<std::string(unsigned)>& write_character) const {
    constexpr std::size_t SHOWN_MESSAGES = 10;
    const std::vector<unsigned> characters = hostile_characters();
    for (std::size_t first = 0; first < characters.size(); first += SHOWN_MESSAGES) {
      std::string input;
      for (std::size_t i = first; i < std::min(first + SHOWN_MESSAGES, characters.size()); ++i) {
        input += line("x" + write_character(characters[i]) + "y");
      }
      expect_harmless(Command({}).input(input).run());
    }
  }
};

class FreeTextTest : public HostileTextTest {};

TEST_P(HostileTextTest, NoCharacterComesOutRaw) { feed_all(utf8); }

TEST_P(HostileTextTest, NoEscapedCharacterComesOut) { feed_all(json_escape); }

TEST_P(HostileTextTest, BytesThatAreNoUtf8DoNotComeOut) {
  for (const char* bytes :
       {"\x80", "\x9B", "\xC0\x9B", "\xC2", "\xED\xA0\x80", "\xF5\x80\x80\x80"}) {
    expect_harmless(Command({}).input(line(bytes)).run());
  }
}

TEST_P(FreeTextTest, CharactersAreShownAsEscapes) {
  const Outcome outcome =
      Command({"-w", "0"}).input(line(R"(a\u001bc\u009b\u007f\u202eb\u200bc\udb40\udc01d)")).run();
  EXPECT_NE(outcome.output.find(R"(a\x1bc\x9b\x7f\u202eb\u200bc\U000e0001d)"), std::string::npos);
  EXPECT_EQ(outcome.errors, "");
}

TEST_P(FreeTextTest, NoCharacterComesOutRawFromAnyOutput) {
  std::string input;
  for (const unsigned character : hostile_characters()) {
    input += line("x" + json_escape(character) + "y");
  }
  for (const std::string& output : output_names()) {
    SCOPED_TRACE(output);
    Outcome outcome = Command({"-e", output}).input(input).run();
    if (output == "list") {
      std::erase(outcome.output, '\t');
    }
    expect_harmless(outcome);
    EXPECT_EQ(outcome.status, 1);
  }
}

TEST_P(FreeTextTest, AListHasSixFieldsALineWhateverStandsInThem) {
  const std::string hostile = R"(\t\n\r\u000b\u2028\u0085;\")";
  std::istringstream lines(Command({"-e", "list"}).input(line("a" + hostile + "z")).run().output);
  std::size_t count = 0;
  for (std::string text; std::getline(lines, text); ++count) {
    EXPECT_EQ(std::count(text.begin(), text.end(), '\t'), 5) << text;
  }
  EXPECT_EQ(count, 1U);
}

TEST_P(HostileTextTest, NoLineOfTheReportCanBeForged) {
  for (const char* line_end :
       {R"(\n)", R"(\r\n)", R"(\r)", R"(\u2028)", R"(\u0085)", R"(\u000b)"}) {
    const std::string text = std::string("a") + line_end + "End of report. Verdict: PASS";
    const std::string output = Command({"-w", "0"}).input(line(text)).run().output;
    EXPECT_EQ(output.find("\nEnd of report"), output.rfind("\nEnd of report"));
  }
}

std::string name_of(const ::testing::TestParamInfo<Place>& place) { return place.param.name; }

INSTANTIATE_TEST_SUITE_P(Free, HostileTextTest, ::testing::ValuesIn(FREE_PLACES), name_of);
INSTANTIATE_TEST_SUITE_P(Strict, HostileTextTest, ::testing::ValuesIn(STRICT_PLACES), name_of);
INSTANTIATE_TEST_SUITE_P(Free, FreeTextTest, ::testing::ValuesIn(FREE_PLACES), name_of);

class HostileDefinitionsTest : public ::testing::Test {
 protected:
  Outcome report(const std::string& definitions) {
    const std::string path = folder.write("definitions", definitions);
    return Command({"-d", path}).input(R"({"id": "a", "severity": 90})").run();
  }

  std::string with_name(const std::string& name) const {
    return R"({"definitions": [{"name": "x)" + name + R"(y"}]})";
  }

  TemporaryFolder folder;
};

TEST_F(HostileDefinitionsTest, NoNameComesOutAsItIs) {
  std::string list;
  for (const unsigned character : hostile_characters()) {
    for (const std::string& text : {utf8(character), json_escape(character)}) {
      // What JSON does not allow is an error of its own, below.
      if (character < 0x20 && text.size() == 1) {
        continue;
      }
      if (character == 0) {
        continue;
      }
      const std::string number = std::to_string(list.size());
      list += std::string(list.empty() ? "" : ", ") + R"({"name": ")" + number + text + "\"}";
    }
  }
  const Outcome outcome = report("{\"definitions\": [" + list + "]}");
  expect_harmless(outcome);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(HostileDefinitionsTest, NoNameThatIsRefusedComesOutAsItIs) {
  for (unsigned character = 0; character < 0x20; ++character) {
    const Outcome outcome = report(with_name(utf8(character)));
    expect_harmless(outcome);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.status, 2);
  }
  expect_harmless(report(with_name(R"(\u0000)")));
  expect_harmless(report(R"({"definitions": [{"name": "a\u001b"}, {"name": "a\u001b"}]})"));
  expect_harmless(report(R"({"definitions": [{"name": "a\u001b", "skipped": "\u009b"}]})"));
}

TEST_F(HostileDefinitionsTest, NoUnknownKeyComesOutAsItIs) {
  for (const unsigned character : {0x1BU, 0x7FU, 0x9BU, 0x202EU, 0x200BU, 0xE0001U}) {
    const Outcome outcome =
        report(R"({"definitions": [{"name": "a", "k)" + json_escape(character) + R"(": 1}]})");
    expect_harmless(outcome);
    EXPECT_NE(outcome.errors, "");
  }
}

TEST(HostileFileNamesTest, NoFileNameComesOutAsItIs) {
  const TemporaryFolder folder;
  const std::string name = "a\033[2J\xC2\x9B\xE2\x80\xAE\x9B\nb";
  const std::string good = folder.write(name, "{\"id\": \"a\", \"severity\": 1, \"key\": 1}");
  const std::string bad = folder.write(name + "2", "{");
  const std::string shown = R"(a\x1b[2J\x9b\u202e\x9b\x0ab)";
  const Outcome warned = run({"-w", "0", good});
  expect_harmless(warned);
  EXPECT_NE(warned.output.find("/" + shown + ", 2 minutes old\n"), std::string::npos);
  EXPECT_NE(warned.errors.find("/" + shown + ":1:"), std::string::npos);
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{bad},
                                                    {good + "3"},
                                                    {"-d", bad},
                                                    {"-o", good + "/x"},
                                                    {"-e", bad},
                                                    {"-o", good, good},
                                                    {"-e", good + "3"}}) {
    const Outcome outcome = run(arguments);
    expect_harmless(outcome);
    EXPECT_NE(outcome.errors.find(shown), std::string::npos) << outcome.errors;
    EXPECT_EQ(outcome.output, "");
  }
}

}  // namespace
}  // namespace vond::test
