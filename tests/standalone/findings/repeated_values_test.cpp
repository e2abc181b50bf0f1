// A reader recognises lines that repeat earlier ones with other values. What it tells of them must
// be what a reader tells that sees the line for the first time, and their values those of the
// pattern of their texts.

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/findings/findings_reader.h"
#include "standalone/patterns/text_pattern.h"
#include "tests/standalone/support/test_input.h"

namespace {

using vond::standalone::Finding;
using vond::standalone::FindingsReader;
using vond::standalone::FindingsSink;
using vond::standalone::TextPattern;
using vond::test::TestFile;
using Texts = std::vector<std::string>;

/// All that a finding tells, a part a line.
std::string text_of(const Finding& finding) {
  const auto& [type, id, severity, texts, definitions, based_on] = finding.wording;
  std::string text = std::to_string(type) + "\n" + std::to_string(severity);
  for (const auto part : {id, texts.category, texts.message, texts.remedy}) {
    text.append("\n").append(part);
  }
  for (const auto* parts : {&finding.nodes, &definitions, &based_on}) {
    text += "\n";
    for (const auto part : *parts) {
      text.append(part).append(";");
    }
  }
  return text + "\n" + (finding.row_ids.empty() ? "" : std::to_string(finding.row_ids[0]));
}

/// Records findings, and checks what their numbers promise.
class Recorder : public FindingsSink {
 public:
  void finding(const Finding& finding) override {
    texts.push_back(text_of(finding));
    is_recognised.push_back(finding.pattern_number != Finding::UNKNOWN_PATTERN ||
                            finding.wording_number != Finding::UNKNOWN_WORDING);
    has_wording_number.push_back(finding.wording_number != Finding::UNKNOWN_WORDING);
    if (finding.wording_number != Finding::UNKNOWN_WORDING) {
      const auto wording = owned(finding.wording);
      EXPECT_EQ(wordings_.try_emplace(finding.wording_number, wording).first->second, wording);
    }
    if (finding.pattern_number != Finding::UNKNOWN_PATTERN) {
      check_values(finding);
    }
  }
  void examined(const std::vector<std::string_view>& /*nodes*/) override {}

  Texts texts;
  std::vector<bool> is_recognised;
  std::vector<bool> has_wording_number;

 private:
  void check_values(const Finding& finding) {
    const auto& [message, remedy, category] = finding.wording.texts;
    TextPattern pattern;
    pattern.read(finding.nodes.at(0), {message, remedy});
    const Texts expected(pattern.values().begin(), pattern.values().end());
    EXPECT_EQ(Texts(finding.values.begin(), finding.values.end()), expected) << texts.back();
    const std::string text(pattern.pattern());
    EXPECT_EQ(patterns_.try_emplace(finding.pattern_number, text).first->second, text)
        << texts.back();
  }

  std::map<std::uint64_t, vond::standalone::OwnedWording> wordings_;
  std::map<std::uint64_t, std::string> patterns_;
};

struct Reading {
  Texts findings;
  std::vector<bool> is_recognised;
  std::vector<bool> has_wording_number;
};

Reading read(const std::string& content) {
  const TestFile file(content);
  Recorder recorder;
  FindingsReader reader(recorder);
  reader.read(file.path());
  return {recorder.texts, recorder.is_recognised, recorder.has_wording_number};
}

/// Reads the lines with one reader, and expects what a reader of each line alone tells.
Reading read_and_compare(const Texts& lines) {
  std::string content;
  Texts expected;
  for (const std::string& line : lines) {
    content += line + "\n";
    for (std::string& finding : read(line).findings) {
      expected.push_back(std::move(finding));
    }
  }
  Reading reading = read(content);
  EXPECT_EQ(reading.findings, expected);
  return reading;
}

std::string line_of(const std::string& node, const std::string& message,
                    const std::string& remedy = "") {
  return R"({"id": "a-check-with-a-rather-long-name", "severity": 50, "message": ")" + message +
         R"(", "remedy": ")" + remedy + R"(", "nodes": [")" + node + R"("], "row_ids": [7]})";
}

/// Whether `line` is recognised behind two lines like the `first` one. Expects it to be read right
/// in any case.
bool is_recognised(const std::string& first, const std::string& line) {
  const Reading reading = read_and_compare({first, first, line});
  return reading.is_recognised.size() == 3 && reading.is_recognised[2];
}

bool is_message_recognised(const std::string& first, const std::string& message) {
  return is_recognised(line_of("n1", first), line_of("n2", message));
}

// ---- Values ------------------------------------------------------------------------------------

