#include "standalone/extensions/extension_loader.h"

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "standalone/libvond_host/current_facts.h"
#include "tests/support/captured_output_log.h"
#include "tests/support/records.h"
#include "vond/contract.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using vond::postprocessor::PostprocessorExtensionData;
using vond::standalone::ExtensionError;
using vond::standalone::run_extension;

namespace fs = std::filesystem;

/// Gives every test a record that extensions tell their lives to, and an empty folder, which is
/// the current one while the test runs.
class ExtensionLoader : public testing::Test {
 protected:
  ExtensionLoader() : previous_folder_(fs::current_path()) {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    fs::current_path(folder_);
    record_.host_shared_1 = events_;
    // As every host, and for the sake of the linker: the host's library has to be there before
    // the extensions. Were it loaded by the first of them, it would be bound to that one for
    // ever.
    vond::standalone::report_facts() = {};
  }
  ~ExtensionLoader() override {
    fs::current_path(previous_folder_);
    fs::remove_all(folder_);
  }

  /// Returns the error's whole message, "" without an error.
  std::string load(const std::string& path) {
    try {
      run_extension(path, record_);
      return "";
    } catch (const ExtensionError& error) {
      return error.what();
    }
  }

  const std::vector<std::string>& events() const { return *events_; }

  /// Returns how many copies of the record are left.
  long copies_of_record() const { return record_.host_shared_1.use_count() - 2; }

  /// Returns whether the process still holds the library.
  static bool is_loaded(const std::string& path) {
    void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (library != nullptr) {
      dlclose(library);
    }
    return library != nullptr;
  }

  fs::path folder() const { return folder_; }

 private:
  const fs::path previous_folder_;
  const fs::path folder_ =
      fs::path(testing::TempDir()) / ("extension_loader_test." + std::to_string(getpid()));
  const std::shared_ptr<std::vector<std::string>> events_ =
      std::make_shared<std::vector<std::string>>();
  PostprocessorExtensionData record_;
};

// ---- Extensions that work ---------------------------------------------------------------------

TEST_F(ExtensionLoader, RunsTheTextReportAndClosesIt) {
  const vond::test::CapturedOutputLog output;
  vond::test::Data record = vond::test::make_record();
  run_extension(VOND_OUTPUT_LOG_PATH, record);
  EXPECT_THAT(output.text(), HasSubstr("Issues contributing to FAIL\nNo issues detected.\n"));
  EXPECT_EQ(record.issues_by_mask.use_count(), 1);
  EXPECT_FALSE(is_loaded(VOND_OUTPUT_LOG_PATH));
}

TEST_F(ExtensionLoader, CreatesRunsAndDeletesTheExtensionBeforeItClosesTheLibrary) {
  EXPECT_EQ(load(EXTENSION_THAT_WORKS_PATH), "");
  EXPECT_THAT(events(), ElementsAre("created", "run", "deleted", "library closed"));
  EXPECT_EQ(copies_of_record(), 0);
}

TEST_F(ExtensionLoader, RunsALibraryAsOftenAsItIsAskedTo) {
  EXPECT_EQ(load(EXTENSION_THAT_WORKS_PATH), "");
  EXPECT_EQ(load(EXTENSION_THAT_WORKS_PATH), "");
  EXPECT_THAT(events(), ElementsAre("created", "run", "deleted", "library closed",  //
                                    "created", "run", "deleted", "library closed"));
}

TEST_F(ExtensionLoader, RunsAnotherExtensionAfterOneThatFailed) {
  EXPECT_NE(load(EXTENSION_WHOSE_RUN_THROWS_INT_PATH), "");
  EXPECT_EQ(load(EXTENSION_THAT_WORKS_PATH), "");
  EXPECT_THAT(events(), ElementsAre("created", "run", "deleted", "library closed",  //
                                    "created", "run", "deleted", "library closed"));
}

