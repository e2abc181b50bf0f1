#include "standalone/text/utf8.h"

#include <gtest/gtest.h>

namespace vond::standalone {
namespace {

void expect_character(std::string_view text, std::uint32_t value, std::size_t size) {
  const Character character = first_character(text);
  EXPECT_TRUE(character.is_utf8) << text;
  EXPECT_EQ(character.value, value) << text;
  EXPECT_EQ(character.size, size) << text;
}

TEST(FirstCharacter, IsACodePointOfOneToFourBytes) {
  expect_character("a-", 'a', 1);
  expect_character("\u00e9-", 0xE9, 2);
  expect_character("\u20ac-", 0x20AC, 3);
  expect_character("\U0001F600-", 0x1F600, 4);
  expect_character(std::string_view("\0", 1), 0, 1);
}

TEST(FirstCharacter, IsASingleByteWhereTextIsNotUtf8) {
  // A byte alone, a character that is cut, one that is longer than need be, a surrogate.
  for (const std::string_view text : {"\x80", "\xE2\x82", "\xC0\x80", "\xED\xA0\x80"}) {
    const Character character = first_character(text);
    EXPECT_FALSE(character.is_utf8);
    EXPECT_EQ(character.value, static_cast<unsigned char>(text[0]));
    EXPECT_EQ(character.size, 1);
  }
}

TEST(FirstCharacters, EndBetweenCharacters) {
  EXPECT_EQ(first_characters("a\u20acb", 0), "");
  EXPECT_EQ(first_characters("a\u20acb", 2), "a\u20ac");
  EXPECT_EQ(first_characters("a\u20acb", 3), "a\u20acb");
}

TEST(CountCharacters, CountsCodePointsAndNotBytes) {
  EXPECT_EQ(count_characters(""), 0);
  EXPECT_EQ(count_characters("abc"), 3);
  EXPECT_EQ(count_characters("a\u20ac\U0001F600"), 3);
}

}  // namespace
}  // namespace vond::standalone
