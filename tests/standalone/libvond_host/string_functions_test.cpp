#include <gtest/gtest.h>

#include "vond/postprocessor/string_interface.h"
#include "vond/postprocessor/utility_functions.h"
#include "vond/str/string_functions.h"

namespace {

using vond::postprocessor::StringInterface;
using vond::postprocessor::UtilityFunctions;

TEST(Upper, ChangesAsciiLettersAlone) {
  EXPECT_EQ(vond::str::upper("aZ-9\xC3\xA4"), "AZ-9\xC3\xA4");
}

TEST(Rstrip, RemovesAllTrailingCharactersOfTheSet) {
  EXPECT_EQ(vond::str::rstrip("a, b, ,", ", "), "a, b");
  EXPECT_EQ(vond::str::rstrip(", ,", ", "), "");
  EXPECT_EQ(vond::str::rstrip("ab", ""), "ab");
}

TEST(GetDigits, CountsDecimalDigits) {
  const UtilityFunctions utilities;
  EXPECT_EQ(utilities.GetDigits(1), 1);
  EXPECT_EQ(utilities.GetDigits(9), 1);
  EXPECT_EQ(utilities.GetDigits(10), 2);
  EXPECT_EQ(utilities.GetDigits(99), 2);
  EXPECT_EQ(utilities.GetDigits(2147483647), 10);
}

TEST(GetUsableId, DropsTheQualifierAndBlanksAroundTheRest) {
  EXPECT_EQ(UtilityFunctions::get_usable_id("disk-full"), "disk-full");
  EXPECT_EQ(UtilityFunctions::get_usable_id(" disk full #sda#1"), "disk full");
  EXPECT_EQ(UtilityFunctions::get_usable_id(" disk "), "disk");
}

TEST(GetUsableId, IsTheIdItselfWhenNothingWouldBeLeft) {
  EXPECT_EQ(UtilityFunctions::get_usable_id("#sda"), "#sda");
  EXPECT_EQ(UtilityFunctions::get_usable_id("  #sda"), "  #sda");
  EXPECT_EQ(UtilityFunctions::get_usable_id(" "), " ");
  EXPECT_EQ(UtilityFunctions::get_usable_id(""), "");
}

TEST(GetShortName, IsTheTextAfterTheLastSlash) {
  const StringInterface strings;
  EXPECT_EQ(strings.get_short_name("network/fabric/links"), "links");
  EXPECT_EQ(strings.get_short_name("network"), "network");
  EXPECT_EQ(strings.get_short_name("/network"), "network");
}

TEST(GetShortName, DropsTrailingSlashesFirst) {
  const StringInterface strings;
  EXPECT_EQ(strings.get_short_name("network/fabric//"), "fabric");
  EXPECT_EQ(strings.get_short_name("//"), "//");
  EXPECT_EQ(strings.get_short_name(""), "");
}

TEST(RemoveEndl, TurnsStretchesWithALineEndIntoOneSpace) {
  const StringInterface strings;
  EXPECT_EQ(strings.remove_endl("a \t\r\n\n b\rc"), "a b c");
}

TEST(RemoveEndl, DropsSuchStretchesAtBothEnds) {
  const StringInterface strings;
  EXPECT_EQ(strings.remove_endl(" \n a\n"), "a");
  EXPECT_EQ(strings.remove_endl("\n"), "");
}

TEST(RemoveEndl, LeavesATextWithoutLineEndsAlone) {
  const StringInterface strings;
  EXPECT_EQ(strings.remove_endl("  a \t b  "), "  a \t b  ");
  EXPECT_EQ(strings.remove_endl(""), "");
}

}  // namespace