TEST_F(ExtensionLoader, TakesABareFileNameFromTheCurrentFolder) {
  fs::copy_file(EXTENSION_THAT_WORKS_PATH, "bare.so");
  EXPECT_EQ(load("bare.so"), "");
  EXPECT_THAT(events(), ElementsAre("created", "run", "deleted", "library closed"));
}

TEST_F(ExtensionLoader, TakesARelativePathFromTheCurrentFolder) {
  fs::create_directory("sub");
  fs::copy_file(EXTENSION_THAT_WORKS_PATH, "sub/relative.so");
  EXPECT_EQ(load("sub/relative.so"), "");
  EXPECT_EQ(load("./sub/../sub/relative.so"), "");
}

TEST_F(ExtensionLoader, TakesAnyFileName) {
  fs::copy_file(EXTENSION_THAT_WORKS_PATH, "no ending \xC3\xA4");
  EXPECT_EQ(load("no ending \xC3\xA4"), "");
}

// ---- Files that are no extension --------------------------------------------------------------

TEST_F(ExtensionLoader, TellsThatThereIsNoSuchFile) {
  EXPECT_EQ(load("/no/such/folder/extension.so"),
            "/no/such/folder/extension.so: no such extension library");
  EXPECT_EQ(load("missing.so"), "missing.so: no such extension library");
  EXPECT_EQ(load(""), ": no such extension library");
}

TEST_F(ExtensionLoader, DoesNotLookForABareFileNameInTheFoldersOfTheSystem) {
  EXPECT_EQ(load("libc.so.6"), "libc.so.6: no such extension library");
}

TEST_F(ExtensionLoader, TellsThatALinkLeadsNowhere) {
  fs::create_symlink("gone.so", "link.so");
  EXPECT_EQ(load("link.so"), "link.so: no such extension library");
}

TEST_F(ExtensionLoader, TellsThatAFolderIsNoLibrary) {
  const std::string path = folder().string();
  EXPECT_EQ(load(path), path + ": is a directory, expected an extension library");
  EXPECT_EQ(load("."), ".: is a directory, expected an extension library");
}

TEST_F(ExtensionLoader, TellsThatATextIsNoLibrary) {
  std::ofstream("notes.txt") << std::string(1000, 'x');
  EXPECT_THAT(load("notes.txt"), StartsWith("notes.txt: cannot load the extension: "));
}

TEST_F(ExtensionLoader, TellsThatAnEmptyFileIsNoLibrary) {
  std::ofstream("empty.so").flush();
  EXPECT_THAT(load("empty.so"), StartsWith("empty.so: cannot load the extension: "));
}

TEST_F(ExtensionLoader, RefusesALibraryThatLacksAFunctionBeforeItRunsAnything) {
  const std::string path = EXTENSION_WITH_UNDEFINED_SYMBOL_PATH;
  EXPECT_EQ(load(path), path + ": cannot load the extension: undefined symbol: defined_nowhere()");
  EXPECT_THAT(events(), IsEmpty());
}

TEST_F(ExtensionLoader, TellsThatAFileThatIsThereCannotBeReached) {
  fs::create_symlink("circle.so", "circle.so");
  EXPECT_EQ(load("circle.so"),
            "circle.so: cannot be read (Too many levels of symbolic links), expected an extension "
            "library");
}

TEST_F(ExtensionLoader, TellsThatAFileMayNotBeRead) {
  if (geteuid() == 0) {
    GTEST_SKIP() << "root may read everything";
  }
  fs::copy_file(EXTENSION_THAT_WORKS_PATH, "secret.so");
  fs::permissions("secret.so", fs::perms::none);
  EXPECT_EQ(load("secret.so"),
            "secret.so: cannot be read (Permission denied), expected an extension library");
}

// ---- Contracts --------------------------------------------------------------------------------

TEST_F(ExtensionLoader, RefusesAnotherContractBeforeTheFactoryIsCalled) {
  const std::string path = EXTENSION_OF_ANOTHER_CONTRACT_PATH;
  EXPECT_EQ(load(path), path + ": was built for version " +
                            std::to_string(VOND_CONTRACT_VERSION + 1) +
                            " of the contract, this program has version " +
                            std::to_string(VOND_CONTRACT_VERSION) + "; build the extension anew");
  EXPECT_FALSE(is_loaded(path));
}

