#include "standalone/text/harmless_text.h"
#include "standalone/text/printable_ascii.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using vond::standalone::excerpt;
using vond::standalone::harmless;
using vond::standalone::is_harmless;
using vond::standalone::is_printable_ascii;
using vond::standalone::LineEnds;

struct Case {
  std::string text;
  std::string shown;
};

TEST(HarmlessText, ShowsWhatSteersATerminal) {
  const Case cases[] = {
      {std::string(1, '\0'), "\\x00"},
      {"\x1b[31m", "\\x1b[31m"},
      {"\x07", "\\x07"},
      {"a\x7f", "a\\x7f"},
      {"\xC2\x80\xC2\x9B", "\\x80\\x9b"},
      {"\xC2\x85", "\\x85"},
      {"\xC2\xAD", "\\xad"},
      {"\xE2\x80\xAE", "\\u202e"},
      {"\xE2\x81\xA6", "\\u2066"},
      {"\xE2\x80\x8B", "\\u200b"},
      {"\xE2\x80\x8D", "\\u200d"},
      {"\xE2\x80\xA8\xE2\x80\xA9", "\\u2028\\u2029"},
      {"\xEF\xBB\xBF", "\\ufeff"},
      {"\xEF\xBF\xB9", "\\ufff9"},
      {"\xF3\xA0\x80\x81", "\\U000e0001"},
      {"\xF3\xA0\x82\x80", "\\U000e0080"},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(harmless(each.text), each.shown);
    EXPECT_FALSE(is_harmless(each.text)) << each.shown;
  }
}

TEST(HarmlessText, ShowsBytesThatAreNotUtf8) {
  EXPECT_EQ(harmless("a\xFFz"), "a\\xffz");
  EXPECT_EQ(harmless("\xE2\x80"), "\\xe2\\x80");
  EXPECT_EQ(harmless("\xED\xA0\x80"), "\\xed\\xa0\\x80");
}

TEST(HarmlessText, TurnsATabIntoOneSpace) {
  EXPECT_EQ(harmless("a\tb\t\t"), "a b  ");
  EXPECT_FALSE(is_harmless("\t"));
}

TEST(HarmlessText, ShowsLineEndsUnlessTheyAreToBeBlanks) {
  EXPECT_EQ(harmless("a\r\nb"), "a\\x0d\\x0ab");
  EXPECT_EQ(harmless("a\r\nb\v", LineEnds::JOINED), "a b\\x0b");
  EXPECT_EQ(harmless("\n\na\rb\n", LineEnds::JOINED), " a b ");
  EXPECT_FALSE(is_harmless("\n"));
  EXPECT_FALSE(is_harmless("\r\n"));
}

TEST(HarmlessText, ShowsNoncharacters) {
  EXPECT_EQ(harmless("\xEF\xBF\xBE\xEF\xBF\xBF"), "\\ufffe\\uffff");
  EXPECT_EQ(harmless("\xEF\xB7\x90\xEF\xB7\xAF"), "\\ufdd0\\ufdef");
  EXPECT_EQ(harmless("\xF0\x9F\xBF\xBE\xF4\x8F\xBF\xBF"), "\\U0001fffe\\U0010ffff");
  EXPECT_TRUE(is_harmless("\xEF\xBF\xBD"));
  EXPECT_TRUE(is_harmless("\xEF\xB7\x8F"));
}

TEST(HarmlessText, LeavesTextAlone) {
  // Letters with marks, wide letters, an emoji with a variation selector, letters for private use.
  for (const std::string text :
       {"", "plain ~text!", "\xC3\xA4", "a\xCC\x88", "\xE6\xBC\xA2\xE5\xAD\x97",
        "\xE2\x9A\xA0\xEF\xB8\x8F", "\xEE\x80\x80", "\xF0\x9F\x98\x80", "\\x1b"}) {
    EXPECT_EQ(harmless(text), text);
    EXPECT_TRUE(is_harmless(text)) << text;
  }
}

TEST(HarmlessText, IsHarmlessAfterwards) {
  for (char32_t code_point = 0; code_point < 0x300; ++code_point) {
    std::string text = "x";
    if (code_point < 0x80) {
      text += static_cast<char>(code_point);
    } else {
      text += static_cast<char>(0xC0 | (code_point >> 6));
      text += static_cast<char>(0x80 | (code_point & 0x3F));
    }
    EXPECT_TRUE(is_harmless(harmless(text)));
    EXPECT_EQ(is_harmless(text), harmless(text) == text);
  }
}

TEST(PrintableAscii, FindsAnotherByteWhereverItStands) {
  for (std::size_t size = 0; size < 200; ++size) {
    const std::string text(size, '~');
    EXPECT_TRUE(is_printable_ascii(text));
    for (std::size_t at = 0; at < size; ++at) {
      for (const char other : {'\x1f', '\x7f', '\x80', '\xff'}) {
        std::string changed = text;
        changed[at] = other;
        EXPECT_FALSE(is_printable_ascii(changed)) << size << " " << at;
      }
    }
  }
}

TEST(Excerpt, KeepsSixtyCharacters) {
  const std::string sixty(60, 'a');
  EXPECT_EQ(excerpt(sixty), sixty);
  EXPECT_EQ(excerpt(sixty + "a"), std::string(57, 'a') + "...");
  EXPECT_EQ(excerpt(std::string(100'000, 'a')), std::string(57, 'a') + "...");
}

TEST(Excerpt, CountsCharactersAndCutsNone) {
  std::string umlauts;
  std::string cut;
  for (int i = 0; i < 61; ++i) {
    umlauts += "\xC3\xA4";
    cut += i < 57 ? "\xC3\xA4" : "";
  }
  EXPECT_EQ(excerpt(umlauts), cut + "...");
  EXPECT_EQ(excerpt(umlauts.substr(2)), umlauts.substr(2));
}

TEST(Excerpt, IsHarmless) { EXPECT_EQ(excerpt("a\x1b\n\tb"), "a\\x1b\\x0a b"); }

TEST(Excerpt, CutsWhatGrewWhenItWasMadeHarmless) {
  EXPECT_EQ(excerpt(std::string(20, '\x1b')).size(), 60U);
}

}  // namespace
