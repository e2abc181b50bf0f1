// The report depends on what was found, not on the order in which it was told.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

std::vector<std::string> lines_of(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

std::string join(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text.append(line).append("\n");
  }
  return text;
}

TEST(OrderTest, TheSameFindingsInAnyOrderGiveTheSameReport) {
  std::vector<std::string> lines = lines_of(read_file(EXAMPLE_FOLDER "/findings.jsonl"));
  for (const char* collapse : {"pattern", "text", "id"}) {
    Command command({"--collapse", collapse, "--definitions", EXAMPLE_FOLDER "/definitions.json"});
    const std::string report = command.input(join(lines)).run().output;
    ASSERT_NE(report, "");
    for (unsigned seed = 1; seed <= 10; ++seed) {
      std::vector<std::string> shuffled = lines;
      std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(seed));
      EXPECT_EQ(command.input(join(shuffled)).run().output, report) << "seed " << seed;
    }
  }
}

TEST(OrderTest, FindingsInSeveralFilesAreAsGoodAsInOne) {
  const std::vector<std::string> lines = lines_of(read_file(EXAMPLE_FOLDER "/findings.jsonl"));
  const auto middle = lines.begin() + static_cast<std::ptrdiff_t>(lines.size() / 2);
  const TemporaryFolder folder;
  const std::string first = folder.write("first", join({lines.begin(), middle}));
  const std::string second = folder.write("second", join({middle, lines.end()}));
  const std::string all = folder.write("all", join(lines));
  const auto body = [](const std::string& report) { return report.substr(report.find("-----")); };
  const std::string report = body(run({all}).output);
  EXPECT_EQ(body(run({first, second}).output), report);
  EXPECT_EQ(body(run({second, first}).output), report);
  EXPECT_EQ(body(Command({first, "-"}).input(join({middle, lines.end()})).run().output), report);
}

}  // namespace
}  // namespace vond::test
