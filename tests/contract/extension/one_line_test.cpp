#include "vond/extension/one_line.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using vond::extension::one_line;

TEST(OneLine, OfALineIsTheLine) {
  for (const char* text : {"", " ", "a", "  two  blanks  ", "caf\u00e9 \u65e5\u672c", "~"}) {
    EXPECT_EQ(one_line(text), text);
  }
}

TEST(OneLine, WhiteSpaceWithALineEndIsOneBlank) {
  EXPECT_EQ(one_line("a\nb"), "a b");
  EXPECT_EQ(one_line("a \t\r\n\n  b  c"), "a b  c");
  EXPECT_EQ(one_line("a\rb\vc\fd"), "a b c d");
  EXPECT_EQ(one_line("a\u0085b\u2028c\u2029d"), "a b c d");
}

TEST(OneLine, LineEndsAtItsEndsGoWithTheirBlanks) {
  EXPECT_EQ(one_line("\n"), "");
  EXPECT_EQ(one_line(" \n a\n \n"), "a");
  EXPECT_EQ(one_line("\u00e9 "), "\u00e9 ");
  EXPECT_EQ(one_line("  \u00e9"), "  \u00e9");
}

TEST(OneLine, TabsBecomeBlanks) { EXPECT_EQ(one_line("\ta\tb\t"), " a b "); }

TEST(OneLine, WhatSteersATerminalIsReplaced) {
  EXPECT_EQ(one_line("\x1b[0m\x7f\b"), "\uFFFD[0m\uFFFD\uFFFD");
  EXPECT_EQ(one_line(std::string("a\0z", 3)), "a\uFFFDz");
  EXPECT_EQ(one_line("\u0080\u0084\u0086\u009f\u00a0"), "\uFFFD\uFFFD\uFFFD\uFFFD\u00a0");
}

TEST(OneLine, WhatCannotBeSeenOrTurnsTextIsReplaced) {
  for (const char* text :
       {"\u00ad", "\u061c", "\u200b", "\u200e", "\u200f", "\u202a", "\u202e", "\u2060", "\u2066",
        "\u206f", "\ufeff", "\ufff9", "\ufffb", "\U000e0001", "\U000e0fff"}) {
    EXPECT_EQ(one_line(text), "\uFFFD") << testing::PrintToString(text);
  }
  for (const char* text : {"\u200a", "\u2010", "\u202f", "\u205f", "\u2070", "\ufffc"}) {
    EXPECT_EQ(one_line(text), text);
  }
}

TEST(OneLine, BytesThatAreNoUtf8AreReplaced) { EXPECT_EQ(one_line("a\xFF\nz"), "a\uFFFD z"); }

}  // namespace
