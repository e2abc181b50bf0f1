#include "standalone/findings/finding_keys.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using vond::standalone::find_key;
using vond::standalone::FINDING_KEY_NAMES;
using vond::standalone::finding_key_names;
using vond::standalone::FindingKey;
using vond::standalone::name_of;

TEST(FindingKeys, AreSpelledByTheirNamesInLowerCase) {
  EXPECT_EQ(name_of(FindingKey::ID), "id");
  EXPECT_EQ(name_of(FindingKey::SEVERITY), "severity");
  EXPECT_EQ(name_of(FindingKey::TYPE), "type");
  EXPECT_EQ(name_of(FindingKey::CATEGORY), "category");
  EXPECT_EQ(name_of(FindingKey::MESSAGE), "message");
  EXPECT_EQ(name_of(FindingKey::REMEDY), "remedy");
  EXPECT_EQ(name_of(FindingKey::NODES), "nodes");
  EXPECT_EQ(name_of(FindingKey::ROW_IDS), "row_ids");
  EXPECT_EQ(name_of(FindingKey::DEFINITIONS), "definitions");
  EXPECT_EQ(name_of(FindingKey::BASED_ON), "based_on");
  EXPECT_EQ(name_of(FindingKey::EXAMINED), "examined");
}

TEST(FindingKeys, AreFoundByTheirNames) {
  EXPECT_EQ(finding_key_names().size(), FINDING_KEY_NAMES.size());
  for (const std::string_view name : finding_key_names()) {
    ASSERT_TRUE(find_key(name)) << name;
    EXPECT_EQ(name_of(*find_key(name)), name);
  }
}

TEST(FindingKeys, AreNotFoundByAnythingElse) {
  for (const std::string_view name : finding_key_names()) {
    const std::string whole(name);
    for (const std::string& other : {whole + " ", " " + whole, whole + '\0', whole + "s",
                                     whole.substr(0, whole.size() - 1), whole.substr(1)}) {
      EXPECT_FALSE(find_key(other)) << other;
    }
  }
  EXPECT_FALSE(find_key(""));
  EXPECT_FALSE(find_key("ID"));
}

}  // namespace