TEST(RepeatedValues, MayBeAnyPlainWordsWithADigit) {
  for (const char* value : {"7", "1234567", "-3", "0x7f", "7%", "sda1", "12.5GB", "a-b_c/9#~&"}) {
    EXPECT_TRUE(is_message_recognised("at 86 C", std::string("at ") + value + " C")) << value;
    EXPECT_TRUE(is_message_recognised("86", value)) << value;
  }
}

TEST(RepeatedValues, AreRecognisedFromTheThirdLineOn) {
  const Reading reading = read_and_compare({line_of("n1", "GPU 1 at 80 C.", "Look at n1."),
                                            line_of("n2", "GPU 1 at 80 C.", "Look at n2."),
                                            line_of("n3", "GPU 2 at 91 C.", "Look at n3."),
                                            line_of("n44", "GPU 13 at 7 C.", "Look at n44.")});
  EXPECT_EQ(reading.is_recognised, (std::vector<bool>{false, false, true, true}));
}

TEST(RepeatedValues, ThatAreNoValuesAreParsed) {
  for (const char* word : {"", "x", "5\xC2\xB0", "\\u0035", "5\\u00b0", "5\\\\", "5\x7F", "(5)",
                           "5 6", "5,", ",5", "5,6x,7", "'5'", "5;", "5|6"}) {
    EXPECT_FALSE(is_message_recognised("at 86 C", std::string("at ") + word + " C")) << word;
  }
}

TEST(RepeatedValues, DoNotHoldWhatEndsASentence) {
  EXPECT_TRUE(is_message_recognised("at 86.", "at 9.5."));
  EXPECT_TRUE(is_message_recognised("at ?86!", "at ?9!"));
  for (const char* text : {"at 86", "at 86..", "at ..86.", "at 86!", "at !86."}) {
    EXPECT_FALSE(is_message_recognised("at 86.", text)) << text;
    EXPECT_FALSE(is_message_recognised(text, "at 86.")) << text;
  }
}

TEST(RepeatedValues, MayBeginWithThePointOfANumber) {
  for (const char* value : {".5", ".12C", ".5.log", "5", "x.5"}) {
    EXPECT_TRUE(is_message_recognised("at 86 C", std::string("at ") + value + " C")) << value;
    EXPECT_TRUE(is_message_recognised("at .86 C", std::string("at ") + value + " C")) << value;
    EXPECT_TRUE(is_message_recognised("at ?.86", std::string("at ?") + value)) << value;
  }
  EXPECT_TRUE(is_message_recognised(".86", ".5"));
}

TEST(RepeatedValues, LeaveAPointToTheTextWhereItIsNotOfANumber) {
  EXPECT_TRUE(is_message_recognised("at .x5", "at .y7"));
  for (const char* text : {"at .7", "at .5x", "at ..7", "at .:7", "at x7"}) {
    EXPECT_FALSE(is_message_recognised("at .x5", text)) << text;
    EXPECT_FALSE(is_message_recognised(text, "at .x5")) << text;
  }
  for (const char* text : {"at 7", "at .7", "at ..7", "at ...7", "at ....7"}) {
    EXPECT_FALSE(is_message_recognised("at ..5", text)) << text;
    EXPECT_FALSE(is_message_recognised("at ...5", text)) << text;
  }
}

TEST(RepeatedValues, GoOnBehindACommaBetweenDigits) {
  EXPECT_TRUE(is_message_recognised("at 1,200 rpm", "at 12,345,678 rpm"));
  EXPECT_TRUE(is_message_recognised("at 1,200 rpm", "at 900 rpm"));
  EXPECT_TRUE(is_message_recognised("x1,y2", "x3,y4"));
  EXPECT_FALSE(is_message_recognised("x1,y2", "3,4"));
  EXPECT_FALSE(is_message_recognised("x1,y2", "x3,4"));
  EXPECT_TRUE(is_message_recognised("at 5, 6", "at 7, 8"));
}

TEST(RepeatedValues, AreNoPartsOfADate) {
  EXPECT_TRUE(is_message_recognised("from 5 6 on", "from 7 8 on"));
  EXPECT_FALSE(is_message_recognised("from 5 6 on", "from 2026-01-31 23:59:59 on"));
  EXPECT_FALSE(is_message_recognised("from 5 6 on", "from 2026-01-31 23:59:59.5Z on"));
  EXPECT_FALSE(is_message_recognised("on Jan 5 6", "on Jan 31 23:59:59"));
  EXPECT_FALSE(is_message_recognised("on Mon Jan  5 6", "on Mon Jan  3 23:59:59"));
  EXPECT_FALSE(is_message_recognised("on Jan 31 23:59:59", "on Jan 30 23:59:59"));
  EXPECT_FALSE(is_message_recognised("on Jan 31 23:59:59", "on Jan 5 6"));
  EXPECT_TRUE(is_message_recognised("at 23:59:59", "at 01:02:03"));
  EXPECT_TRUE(is_message_recognised("2026-01-31, 23:59:59", "2026-01-30, 01:02:03"));
}

