// A process that may not have the memory it needs tells so; it never writes a report cut short.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

#ifdef VOND_HAS_MIMALLOC
constexpr bool HAS_MIMALLOC = true;
#else
constexpr bool HAS_MIMALLOC = false;
#endif

constexpr std::size_t MEBIBYTE = std::size_t{1} << 20;

class MemoryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (is_under_address_sanitizer()) {
      GTEST_SKIP() << "the sanitizer needs the address space";
    }
  }

  /// Runs with more and more memory and expects a message until there is enough for the report.
  void expect_all_or_nothing(const std::string& findings) {
    const std::string path = folder.write("findings", findings);
    const std::string report = run({path}).output;
    std::size_t limit = least_memory();
    for (; limit < MOST_MEMORY; limit += MEBIBYTE) {
      const Outcome outcome = Command({path, "-o", folder / "output"}).memory_limit(limit).run();
      if (outcome.status == 1) {
        EXPECT_EQ(outcome.output.size(), report.size()) << limit;
        EXPECT_EQ(outcome.errors, "");
        EXPECT_EQ(read_file(folder / "output"), report);
        break;
      }
      EXPECT_EQ(outcome.status, 3) << limit;
      // The loader of libraries has its own words when there is room for all but the extension.
      EXPECT_THAT(outcome.errors, ::testing::AnyOf(::testing::HasSubstr("out of memory"),
                                                   ::testing::HasSubstr("failed to map segment")));
      EXPECT_EQ(folder.names(), std::vector<std::string>{"findings"}) << limit;
    }
    EXPECT_LT(limit, MOST_MEMORY);
  }

  /// Returns how much the program needs to start and to load its libraries.
  std::size_t least_memory() {
    std::size_t limit = MEBIBYTE;
    while (Command({}).input(R"({"id": "a", "severity": 10})").memory_limit(limit).run().status !=
           0) {
      if (limit > MOST_MEMORY) {
        throw std::runtime_error("the program does not start");
      }
      limit += MEBIBYTE / 2;
    }
    return limit;
  }

  TemporaryFolder folder;

 private:
  static constexpr std::size_t MOST_MEMORY = 256 * MEBIBYTE;
};

TEST_F(MemoryTest, ManyFindings) {
  std::string findings;
  for (int i = 0; i < 5000; ++i) {
    findings += R"({"id": "id)" + std::to_string(i) + R"(", "severity": 90, "nodes": "n)" +
                std::to_string(i) + "\", \"message\": \"" + std::string(300, 'm') + "\"}\n";
  }
  expect_all_or_nothing(findings);
}

TEST_F(MemoryTest, AMessageThatIsLargerThanAllElse) {
  std::string message;
  for (int i = 0; i < 200000; ++i) {
    message += "word ";
  }
  expect_all_or_nothing(R"({"id": "a", "severity": 90, "message": ")" + message + "\"}");
}

TEST_F(MemoryTest, ManyNodes) {
  expect_all_or_nothing(R"({"id": "a", "severity": 90, "nodes": "n[1-20000]"})");
}

TEST_F(MemoryTest, TheFirstOfAllComesInLargePages) {
  if (!HAS_MIMALLOC) {
    GTEST_SKIP() << "mimalloc is not here";
  }
  // With this mimalloc has but what the program has given it beforehand. Whether the system gives
  // large pages is up to how it is set.
  const Outcome outcome = Command({"-e", "text", "-e", "json:" + folder / "json",
                                   folder.write("findings", R"({"id": "a", "severity": 90})")})
                              .environment("MIMALLOC_LIMIT_OS_ALLOC", "1")
                              .environment("LD_PRELOAD", NOTES_LARGE_PAGES_PATH)
                              .run();
  EXPECT_EQ(outcome.errors, "large pages are asked for\n");
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(MemoryTest, WhatIsReservedTakesNothingFromAProcessWithALimit) {
  const std::size_t least = least_memory();
  constexpr std::size_t RESERVED = std::size_t{1} << 30U;
  // There are limits that have room for what is reserved and for the program, but not for the
  // extensions too.
  for (std::size_t limit = RESERVED; limit < RESERVED + least; limit += MEBIBYTE / 8) {
    const Outcome outcome = Command({"-e", "text", "-e", "html:" + folder / "html"})
                                .input(R"({"id": "a", "severity": 90})")
                                .memory_limit(limit)
                                .run();
    EXPECT_EQ(outcome.errors, "") << limit;
    EXPECT_EQ(outcome.status, 1) << limit;
  }
}

TEST_F(MemoryTest, EachAllocationOfAnExtensionMayFail) {
  const std::string path = folder.write(
      "findings", R"({"id": "a", "severity": 90, "nodes": "n[1-40]", "message": "A message."})");
  // Only its line end makes it a line.
  const std::string end = "End of report. Verdict: FAIL\n";
  const std::string report = run({path}).output;
  ASSERT_NE(report.find(end), std::string::npos);
  constexpr int MOST_ALLOCATIONS = 100000;
  int number = 1;
  for (; number < MOST_ALLOCATIONS; ++number) {
    const Outcome outcome = Command({path, "-o", folder / "output"})
                                .environment("LD_PRELOAD", LACKS_MEMORY_PATH)
                                .environment("FAILING_ALLOCATION", std::to_string(number))
                                .run();
    if (outcome.status == 1) {
      EXPECT_EQ(outcome.output, report);
      break;
    }
    EXPECT_EQ(outcome.status, 3) << number;
    EXPECT_NE(outcome.errors, "") << number;
    EXPECT_EQ(outcome.output.find(end), std::string::npos) << number;
    EXPECT_EQ(outcome.output, report.substr(0, outcome.output.size())) << number;
    EXPECT_EQ(folder.names(), std::vector<std::string>{"findings"}) << number;
  }
  EXPECT_GT(number, 100);
  EXPECT_LT(number, MOST_ALLOCATIONS);
}

TEST_F(MemoryTest, NoTextFollowsAShortageThatAnExtensionSwallows) {
  const std::string findings = folder.write("findings", R"({"id": "a", "severity": 10})");
  for (const char* color : {"never", "always"}) {
    const Outcome outcome = run({"-e", SWALLOWS_SHORTAGE_PATH, "-e", PRINTS_A_LINE_PATH, "--color",
                                 color, "-o", folder / "output", findings});
    EXPECT_EQ(outcome.output, "before the shortage\n");
    EXPECT_EQ(outcome.errors, "vond-report: error: out of memory; the report is not complete\n");
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"findings"});
  }
}

}  // namespace
}  // namespace vond::test
