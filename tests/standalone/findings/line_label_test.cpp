#include "standalone/findings/line_label.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using vond::standalone::LabelledLine;
using vond::standalone::split_label;

std::string label_of(const std::string& line) {
  const LabelledLine parts = split_label(line);
  EXPECT_TRUE(line.ends_with(parts.object));
  EXPECT_TRUE(parts.label.empty() ? parts.object == line : parts.object.starts_with("{"));
  return std::string(parts.label);
}

TEST(LineLabel, IsWhatToolsPrintBeforeTheObject) {
  EXPECT_EQ(label_of("cn001: {}"), "cn001");
  EXPECT_EQ(label_of("cn-1_a.cluster.example: {\"a: {\": 1}"), "cn-1_a.cluster.example");
  EXPECT_EQ(label_of("  cn001:   {}"), "cn001");
  EXPECT_EQ(label_of("fe80::1: {}"), "fe80::1");
}

TEST(LineLabel, MayBeAFoldedSet) {
  EXPECT_EQ(label_of("cn[001-003],login1: {}"), "cn[001-003],login1");
  EXPECT_EQ(label_of("cn[001-: {}"), "");
  EXPECT_EQ(label_of("cn[2-1]: {}"), "");
}

TEST(LineLabel, IsNothingElse) {
  for (const char* line : {"", "{}", " {\"a\": {}}", "cn001", "cn001:", "cn001:{}", "cn001 {}",
                           ": {}", "a b: {}", "[\"a: {\"]", "'a': {}", "-a: {}", "@group: {}",
                           "cn\xC3\xA9: {}", "cn001: [1]", "a\t: {}"}) {
    EXPECT_EQ(label_of(line), "") << line;
  }
}

}  // namespace
