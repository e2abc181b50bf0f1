// How the stand-alone host deals with extensions, broken ones above all.
#include "standalone/engine/extension_loader.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/captured_output_log.h"
#include "tests/support/records.h"

namespace vond::test {
namespace {

using standalone::ExtensionError;
using standalone::run_extension;

class ExtensionLoaderTest : public ::testing::Test {
 protected:
  /// Runs an extension that cannot be run and returns the complaint without the path before it.
  std::string complaint(const std::string& path) {
    try {
      run_extension(path, data);
    } catch (const ExtensionError& error) {
      const std::string text = error.what();
      EXPECT_EQ(text.substr(0, path.size() + 2), path + ": ");
      return text.substr(path.size() + 2);
    }
    return "none";
  }

  /// Whether neither the extension nor its library is left.
  bool is_gone(const std::string& path) const {
    return data.issues_by_mask.use_count() == 1 &&
           dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD) == nullptr;
  }

  Data data = make_record();
  CapturedOutputLog output;
};

TEST_F(ExtensionLoaderTest, RunsDeletesAndClosesAnExtension) {
  run_extension(VOND_OUTPUT_LOG_PATH, data);
  EXPECT_NE(output.text().find("Issues contributing to FAIL\nNo issues detected.\n"),
            std::string::npos);
  EXPECT_TRUE(is_gone(VOND_OUTPUT_LOG_PATH));
}

TEST_F(ExtensionLoaderTest, RefusesAFileThatDoesNotExist) {
  EXPECT_EQ(complaint("no/such/file.so"), "no such extension library");
  // The system's folders hold a library of this name; no extension is looked for there.
  EXPECT_EQ(complaint("libc.so.6"), "no such extension library");
}

TEST_F(ExtensionLoaderTest, RefusesAFolder) {
  EXPECT_EQ(complaint("/"), "is a directory, expected an extension library");
}

TEST_F(ExtensionLoaderTest, RefusesAFileThatIsNoLibrary) {
  const std::string expected = "cannot load the extension: ";
  EXPECT_EQ(complaint(NO_LIBRARY_PATH).substr(0, expected.size()), expected);
}

TEST_F(ExtensionLoaderTest, RefusesALibraryWithoutFactory) {
  EXPECT_EQ(complaint(NO_FACTORY_PATH),
            "no factory \"create\" in the library, so it is no extension");
  EXPECT_TRUE(is_gone(NO_FACTORY_PATH));
}

TEST_F(ExtensionLoaderTest, RefusesAFactoryThatMakesNothing) {
  EXPECT_EQ(complaint(NULL_FACTORY_PATH), "the extension's factory made no extension");
  EXPECT_TRUE(is_gone(NULL_FACTORY_PATH));
}

TEST_F(ExtensionLoaderTest, ReportsAFactoryThatThrows) {
  EXPECT_EQ(complaint(THROWING_FACTORY_PATH), "the extension's factory failed: no template");
  EXPECT_TRUE(is_gone(THROWING_FACTORY_PATH));
}

TEST_F(ExtensionLoaderTest, ReportsAnExceptionThatGoesWithItsLibrary) {
  EXPECT_EQ(complaint(THROWING_RUN_PATH), "the extension's run failed: no template");
  EXPECT_TRUE(is_gone(THROWING_RUN_PATH));
}

TEST_F(ExtensionLoaderTest, ReportsWhatIsNoException) {
  EXPECT_EQ(complaint(THROWING_RUN_WITHOUT_TEXT_PATH),
            "the extension's run failed: unknown exception");
  EXPECT_TRUE(is_gone(THROWING_RUN_WITHOUT_TEXT_PATH));
}

TEST_F(ExtensionLoaderTest, ReportsARunThatFails) {
  EXPECT_EQ(complaint(FAILING_RUN_PATH),
            "the extension's run returned 1: the report is not complete");
  EXPECT_TRUE(is_gone(FAILING_RUN_PATH));
}

}  // namespace
}  // namespace vond::test
