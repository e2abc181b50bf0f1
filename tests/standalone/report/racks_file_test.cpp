#include "standalone/report/racks_file.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <vector>

#include "standalone/input/input_error.h"
#include "tests/standalone/support/test_input.h"

namespace {

using testing::ElementsAre;
using vond::standalone::InputError;
using vond::standalone::read_racks;
using vond::test::TestFile;

/// Returns the racks as "name: node node".
std::vector<std::string> racks_in(std::string_view text) {
  std::vector<std::string> texts;
  for (const auto& [name, nodes] : read_racks(TestFile(text).path())) {
    std::string& rack = texts.emplace_back(name + ":");
    for (const std::string& node : nodes) {
      rack += " " + node;
    }
  }
  return texts;
}

std::string error_in(std::string_view text) {
  const TestFile file(text);
  try {
    read_racks(file.path());
  } catch (const InputError& error) {
    return file.without_path(error.what());
  }
  return "no error";
}

TEST(RacksFile, HasARackAndItsNodesALineInTheOrderOfTheFile) {
  EXPECT_THAT(racks_in("r2 n[3-4]\nr1\tn1, n2\r\n"), ElementsAre("r2: n3 n4", "r1: n1 n2"));
}

TEST(RacksFile, SkipsBlankLinesAndComments) {
  EXPECT_THAT(racks_in("# Row A\n\n  r1   n1  # the gateway\n"), ElementsAre("r1: n1"));
}

TEST(RacksFile, RackMayHaveSeveralLinesAndNameANodeTwice) {
  EXPECT_THAT(racks_in("r1 n2\nr2 n3\nr1 n[1-2]\n"), ElementsAre("r1: n1 n2", "r2: n3"));
}

TEST(RacksFile, NodeInTwoRacksIsAnError) {
  EXPECT_EQ(error_in("r1 n[1-3]\nr2 n[3-4]\n"),
            "FILE:2:4: node \"n3\" is in rack \"r1\" already, expected each node in one rack");
}

TEST(RacksFile, RackWithoutNodesIsAnError) {
  EXPECT_EQ(error_in("r1 n1\nr2\n"),
            "FILE:2:3: found the end of the line, expected the nodes of rack \"r2\"");
  EXPECT_EQ(error_in("r2  # nobody\n"),
            "FILE:1:3: found the end of the line, expected the nodes of rack \"r2\"");
}

TEST(RacksFile, FaultInANodeSetIsNamedWithItsPlace) {
  EXPECT_EQ(error_in("r1 n1\n r2 n[3-\n"),
            "FILE:2:9: found the end of the node set, expected a number");
}

TEST(RacksFile, FileWithoutARackIsAnError) {
  EXPECT_EQ(error_in("# none\n"),
            "FILE: has no rack, expected a file of racks, \"RACK NODESET\" a line");
}

TEST(RacksFile, NamesAreHarmless) {
  EXPECT_THAT(racks_in("r\x1b[1m n1\n"), ElementsAre(testing::Not(testing::HasSubstr("\x1b"))));
}

}  // namespace
