// A report of many findings, for what shows only in the mass of them.
#include <gtest/gtest.h>

#include <string>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

/// Returns `count` findings that make 50 issues on many nodes, ten of them diagnoses that rest on
/// observations, so that issues refer to each other.
std::string many_findings(int count) {
  constexpr int CHECKS = 50;
  constexpr int DIAGNOSES = 10;
  std::string text;
  for (int number = 0; number < count; ++number) {
    const int check = number % CHECKS;
    text += R"({"id":"c)" + std::to_string(check) + R"(","severity":)" + std::to_string(2 * check);
    if (check < DIAGNOSES) {
      text += R"(,"type":"diagnosis","based_on":["c)" + std::to_string(check + DIAGNOSES) + "\"]";
    }
    text += R"(,"nodes":"n)" + std::to_string(number / CHECKS) + R"(","row_ids":[)" +
            std::to_string(number) + R"(],"definitions":["a/b"]})" + "\n";
  }
  return text;
}

// Under the address sanitizer the program looks for leaks at its end; what it finds makes the exit
// status another one and is told on standard error.
TEST(ScaleTest, AMillionFindingsLeakNothing) {
  const TemporaryFolder folder;
  const Outcome outcome = run({folder.write("findings", many_findings(1'000'000))});
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.output.find("  Findings read: 1000000,"), std::string::npos);
  EXPECT_NE(outcome.output.find("(appears on 20000 nodes)\n"), std::string::npos);
}

}  // namespace
}  // namespace vond::test
