#include "standalone/definitions/definition_names.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using vond::standalone::spelled_depth;
using vond::standalone::spelled_parent;

TEST(SpelledParent, StandsBeforeTheLastSlash) {
  EXPECT_EQ(spelled_parent("a/b/c"), "a/b");
  EXPECT_EQ(spelled_parent("a/b"), "a");
  EXPECT_EQ(spelled_parent("a"), "");
}

TEST(SpelledParent, IsNotMadeByFurtherSlashes) {
  EXPECT_EQ(spelled_parent("a///b"), "a");
  EXPECT_EQ(spelled_parent("a/b//"), "a");
  EXPECT_EQ(spelled_parent("//a"), "");
  EXPECT_EQ(spelled_parent("a/"), "");
  EXPECT_EQ(spelled_parent("///"), "");
  EXPECT_EQ(spelled_parent(""), "");
}

TEST(SpelledDepth, CountsTheNameAndItsParents) {
  EXPECT_EQ(spelled_depth("a"), 1);
  EXPECT_EQ(spelled_depth("a/b"), 2);
  EXPECT_EQ(spelled_depth("a/b/c"), 3);
  EXPECT_EQ(spelled_depth("/a"), 1);
  EXPECT_EQ(spelled_depth("a/"), 1);
  EXPECT_EQ(spelled_depth("//a///b//"), 2);
  EXPECT_EQ(spelled_depth(""), 0);
}

TEST(SpelledDepth, HasNoLimitOfItsOwn) {
  std::string name = "a";
  for (int level = 1; level < 1000; ++level) {
    name += "/a";
  }
  EXPECT_EQ(spelled_depth(name), 1000);
}

}  // namespace
