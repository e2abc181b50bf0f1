// Files that tell which nodes stand together.
#include <gtest/gtest.h>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

constexpr char FINDINGS[] = "{\"id\": \"a\", \"severity\": 10, \"nodes\": \"n[1-3]\"}\n";

class RacksTest : public testing::Test {
 protected:
  Outcome run_on_findings(const std::vector<std::string>& arguments) const {
    return Command(arguments).input(FINDINGS).in_folder(folder.path()).run();
  }

  TemporaryFolder folder;
};

TEST_F(RacksTest, GroupTheNodesOfThePage) {
  folder.write("racks", "west n3\neast n[1-2]\n");
  const Outcome outcome = run_on_findings({"--racks", "racks", "--extension", "html"});
  const std::size_t west = outcome.output.find("<bdi>west</bdi>: 1 node<");
  EXPECT_NE(west, std::string::npos);
  EXPECT_LT(west, outcome.output.find("<bdi>east</bdi>: 2 nodes<"));
}

TEST_F(RacksTest, ChangeNothingOfTheTextReport) {
  folder.write("racks", "west n3\neast n[1-2]\n");
  EXPECT_EQ(run_on_findings({"--racks", "racks"}).output, run_on_findings({}).output);
}

TEST_F(RacksTest, ErrorsNameFileLineAndColumn) {
  folder.write("racks", "west n3\neast n[1-\n");
  expect_error(run_on_findings({"--racks", "racks"}), 2,
               "racks:2:10: found the end of the node set, expected a number");
}

TEST_F(RacksTest, OnStandardInputThatTheFindingsNeedAreAUsageError) {
  expect_error(run_on_findings({"--racks", "-"}), 2,
               "--racks is \"-\", but standard input is read by something else, too; see "
               "vond-report --help");
}

TEST_F(RacksTest, MayNotBeAnOutput) {
  folder.write("racks", "west n3\n");
  const Outcome outcome = run_on_findings({"--racks", "racks", "--output", "racks"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_NE(outcome.errors.find("--output is \"racks\""), std::string::npos) << outcome.errors;
}

}  // namespace
}  // namespace vond::test
