#include "standalone/extensions/extension_path.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

using vond::standalone::extension_folders;
using vond::standalone::extension_path;
using vond::standalone::TEXT_REPORT;

/// Gives every test an empty folder that goes with it.
class ExtensionPath : public testing::Test {
 protected:
  ExtensionPath() {
    fs::remove_all(root);
    fs::create_directories(root / "bin");
    fs::create_directories(root / "lib/vond/extensions");
  }
  ~ExtensionPath() override { fs::remove_all(root); }

  void make_file(const fs::path& path) const { std::ofstream(root / path).flush(); }

  const fs::path root =
      fs::path(testing::TempDir()) / ("extension_path_test." + std::to_string(getpid()));
  const std::vector<fs::path> folders = extension_folders(root / "bin", "lib/vond/extensions");
};

TEST_F(ExtensionPath, OfTheTextReportIsBesideTheProgramAsItIsBuilt) {
  make_file("bin/vond_output_log.so");
  EXPECT_EQ(extension_path(TEXT_REPORT, folders), root / "bin/vond_output_log.so");
}

TEST_F(ExtensionPath, OfTheTextReportIsInItsInstalledPlaceOtherwise) {
  make_file("lib/vond/extensions/vond_output_log.so");
  EXPECT_EQ(extension_path(TEXT_REPORT, folders), root / "lib/vond/extensions/vond_output_log.so");
}

TEST_F(ExtensionPath, BesideTheProgramGoesBeforeTheInstalledPlace) {
  make_file("bin/vond_output_log.so");
  make_file("lib/vond/extensions/vond_output_log.so");
  EXPECT_EQ(extension_path(TEXT_REPORT, folders), root / "bin/vond_output_log.so");
}

TEST_F(ExtensionPath, WithoutAFileIsTheInstalledPlace) {
  EXPECT_EQ(extension_path(TEXT_REPORT, folders), root / "lib/vond/extensions/vond_output_log.so");
}

TEST_F(ExtensionPath, IsMadeOfTheName) {
  make_file("bin/vond_output_log.so");
  make_file("lib/vond/extensions/vond_other.so");
  EXPECT_EQ(extension_path("other", folders), root / "lib/vond/extensions/vond_other.so");
}

TEST_F(ExtensionPath, IsInTheFirstOfManyFoldersThatHasIt) {
  for (const char* folder : {"1", "2", "3"}) {
    fs::create_directory(root / folder);
  }
  make_file("2/vond_other.so");
  make_file("3/vond_other.so");
  EXPECT_EQ(extension_path("other", {root / "1", root / "2", root / "3"}),
            root / "2/vond_other.so");
}

}  // namespace
