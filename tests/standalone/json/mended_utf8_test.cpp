#include "standalone/json/mended_utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using vond::standalone::MendedUtf8;

TEST(MendedUtf8, HasEscapesThatStringsReadAsWhatIsShown) {
  MendedUtf8 mended;
  mended.mend("\"caf\xE9\"", 8);
  EXPECT_EQ(mended.text(), R"("caf\\xe9")");
  EXPECT_EQ(mended.first_replaced(), 4U);
}

TEST(MendedUtf8, KeepsWhatIsUtf8) {
  MendedUtf8 mended;
  mended.mend("\xC3\xA4\xC3\\\xE2\x82", 0);
  EXPECT_EQ(mended.text(), "\xC3\xA4\\\\xc3\\\\\\xe2\\\\x82");
}

TEST(MendedUtf8, MapsEveryPlaceBack) {
  MendedUtf8 mended;
  mended.mend(
      "ab\xE9"
      "c\xFF\xFE"
      "d",
      8);
  //           ab\\xe9 c \\xff \\xfe d
  const std::size_t originals[] = {0, 1, 2, 2, 2, 2, 2, 3, 4, 4, 4, 4, 4, 5, 5, 5, 5, 5, 6, 7};
  ASSERT_EQ(mended.text().size() + 1, std::size(originals));
  for (std::size_t offset = 0; offset < std::size(originals); ++offset) {
    EXPECT_EQ(mended.original_offset(offset), originals[offset]) << offset;
  }
}

TEST(MendedUtf8, ForgetsTheTextBefore) {
  MendedUtf8 mended;
  mended.mend("\xFF\xFF\xFF", 8);
  mended.mend("a\xE9", 0);
  EXPECT_EQ(mended.text(), "a\\\\xe9");
  EXPECT_EQ(mended.original_offset(1), 1U);
}

}  // namespace