TEST_F(ExtensionLoader, RunsAnExtensionOfItsOwnContract) {
  EXPECT_EQ(load(EXTENSION_OF_THIS_CONTRACT_PATH), "");
  EXPECT_THAT(events(), ElementsAre("created", "run", "deleted", "library closed"));
}

// ---- Libraries with a fault --------------------------------------------------------------------

TEST_F(ExtensionLoader, TellsThatALibraryHasNoFactory) {
  const std::string path = EXTENSION_WITHOUT_FACTORY_PATH;
  EXPECT_EQ(load(path), path + ": no factory \"create\" in the library, so it is no extension");
  EXPECT_FALSE(is_loaded(path));
}

TEST_F(ExtensionLoader, TellsThatTheFactoryMadeNothing) {
  const std::string path = EXTENSION_OF_NULL_PATH;
  EXPECT_EQ(load(path), path + ": the extension's factory made no extension");
  EXPECT_THAT(events(), ElementsAre("library closed"));
  EXPECT_EQ(copies_of_record(), 0);
}

TEST_F(ExtensionLoader, TellsWhatTheFactoryThrew) {
  const std::string path = EXTENSION_WHOSE_FACTORY_THROWS_PATH;
  EXPECT_EQ(load(path), path + ": the extension's factory failed: no licence");
  EXPECT_THAT(events(), ElementsAre("library closed"));
}

TEST_F(ExtensionLoader, TellsWhichExceptionHadAnEmptyText) {
  const std::string path = EXTENSION_WHOSE_FACTORY_THROWS_NOTHING_PATH;
  EXPECT_EQ(load(path),
            path + ": the extension's factory failed: std::runtime_error without a text");
}

TEST_F(ExtensionLoader, TellsThatTheFactoryThrewWhatHasNoText) {
  const std::string path = EXTENSION_WHOSE_FACTORY_THROWS_TEXT_PATH;
  EXPECT_EQ(load(path), path + ": the extension's factory failed: unknown exception");
  EXPECT_THAT(events(), ElementsAre("library closed"));
}

TEST_F(ExtensionLoader, TellsWhatRunThrew) {
  const std::string path = EXTENSION_WHOSE_RUN_THROWS_PATH;
  EXPECT_EQ(load(path), path + ": the extension's run failed: disk full");
  EXPECT_THAT(events(), ElementsAre("created", "run", "deleted", "library closed"));
  EXPECT_EQ(copies_of_record(), 0);
}

TEST_F(ExtensionLoader, LetsGoOfAnExceptionBeforeTheLibraryThatHasItsCode) {
  const std::string path = EXTENSION_WHOSE_RUN_THROWS_ITS_OWN_TYPE_PATH;
  EXPECT_EQ(load(path),
            path + ": the extension's run failed: a text that only this library could have made");
  EXPECT_THAT(events(),
              ElementsAre("created", "run", "exception destroyed", "deleted", "library closed"));
}

TEST_F(ExtensionLoader, TellsThatRunThrewWhatHasNoText) {
  const std::string path = EXTENSION_WHOSE_RUN_THROWS_INT_PATH;
  EXPECT_EQ(load(path), path + ": the extension's run failed: unknown exception");
  EXPECT_THAT(events(), ElementsAre("created", "run", "deleted", "library closed"));
  EXPECT_EQ(copies_of_record(), 0);
}

TEST_F(ExtensionLoader, TellsThatRunReturned1) {
  const std::string path = EXTENSION_WHOSE_RUN_RETURNS_1_PATH;
  EXPECT_EQ(load(path), path + ": the extension's run returned 1: the report is not complete");
  EXPECT_THAT(events(), ElementsAre("created", "run", "deleted", "library closed"));
  EXPECT_EQ(copies_of_record(), 0);
}

}  // namespace
