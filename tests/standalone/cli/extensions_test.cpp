// Which extensions run, and what becomes of those that fail.
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

namespace fs = std::filesystem;

class ExtensionsTest : public ::testing::Test {
 protected:
  /// Expects that `extension` fails after it has written `text`.
  void expect_fault(const std::string& extension, const std::string& text,
                    const std::string& message) {
    const Outcome outcome = run({"-e", extension, findings});
    EXPECT_EQ(outcome.output, text);
    EXPECT_EQ(outcome.errors, "vond-report: error: " + extension + ": " + message + "\n");
    EXPECT_EQ(outcome.status, 3);
  }

  /// Copies the program and the library that it links against into a folder without extensions and
  /// returns its path.
  std::string copy_program() const {
    fs::create_directory(folder / "bin");
    const fs::path library = VOND_HOST_LIBRARY_PATH;
    fs::copy_file(library, folder / "bin" / library.filename());
    fs::copy_file(VOND_REPORT, folder / "bin/vond-report");
    return folder / "bin/vond-report";
  }

  TemporaryFolder folder;
  std::string findings = folder.write("findings", R"({"id": "a", "severity": 10})");
  std::string report = run({findings}).output;
};

TEST_F(ExtensionsTest, TheTextReportIsFoundBesideTheProgramFromAnyFolder) {
  EXPECT_EQ(Command({findings}).in_folder("/").run().output, report);
  EXPECT_EQ(Command({findings}).in_folder(folder.path()).run().output, report);
}

TEST_F(ExtensionsTest, TheTextReportIsFoundThroughALinkToTheProgram) {
  fs::create_symlink(VOND_REPORT, folder / "link");
  EXPECT_EQ(Command({findings}).program(folder / "link").run().output, report);
}

TEST_F(ExtensionsTest, TheTextReportIsFoundInItsInstalledPlace) {
  fs::create_directories(folder / "lib/vond/extensions");
  fs::copy_file(VOND_OUTPUT_LOG_PATH, folder / "lib/vond/extensions/vond_output_log.so");
  EXPECT_EQ(Command({findings}).program(copy_program()).run().output, report);
}

TEST_F(ExtensionsTest, NoLibraryIsTakenFromTheCurrentFolder) {
  for (const char* name : {"libstdc++.so.6", "libgcc_s.so.1", "libvond_host.so.1"}) {
    fs::copy_file(PRINTS_A_LINE_PATH, folder / name);
  }
  EXPECT_EQ(Command({findings}).in_folder(folder.path()).run().output, report);
}

TEST_F(ExtensionsTest, TheTextReportIsNeverTakenFromTheCurrentFolder) {
  fs::copy_file(PRINTS_A_LINE_PATH, folder / "vond_output_log.so");
  EXPECT_EQ(Command({findings}).in_folder(folder.path()).run().output, report);
  expect_error(Command({findings}).program(copy_program()).in_folder(folder.path()).run(), 3,
               folder / "lib/vond/extensions/vond_output_log.so: no such extension library");
}

TEST_F(ExtensionsTest, SeveralRunInTheOrderGiven) {
  EXPECT_EQ(run({"-e", PRINTS_A_LINE_PATH, "--extension", VOND_OUTPUT_LOG_PATH, findings}).output,
            "all is well\n" + report);
  EXPECT_EQ(run({"-e", VOND_OUTPUT_LOG_PATH, "-e", PRINTS_A_LINE_PATH, findings}).output,
            report + "all is well\n");
  EXPECT_EQ(run({"-e", PRINTS_A_LINE_PATH, "-e", PRINTS_A_LINE_PATH, findings}).output,
            "all is well\nall is well\n");
}