// ---- The own node ------------------------------------------------------------------------------

TEST(RepeatedValues, StandBesideTheOwnNodeInTheSameForm) {
  const std::string full = line_of("n1.site", "n1.site is at 5", "Ask n1.site.");
  EXPECT_TRUE(is_recognised(full, line_of("n22.else", "n22.else is at 6", "Ask n22.else.")));
  EXPECT_TRUE(is_recognised(full, line_of("n22", "n22 is at 6", "Ask n22.")));
  EXPECT_FALSE(is_recognised(full, line_of("n2.site", "n2 is at 6", "Ask n2.")));
  EXPECT_FALSE(is_recognised(full, line_of("n2.site", "n2.site is at 6", "Ask n3.site.")));
  EXPECT_FALSE(is_recognised(full, line_of("n2.site", "n3.site is at 6", "Ask n3.site.")));
  const std::string brief = line_of("n1.site", "n1 is at 5", "Ask n1.");
  EXPECT_TRUE(is_recognised(brief, line_of("n22.else", "n22 is at 6", "Ask n22.")));
  EXPECT_FALSE(is_recognised(brief, line_of("n2", "n2 is at 6", "Ask n2.")));
  EXPECT_FALSE(is_recognised(brief, line_of("n2.site", "n2.site is at 6", "Ask n2.site.")));
}

TEST(RepeatedValues, DoNotHideTheFullNameWhereTheShortOneStood) {
  const std::string first = line_of("n1.site", "n1.else is at 5");
  EXPECT_TRUE(is_recognised(first, line_of("n2.site", "n2.else is at 6")));
  EXPECT_FALSE(is_recognised(first, line_of("n2.else", "n2.else is at 6")));
}

TEST(RepeatedValues, DoNotHoldTheOwnNode) {
  EXPECT_FALSE(is_message_recognised("on n9", "on n2"));
  EXPECT_FALSE(is_message_recognised("on n9-4", "on n2-4"));
  const std::string first = line_of("n1.site", "on n7.site");
  EXPECT_FALSE(is_recognised(first, line_of("n2.site", "on n2.site")));
  EXPECT_FALSE(is_recognised(first, line_of("n2.else", "on n2.site")));
  EXPECT_TRUE(is_recognised(first, line_of("n2.else", "on n3.site")));
  EXPECT_FALSE(is_recognised(line_of("n1", "n1-4 at 5"), line_of("n2", "n2-4 at 6")));
}

TEST(RepeatedValues, OfANodeThatOtherTextMayNameAreParsed) {
  const std::string first = line_of("n1", "the login is at 5");
  EXPECT_FALSE(is_recognised(first, line_of("login", "the login is at 6")));
  EXPECT_FALSE(is_recognised(first, line_of("login.site1", "the login is at 6")));
  EXPECT_FALSE(is_recognised(first, line_of("is at", "the login is at 6")));
  EXPECT_TRUE(is_recognised(first, line_of("login1", "the login is at 6")));
}

TEST(RepeatedValues, MayBeThoseOfANodeWithoutLettersThatIsNoName) {
  EXPECT_TRUE(is_recognised(line_of("n1", "at 5"), line_of("17", "at 6")));
  EXPECT_TRUE(is_recognised(line_of("n1", "at 5"), line_of("17", "at 17")));
  EXPECT_FALSE(is_recognised(line_of("n1", "n1 at 5"), line_of("17", "17 at 6")));
}

// ---- The line ----------------------------------------------------------------------------------

TEST(RepeatedValues, KeepTheNumberOfTheWordingWhileTheyAreTheSame) {
  const Reading reading =
      read_and_compare({line_of("n1", "at 5"), line_of("n2", "at 5"), line_of("n3", "at 5"),
                        line_of("n4", "at 6"), line_of("n5", "at 5"), line_of("n6", "n6")});
  EXPECT_EQ(reading.has_wording_number,
            (std::vector<bool>{false, false, true, false, true, false}));
}

