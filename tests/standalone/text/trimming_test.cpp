#include "standalone/text/trimming.h"

#include <gtest/gtest.h>

namespace {

using vond::standalone::trimmed;

TEST(Trimmed, LeavesTextWithoutWhiteSpaceAtItsEndsAlone) {
  EXPECT_EQ(trimmed(""), "");
  EXPECT_EQ(trimmed("a"), "a");
  EXPECT_EQ(trimmed("a \n b"), "a \n b");
  EXPECT_EQ(trimmed("\xC3\xA4 \xC3\xA4"), "\xC3\xA4 \xC3\xA4");
}

TEST(Trimmed, CutsWhiteSpaceAndLineEndsOfUnicode) {
  EXPECT_EQ(trimmed(" \t\r\n\v\fa\f\v\n\r\t "), "a");
  EXPECT_EQ(trimmed("\xC2\xA0\xE2\x80\x83 a \xE3\x80\x80"), "a");
  EXPECT_EQ(trimmed("\xE2\x80\xA8"
                    "a"
                    "\xE2\x80\xA9\xC2\x85"),
            "a");
}

TEST(Trimmed, OfNothingButWhiteSpaceIsEmpty) {
  EXPECT_EQ(trimmed("   "), "");
  EXPECT_EQ(trimmed("\xC2\xA0"), "");
}

TEST(Trimmed, KeepsWhatIsNoWhiteSpace) {
  // A control character, a joiner, bytes that are not UTF-8.
  for (const char* text : {"\x1b", "\xE2\x80\x8B", "\x80", "\xA0", "\xE2\x80", "a\xC2"}) {
    EXPECT_EQ(trimmed(text), text);
  }
}

}  // namespace
