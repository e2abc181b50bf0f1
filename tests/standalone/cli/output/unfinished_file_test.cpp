#include "standalone/cli/output/unfinished_file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <optional>
#include <string>
#include <vector>

#include "standalone/cli/output/ending_signals.h"
#include "standalone/cli/output/owned_descriptor.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

using standalone::EndingSignalsHeld;
using standalone::OwnedDescriptor;
using standalone::UnfinishedFile;

using Names = std::vector<std::string>;

class UnfinishedFileTest : public ::testing::Test {
 protected:
  TemporaryFolder folder;
  std::string path = folder / "report";
};

TEST_F(UnfinishedFileTest, StandsBesideItsFinalName) {
  UnfinishedFile file;
  EXPECT_FALSE(file.exists());
  const OwnedDescriptor descriptor(file.create(path));
  ASSERT_GE(descriptor.number(), 0);
  EXPECT_TRUE(file.exists());
  ASSERT_EQ(folder.names().size(), 1U);
  EXPECT_EQ(folder.names()[0].substr(0, 7), "report.");
}

TEST_F(UnfinishedFileTest, GoesWithTheObject) {
  folder.write("report", "old");
  {
    UnfinishedFile file;
    const OwnedDescriptor descriptor(file.create(path));
    EXPECT_EQ(folder.names().size(), 2U);
  }
  EXPECT_EQ(folder.names(), Names{"report"});
  EXPECT_EQ(read_file(path), "old");
}

TEST_F(UnfinishedFileTest, StaysUnderItsFinalName) {
  {
    UnfinishedFile file;
    const OwnedDescriptor descriptor(file.create(path));
    ASSERT_EQ(::write(descriptor.number(), "new", 3), 3);
    EXPECT_TRUE(file.rename_to(path));
    EXPECT_FALSE(file.exists());
  }
  EXPECT_EQ(folder.names(), Names{"report"});
  EXPECT_EQ(read_file(path), "new");
}

TEST_F(UnfinishedFileTest, ThatCannotBeMadeIsNotThere) {
  UnfinishedFile file;
  EXPECT_EQ(file.create(folder / "missing/report"), -1);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_FALSE(file.exists());
}

TEST_F(UnfinishedFileTest, ThatCannotBeRenamedIsStillRemoved) {
  {
    UnfinishedFile file;
    const OwnedDescriptor descriptor(file.create(path));
    EXPECT_FALSE(file.rename_to(folder / "missing/report"));
    EXPECT_TRUE(file.exists());
  }
  EXPECT_EQ(folder.names(), Names());
}

TEST_F(UnfinishedFileTest, AllAreRemovedAtOnceAndFinishedOnesStay) {
  UnfinishedFile first;
  UnfinishedFile second;
  std::optional<UnfinishedFile> finished(std::in_place);
  const OwnedDescriptor first_descriptor(first.create(path));
  const OwnedDescriptor second_descriptor(second.create(path));
  const OwnedDescriptor finished_descriptor(finished->create(path));
  finished->rename_to(path);
  finished.reset();
  EXPECT_EQ(folder.names().size(), 3U);
  UnfinishedFile::remove_all();
  EXPECT_EQ(folder.names(), Names{"report"});
}

// ---- Signals -----------------------------------------------------------------------------------

volatile std::sig_atomic_t signals_handled = 0;

extern "C" void count_signal(int /*signal*/) { signals_handled = signals_handled + 1; }

TEST(EndingSignals, WaitWhileTheyAreHeld) {
  for (const int signal : standalone::ENDING_SIGNALS) {
    signals_handled = 0;
    const auto before = std::signal(signal, count_signal);
    {
      const EndingSignalsHeld held;
      std::raise(signal);
      EXPECT_EQ(signals_handled, 0);
    }
    EXPECT_EQ(signals_handled, 1);
    std::signal(signal, before);
  }
}

}  // namespace
}  // namespace vond::test
