// Every output that has a name, where its text cannot be written: complete, or a message and no
// file.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

constexpr char EXAMPLE[] = EXAMPLE_FOLDER "/findings.jsonl";

class OutputFaultsTest : public ::testing::Test {
 protected:
  /// Returns the text of an output on the example.
  std::string text_of(const std::string& output) const {
    const Outcome outcome = run({"-e", output + ":" + folder / "whole", EXAMPLE});
    EXPECT_EQ(outcome.status, 1) << outcome.errors;
    std::string text = read_file(folder / "whole");
    std::filesystem::remove(folder / "whole");
    return text;
  }

  TemporaryFolder folder;
};

TEST_F(OutputFaultsTest, ThereAreOutputs) {
  const std::vector<std::string> names = output_names();
  for (const char* name : {"brief", "json", "list", "text"}) {
    EXPECT_EQ(std::count(names.begin(), names.end(), name), 1) << name;
  }
}

TEST_F(OutputFaultsTest, ADeviceThatIsFullIsNamedAndTheOtherOutputIsComplete) {
  for (const std::string& output : output_names()) {
    SCOPED_TRACE(output);
    const std::string text = text_of(output);
    const Outcome outcome =
        run({"-e", output + ":/dev/full", "-e", output + ":" + folder / "out", EXAMPLE});
    EXPECT_EQ(outcome.errors, "vond-report: error: /dev/full: No space left on device\n");
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(read_file(folder / "out"), text);
  }
}

TEST_F(OutputFaultsTest, AFileThatGrowsBeyondALimitIsNotThere) {
  for (const std::string& output : output_names()) {
    SCOPED_TRACE(output);
    const std::string out = folder / output;
    // In blocks of 512 bytes, which every output exceeds.
    const Outcome outcome = Command({"-c", "ulimit -f 1; exec \"$@\"", "sh", VOND_REPORT, "-e",
                                     output + ":" + out, EXAMPLE})
                                .program("/bin/sh")
                                .run();
    EXPECT_EQ(outcome.errors, "vond-report: error: " + out + ": File too large\n");
    EXPECT_EQ(outcome.status, 3);
    EXPECT_TRUE(folder.names().empty());
  }
}

TEST_F(OutputFaultsTest, AReaderThatHasGoneEndsTheProgramWithoutAWord) {
  for (const std::string& output : output_names()) {
    SCOPED_TRACE(output);
    const Outcome outcome = Command({"-e", output, EXAMPLE}).output_read_up_to(0).run();
    EXPECT_EQ(outcome.errors, "");
    EXPECT_TRUE(outcome.status == 3 || outcome.status == 1) << outcome.status;
  }
}

TEST_F(OutputFaultsTest, AFileIsCompleteOrNotThereWhicheverAllocationFails) {
  if (is_under_address_sanitizer()) {
    GTEST_SKIP() << "the sanitizer has its own allocations";
  }
  const std::string path = folder.write(
      "findings", R"({"id": "a", "severity": 90, "nodes": "n[1-9]", "message": "A message 5."}
{"id": "a", "severity": 90, "nodes": "n8", "message": "A message 6.", "definitions": ["x"]})");
  const std::string out = folder / "out";
  constexpr int MOST_ALLOCATIONS = 100000;
  for (const std::string& output : output_names()) {
    SCOPED_TRACE(output);
    int number = 1;
    for (; number < MOST_ALLOCATIONS; number += 1 + number / 8) {
      const Outcome outcome = Command({"-e", output + ":" + out, path})
                                  .environment("LD_PRELOAD", LACKS_MEMORY_PATH)
                                  .environment("FAILING_ALLOCATION", std::to_string(number))
                                  .run();
      if (outcome.status == 1) {
        break;
      }
      EXPECT_EQ(outcome.status, 3) << number;
      EXPECT_NE(outcome.errors, "") << number;
      EXPECT_FALSE(std::filesystem::exists(out)) << number;
    }
    EXPECT_GT(number, 10);
    EXPECT_LT(number, MOST_ALLOCATIONS);
    EXPECT_TRUE(std::filesystem::remove(out));
  }
}

}  // namespace
}  // namespace vond::test
