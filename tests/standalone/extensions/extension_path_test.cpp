#include "standalone/extensions/extension_path.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;
using vond::standalone::extension_folders;
using vond::standalone::extension_names;
using vond::standalone::find_extension;
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
  EXPECT_EQ(find_extension(TEXT_REPORT, folders), root / "bin/vond_output_log.so");
}

TEST_F(ExtensionPath, OfTheTextReportIsInItsInstalledPlaceOtherwise) {
  make_file("lib/vond/extensions/vond_output_log.so");
  EXPECT_EQ(find_extension(TEXT_REPORT, folders), root / "lib/vond/extensions/vond_output_log.so");
}

TEST_F(ExtensionPath, BesideTheProgramGoesBeforeTheInstalledPlace) {
  make_file("bin/vond_output_log.so");
  make_file("lib/vond/extensions/vond_output_log.so");
  EXPECT_EQ(find_extension(TEXT_REPORT, folders), root / "bin/vond_output_log.so");
}

TEST_F(ExtensionPath, WithoutAFileIsNone) {
  EXPECT_EQ(find_extension(TEXT_REPORT, folders), std::nullopt);
  EXPECT_EQ(find_extension("json", {}), std::nullopt);
}

TEST_F(ExtensionPath, IsMadeOfTheName) {
  make_file("bin/vond_output_log.so");
  make_file("lib/vond/extensions/vond_other.so");
  EXPECT_EQ(find_extension("other", folders), root / "lib/vond/extensions/vond_other.so");
}

TEST_F(ExtensionPath, IsInTheFirstOfManyFoldersThatHasIt) {
  for (const char* folder : {"1", "2", "3"}) {
    fs::create_directory(root / folder);
  }
  make_file("2/vond_other.so");
  make_file("3/vond_other.so");
  EXPECT_EQ(find_extension("other", {root / "1", root / "2", root / "3"}),
            root / "2/vond_other.so");
}

TEST_F(ExtensionPath, FoldersOfTheSearchPathComeLastAndEmptyOnesNotAtAll) {
  EXPECT_THAT(extension_folders("/a/bin", "lib/x", ":/one::/two:"),
              ElementsAre("/a/bin", "/a/lib/x", "/one", "/two"));
  EXPECT_THAT(extension_folders("/a/bin", "lib/x", "only"),
              ElementsAre("/a/bin", "/a/lib/x", "only"));
}

TEST_F(ExtensionPath, NamesAreThoseOfAllFoldersSortedEachOnce) {
  for (const char* file : {"bin/vond_output_log.so", "bin/vond_b.so", "bin/vond_.so",
                           "bin/other.so", "bin/vond_c.so.1", "bin/vond-report",
                           "lib/vond/extensions/vond_b.so", "lib/vond/extensions/vond_a.so"}) {
    make_file(file);
  }
  EXPECT_THAT(extension_names(folders), ElementsAre("a", "b", TEXT_REPORT));
}

TEST_F(ExtensionPath, FoldersThatAreNotThereHaveNoNames) {
  EXPECT_THAT(extension_names({root / "missing"}), IsEmpty());
}

}  // namespace
