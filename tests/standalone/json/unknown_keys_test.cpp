#include "standalone/json/unknown_keys.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using vond::standalone::is_private_key;
using vond::standalone::UnknownKeys;
using Texts = std::vector<std::string>;

TEST(UnknownKeys, WithoutAnyGiveNoWarnings) { EXPECT_EQ(UnknownKeys({"id"}).warnings(), Texts{}); }

TEST(UnknownKeys, AreCountedAndShownAtTheirFirstPlacesInTheirOrder) {
  UnknownKeys keys({});
  keys.add("zz", "FILE", 3, 14);
  keys.add("aa", "OTHER", 1, 2);
  keys.add("zz", "OTHER", 5, 6);
  EXPECT_EQ(keys.warnings(), (Texts{"FILE:3:14: unknown key \"zz\" is ignored (2 times)",
                                    "OTHER:1:2: unknown key \"aa\" is ignored (once)"}));
}

TEST(UnknownKeys, AreToldWithTheKnownKeyThatWasMeant) {
  UnknownKeys keys({"message", "remedy"});
  keys.add("mesage", "FILE", 1, 2);
  EXPECT_EQ(keys.warnings(), Texts{"FILE:1:2: unknown key \"mesage\" is ignored (once); did you "
                                   "mean \"message\"?"});
}

TEST(UnknownKeys, AreShownCutAndHarmless) {
  UnknownKeys keys({});
  keys.add("\x1b[31m", "FILE", 1, 2);
  keys.add(std::string(1000, 'k'), "FILE", 1, 9);
  const Texts warnings = keys.warnings();
  ASSERT_EQ(warnings.size(), 2U);
  EXPECT_EQ(warnings[0], "FILE:1:2: unknown key \"\\x1b[31m\" is ignored (once)");
  EXPECT_LT(warnings[1].size(), 150U);
}

TEST(UnknownKeys, MayHaveNoBytes) {
  UnknownKeys keys({"id"});
  keys.add("", "FILE", 1, 2);
  EXPECT_EQ(keys.warnings(), Texts{"FILE:1:2: unknown key \"\" is ignored (once)"});
}

TEST(UnknownKeys, OfWhichThereAreMoreThanAHundredAreCountedTogether) {
  UnknownKeys keys({});
  for (int round = 0; round < 2; ++round) {
    for (int number = 0; number < 103; ++number) {
      keys.add("key" + std::to_string(number), "FILE", 1, 2);
    }
  }
  const Texts warnings = keys.warnings();
  ASSERT_EQ(warnings.size(), 101U);
  EXPECT_EQ(warnings[99], "FILE:1:2: unknown key \"key99\" is ignored (2 times)");
  EXPECT_EQ(warnings[100], "further unknown keys are ignored (6 times)");
}

TEST(UnknownKeys, KeepCopiesOfTheirTexts) {
  UnknownKeys keys({});
  {
    const std::string key = "a key that is too long to be stored in place";
    const std::string file = "a file name that is too long to be stored in place";
    keys.add(key, file, 1, 2);
  }
  EXPECT_EQ(keys.warnings(),
            Texts{"a file name that is too long to be stored in place:1:2: unknown "
                  "key \"a key that is too long to be stored in place\" is "
                  "ignored (once)"});
}

TEST(PrivateKeys, BeginWithALowerCaseXAndADash) {
  EXPECT_TRUE(is_private_key("x-note"));
  EXPECT_TRUE(is_private_key("x-"));
  for (const char* key : {"", "x", "X-note", "xnote", " x-note", "-x"}) {
    EXPECT_FALSE(is_private_key(key)) << key;
  }
}

}  // namespace
