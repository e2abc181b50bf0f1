// Files that list the nodes that should have been looked at.
#include <gtest/gtest.h>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

constexpr char FINDINGS[] = "{\"id\": \"a\", \"severity\": 10, \"nodes\": \"n[1-2]\"}\n";

class ExpectFileTest : public testing::Test {
 protected:
  Outcome run_on_findings(const std::vector<std::string>& arguments) const {
    return Command(arguments).input(FINDINGS).in_folder(folder.path()).run();
  }

  /// Expects that a list of this text is refused.
  void expect_refused(const std::string& text, const std::string& message) const {
    folder.write("list", text);
    expect_error(run_on_findings({"--expect-file", "list"}), 2, message);
  }

  TemporaryFolder folder;
};

TEST_F(ExpectFileTest, SaysTheSameAsTheOption) {
  folder.write("compute", "# Racks 1 and 2\nn[1-2]\n\nn[3-4]  # new\n");
  folder.write("login", "login1");
  const Outcome outcome = run_on_findings(
      {"--expect-file", "compute", "--expect-file", "login", "--expect", "n5", "--examined", "n1"});
  EXPECT_EQ(outcome.output,
            run_on_findings({"--expect", "n[1-5],login1", "--examined", "n1"}).output);
  EXPECT_NE(outcome.output.find("  5 of 6 expected nodes were not examined: login1,n[2-5]\n"),
            std::string::npos);
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(ExpectFileTest, MayBeStandardInputWhenTheFindingsAreNot) {
  folder.write("findings", FINDINGS);
  const Outcome outcome =
      Command({"--expect-file", "-", "findings"}).input("n[1-3]\n").in_folder(folder.path()).run();
  EXPECT_NE(outcome.output.find("  1 of 3 expected nodes is silent: n3\n"), std::string::npos);
}

TEST_F(ExpectFileTest, OnStandardInputThatTheFindingsNeedIsAUsageError) {
  const std::string message =
      "--expect-file is \"-\", but standard input is read by something else, too; see "
      "vond-report --help";
  expect_error(run_on_findings({"--expect-file", "-"}), 2, message);
  expect_error(run_on_findings({"--expect-file", "-", "--expect-file", "-", "findings"}), 2,
               message);
}

TEST_F(ExpectFileTest, ErrorsNameFileLineAndColumn) {
  expect_refused("n1\n n[3-\n", "list:2:6: found the end of the node set, expected a number");
  expect_refused("# nobody\n", "list: names no node, expected a file of node sets");
}

TEST_F(ExpectFileTest, AGroupIsAnErrorWithAHint) {
  expect_refused("@compute\n",
                 "list:1:1: found \"@\", expected a name without it, or one in single quotes; the "
                 "nodes of a group: $(nodeset -f @compute)");
}

TEST_F(ExpectFileTest, ThatIsNotThereIsAnError) {
  expect_error(run_on_findings({"--expect-file", "gone"}), 2,
               "gone: cannot be opened (No such file or directory), expected a file of node sets");
}

TEST_F(ExpectFileTest, IsNeverReplacedByTheReport) {
  folder.write("list", "n1\n");
  expect_error(run_on_findings({"--expect-file", "list", "-o", "list"}), 2,
               "--output is \"list\", which is an input, too; see vond-report --help");
  EXPECT_EQ(read_file(folder / "list"), "n1\n");
}

TEST_F(ExpectFileTest, IsReadBeforeADestinationIsTouched) {
  folder.write("list", "n[1\n");
  EXPECT_EQ(run_on_findings({"--expect-file", "list", "-o", "report"}).status, 2);
  EXPECT_EQ(folder.names(), std::vector<std::string>{"list"});
}

}  // namespace
}  // namespace vond::test