TEST(RepeatedValues, ComeFromTextsWithoutEscapesAlone) {
  EXPECT_TRUE(is_recognised(line_of("n1",
                                    "gr\xC3\xB6\xC3\x9F"
                                    "er: 5"),
                            line_of("n2",
                                    "gr\xC3\xB6\xC3\x9F"
                                    "er: 6")));
  EXPECT_FALSE(is_recognised(line_of("n1", "a\\n5"), line_of("n2", "a\\n6")));
  EXPECT_FALSE(is_recognised(line_of("n1", "5", "\\\"5\\\""), line_of("n2", "6", "\\\"6\\\"")));
}

TEST(RepeatedValues, MayStandInAnyOrderOfKeys) {
  const auto line = [](const std::string& node, const std::string& value) {
    return R"({"id":"a-check-with-a-name","definitions":["a/check"],"nodes":")" + node +
           R"(","remedy":"  Ask )" + node + R"(.  ","row_ids":[1],"message":"is )" + value +
           R"( wide","severity":1})";
  };
  EXPECT_TRUE(is_recognised(line("n1", "5"), line("n2", "61")));
}

// ---- Sweep -------------------------------------------------------------------------------------

/// Draws lines that are alike, and sometimes are not.
class LineSource {
 public:
  explicit LineSource(unsigned seed) : random_(seed) {}

  void draw_form() {
    message_ = draw_text();
    remedy_ = draw_text();
    node_place_ = random_() % 4;
  }

  std::string draw_line() {
    node_ =
        one_of({"n1", "n12", "n2", "cn9.site", "n1.site", "n2.org", "n1.x7", "1n", "a-1", "a1-a1"});
    if (random_() % 4 == 0) {
      node_ = one_of({"login", "login.site", "at", "12", "7.example", "a.b1", ".x1", "x:1", "n1.",
                      "a(1", "n=1", "Jan", "n1:", "5"});
    }
    const std::string node = R"("nodes":[")" + node_ + "\"],";
    const auto node_at = [&](unsigned place) { return place == node_place_ ? node : ""; };
    return "{" + node_at(0) + R"("id":"a-check-with-a-name","severity":50,)" + node_at(1) +
           R"("category":"c","message":")" + filled(message_) + R"(","remedy":")" +
           filled(remedy_) + "\"," + node_at(2) + node_at(3) + R"("row_ids":[)" +
           std::to_string(random_() % 1000) + "]}";
  }

 private:
  std::string one_of(const Texts& texts) { return texts[random_() % texts.size()]; }

  std::string draw_text() {
    std::string text;
    for (auto parts = random_() % 8; parts > 0; --parts) {
      text += one_of({"%", "%", "%", "N", "S", "N", "N-%", "S.site", "5", "at", "login", "Jan",
                      "Mon", "is x", "(%)", "N:/x", "%%", "\xC3\xA4"});
      text += one_of(
          {" ", " ", " ", " ", " .", " ..", ", ", ",", ": ", ".", ". ", "=", "  ", "-", "_", ""});
    }
    return text;
  }

  /// Puts values for `%`, the node for `N` and its short form for `S`.
  std::string filled(const std::string& text) {
    std::string result;
    for (const char letter : text) {
      result += letter == '%'   ? draw_value()
                : letter == 'N' ? node_
                : letter == 'S' ? node_.substr(0, node_.find('.'))
                                : std::string(1, letter);
    }
    return result;
  }

  std::string draw_value() {
    if (random_() % 3 != 0) {
      return std::to_string(random_() % 100);
    }
    return one_of({".5",  ".25", ".x5",       "..5",        "86.5",     "1,200",
                   "-3",  "7C",  "x7",        "2026-01-31", "23:59:59", "31",
                   "5:",  ".5",  "?5!",       "1,",         ",1",       "a,5",
                   "5,a", "n1",  "n12-3",     "n2",         "cn9",      "n1_",
                   "a",   "",    "5\xC2\xB0", "\\n3",       "\\\\4",    "\\u0035",
                   "a1",  "1n1", "a1-a1-a1",  "3 4",        "site",     "12:00:00.5"});
  }

  std::mt19937 random_;
  std::string message_;
  std::string remedy_;
  std::string node_;
  /// Before the id, before the texts or behind them.
  unsigned node_place_ = 0;
};

TEST(RepeatedValues, AreThoseOfEveryLineReadAlone) {
  std::size_t recognised = 0;
  for (unsigned seed = 1; seed <= 300; ++seed) {
    LineSource source(seed);
    source.draw_form();
    Texts lines;
    for (int line = 0; line < 15; ++line) {
      lines.push_back(source.draw_line());
    }
    for (const bool is_recognised : read_and_compare(lines).is_recognised) {
      recognised += is_recognised ? 1 : 0;
    }
    ASSERT_FALSE(HasFailure()) << seed;
  }
  EXPECT_GT(recognised, 500U);
}

}  // namespace