TEST_F(ExtensionsTest, AFaultOfOneTakesNothingFromTheOthers) {
  const Outcome outcome =
      run({"-e", VOND_OUTPUT_LOG_PATH, "-e", EXTENSION_WHOSE_RUN_THROWS_ITS_OWN_TYPE_PATH, "-e",
           PRINTS_A_LINE_PATH, findings});
  EXPECT_EQ(outcome.output, report + "all is well\n");
  EXPECT_EQ(outcome.errors,
            std::string("vond-report: error: ") + EXTENSION_WHOSE_RUN_THROWS_ITS_OWN_TYPE_PATH +
                ": the extension's run failed: a text that only this library could have made\n");
  EXPECT_EQ(outcome.status, 3);
}

TEST_F(ExtensionsTest, AnExtensionThatCannotBeLoadedIsNamed) {
  expect_fault(folder / "missing.so", "", "no such extension library");
  expect_fault(folder.path(), "", "is a directory, expected an extension library");
  const std::string text = folder.write("text.so", "no library");
  expect_fault(text, "", "cannot load the extension: file too short");
  const std::string script = folder.write("script.so", std::string(1000, '#'));
  expect_fault(script, "", "cannot load the extension: invalid ELF header");
}

TEST_F(ExtensionsTest, AnExtensionThatFailsIsNamed) {
  expect_fault(EXTENSION_WITHOUT_FACTORY_PATH, "",
               "no factory \"create\" in the library, so it is no extension");
  expect_fault(EXTENSION_OF_NULL_PATH, "", "the extension's factory made no extension");
  expect_fault(EXTENSION_WHOSE_FACTORY_THROWS_PATH, "",
               "the extension's factory failed: no licence");
  expect_fault(EXTENSION_WHOSE_RUN_THROWS_ITS_OWN_TYPE_PATH, "",
               "the extension's run failed: a text that only this library could have made");
  expect_fault(EXTENSION_WHOSE_RUN_THROWS_INT_PATH, "",
               "the extension's run failed: unknown exception");
  expect_fault(EXTENSION_WHOSE_RUN_RETURNS_1_PATH, "",
               "the extension's run returned 1: the report is not complete");
}

TEST_F(ExtensionsTest, TheTextSoFarIsWrittenAndTheMessageMadeHarmless) {
  expect_fault(PRINTS_AND_THROWS_PATH, "before the fault\n",
               "the extension's run failed: no \\x1b[31mtemplate");
  const Outcome outcome = run({"-e", PRINTS_AND_THROWS_PATH, "-o", "/dev/stderr", findings});
  EXPECT_EQ(outcome.errors.substr(0, 17), "before the fault\n");
}

TEST_F(ExtensionsTest, AFileNameInAMessageIsMadeHarmless) {
  expect_error(run({"-e", "./\033[2J\xE2\x80\xAE.so", findings}), 3,
               "./\\x1b[2J\\u202e.so: no such extension library");
  expect_error(run({"-o", "\033[2J/x", findings}), 3, "\\x1b[2J/x: No such file or directory");
}

TEST_F(ExtensionsTest, TheTextSoFarSurvivesTerminate) {
  for (const char* mode : {"never", "always"}) {
    const Outcome outcome = run({"-e", ENDS_IN_TERMINATE_PATH, "--color", mode, findings});
    EXPECT_EQ(outcome.output, "before the end\n");
    EXPECT_EQ(outcome.errors,
              std::string("vond-report: error: ") + ENDS_IN_TERMINATE_PATH +
                  ": the extension ended in std::terminate; the report is not complete\n");
    EXPECT_EQ(outcome.status, 128 + SIGABRT);
  }
}

TEST_F(ExtensionsTest, AStatementThatRunsOutOfMemoryIsToldAsThat) {
  const Outcome outcome = run({"-e", STATEMENT_WITHOUT_MEMORY_PATH, findings});
  EXPECT_EQ(outcome.output, "before the end\n");
  EXPECT_EQ(outcome.errors, "vond-report: error: out of memory; the report is not complete\n");
  EXPECT_EQ(outcome.status, 3);
}

}  // namespace
}  // namespace vond::test
