// Outputs by name, and outputs with files of their own.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

namespace fs = std::filesystem;

constexpr char LINE[] = "all is well\n";

class SeveralOutputsTest : public ::testing::Test {
 protected:
  SeveralOutputsTest() {
    fs::create_directory(folder / "more");
    fs::copy_file(PRINTS_A_LINE_PATH, folder / "more/vond_line.so");
    fs::copy_file(PRINTS_AND_THROWS_PATH, folder / "more/vond_throws.so");
  }

  /// Runs the program where the extensions `line` and `throws` have names.
  Outcome run_with_names(const std::vector<std::string>& arguments) const {
    return Command(arguments).environment("VOND_EXTENSION_PATH", ":" + folder / "more").run();
  }

  /// Expects that the command line is refused before anything is written.
  void expect_refused(std::vector<std::string> arguments, const std::string& message) const {
    arguments.push_back(findings);
    expect_error(run_with_names(arguments), 2, message + "; see vond-report --help");
    EXPECT_FALSE(fs::exists(out));
  }

  void expect_refused_in_folder(std::vector<std::string> arguments,
                                const std::string& message) const {
    arguments.push_back(findings);
    expect_error(Command(arguments)
                     .environment("VOND_EXTENSION_PATH", folder / "more")
                     .in_folder(folder.path())
                     .run(),
                 2, message + "; see vond-report --help");
  }

  TemporaryFolder folder;
  std::string findings = folder.write("findings", R"({"id": "a", "severity": 10})");
  std::string out = folder / "out";
  std::string report = run({findings}).output;
};

TEST_F(SeveralOutputsTest, TheTextReportHasTheNameText) {
  EXPECT_EQ(run({"-e", "text", findings}).output, report);
}

TEST_F(SeveralOutputsTest, ANameIsFoundInTheFoldersOfTheEnvironment) {
  EXPECT_EQ(run_with_names({"-e", "line", findings}).output, LINE);
  EXPECT_EQ(run_with_names({"--extension=line", "-e", "text", findings}).output, LINE + report);
}

TEST_F(SeveralOutputsTest, AFolderOfTheEnvironmentTakesNoNameFromTheProgramsOwn) {
  fs::copy_file(PRINTS_A_LINE_PATH, folder / "more/vond_output_log.so");
  EXPECT_EQ(run_with_names({"-e", "text", findings}).output, report);
  EXPECT_EQ(run_with_names({findings}).output, report);
}

TEST_F(SeveralOutputsTest, AnUnknownNameIsAUsageErrorThatListsThoseThatAreThere) {
  const Outcome outcome = run_with_names({"-e", "lime", findings});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors.find("vond-report: error: --extension is \"lime\", expected one of \""),
            0U);
  EXPECT_NE(outcome.errors.find("\"line\""), std::string::npos);
  EXPECT_NE(outcome.errors.find("\"text\", \"throws\" or the path of a library; did you mean "
                                "\"line\"?; see vond-report --help\n"),
            std::string::npos)
      << outcome.errors;
}

TEST_F(SeveralOutputsTest, ALibraryWithoutASlashIsHintedAt) {
  fs::copy_file(PRINTS_A_LINE_PATH, folder / "line.so");
  const Outcome outcome = Command({"-e", "line.so", findings}).in_folder(folder.path()).run();
  EXPECT_EQ(outcome.status, 2);
  EXPECT_NE(outcome.errors.find("; a library is named with a \"/\": ./line.so; see"),
            std::string::npos)
      << outcome.errors;
  EXPECT_EQ(Command({"-e", "./line.so", findings}).in_folder(folder.path()).run().output, LINE);
}

TEST_F(SeveralOutputsTest, AllExtensionsAreListedWithTheirLibraries) {
  const Outcome outcome = run_with_names({"--list-extensions"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_NE(outcome.output.find("line\t" + folder / "more/vond_line.so" + "\n"), std::string::npos);
  EXPECT_NE(outcome.output.find(std::string("text\t") + VOND_OUTPUT_LOG_PATH + "\n"),
            std::string::npos);
}

TEST_F(SeveralOutputsTest, AnOutputWithAFileGoesThereAlone) {
  const Outcome outcome = run_with_names({"-e", "text", "-e", "line:" + out, findings});
  EXPECT_EQ(outcome.output, report);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(read_file(out), LINE);
}

TEST_F(SeveralOutputsTest, WithFilesAloneStandardOutputStaysEmpty) {
  const Outcome outcome = run_with_names({"-e", "line:" + out, findings});
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(SeveralOutputsTest, AClosedStandardOutputIsNoErrorOfFiles) {
  const Outcome outcome = Command({"-e", "text:" + out, findings}).closed(1).run();
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(read_file(out), report);
}

TEST_F(SeveralOutputsTest, TheFilesBesideStandardOutputGetWhatHasNoFileOfItsOwn) {
  const Outcome outcome = run_with_names(
      {"-e", "text", "-e", "line:" + out, "-e", "line", "-o", folder / "shared", findings});
  EXPECT_EQ(outcome.output, report + LINE);
  EXPECT_EQ(read_file(folder / "shared"), report + LINE);
  EXPECT_EQ(read_file(out), LINE);
}

TEST_F(SeveralOutputsTest, ADashIsStandardOutputAlone) {
  const Outcome outcome =
      run_with_names({"-e", "line:-", "-e", "text", "-o", folder / "shared", findings});
  EXPECT_EQ(outcome.output, LINE + report);
  EXPECT_EQ(read_file(folder / "shared"), report);
}

TEST_F(SeveralOutputsTest, FilesAreNeverColoured) {
  const std::string colored = R"({"id": "a", "severity": 90})";
  const std::string input = folder.write("critical", colored);
  EXPECT_EQ(run({"--color=always", "-e", "text:-", "-e", "text:" + out, input}).output,
            run({"--color=always", input}).output);
  EXPECT_EQ(read_file(out), run({"--color=never", input}).output);
}

TEST_F(SeveralOutputsTest, APathEndsAtItsLastColonANameAtItsFirst) {
  fs::create_directory(folder / "a:b");
  fs::copy_file(PRINTS_A_LINE_PATH, folder / "a:b/line.so");
  EXPECT_EQ(run({"-e", folder / "a:b/line.so" + ":" + out, findings}).output, "");
  EXPECT_EQ(read_file(out), LINE);
  EXPECT_EQ(run_with_names({"-e", "line:" + folder / "a:b/out", findings}).output, "");
  EXPECT_EQ(read_file(folder / "a:b/out"), LINE);
}

TEST_F(SeveralOutputsTest, ANameOrAFileThatIsEmptyIsRefused) {
  expect_refused({"-e", ":" + out},
                 "--extension is \":" + out +
                     "\", expected the name of an extension or the path of its library");
  expect_refused({"-e", "text:"},
                 "--extension is \"text:\", expected the name of a file after \":\"");
  expect_refused(
      {"-e", ""},
      "--extension is \"\", expected the name of an extension or the path of its library");
}

TEST_F(SeveralOutputsTest, OneFileForTwoOutputsIsRefused) {
  expect_refused({"-e", "text:" + out, "-e", "line:" + out},
                 "the file of --extension text is \"" + out +
                     "\", which the file of --extension line is, too");
  expect_refused({"-e", "text:" + out, "-e", "line:" + folder / "more/../out"},
                 "the file of --extension text is \"" + out +
                     "\", which the file of --extension line is, too");
  expect_refused(
      {"-e", "text:-", "-e", "line:-"},
      "the file of --extension text is \"-\", which the file of --extension line is, too");
  expect_refused({"-e", "text", "-e", "line:" + out, "-o", out},
                 "the file of --extension line is \"" + out + "\", which --output is, too");
  fs::create_symlink(findings, folder / "link");
  EXPECT_EQ(run_with_names({"-e", "line:" + folder / "link", findings}).status, 2);
}

TEST_F(SeveralOutputsTest, OneFileNotMadeYetIsRefusedHoweverItIsSpelt) {
  fs::create_directory_symlink("more", folder / "folder_link");
  fs::create_symlink("more/new", folder / "file_link");
  fs::create_symlink("./file_link", folder / "link_to_link");
  const std::string path = "more/new";
  for (const std::string& other :
       {std::string("./more/new"), folder / path, folder / "more/../" + path,
        std::string("folder_link/new"), std::string("file_link"), std::string("link_to_link")}) {
    expect_refused_in_folder({"-e", "line:" + path, "-e", "text:" + other},
                             "the file of --extension line is \"" + path +
                                 "\", which the file of --extension text is, too");
    expect_refused_in_folder(
        {"-e", "line:" + other, "-e", "text", "-o", path},
        "the file of --extension line is \"" + other + "\", which --output is, too");
    EXPECT_FALSE(fs::exists(folder / path));
  }
}

TEST_F(SeveralOutputsTest, FilesNotMadeYetThatLookAlikeAreEachTheirOwn) {
  fs::create_directory(folder / "other");
  fs::create_directory_symlink("../other", folder / "more/up");
  fs::create_symlink("new", folder / "other/link");
  EXPECT_EQ(Command({"-e", "text:more/new", "-e", "text:more/up/../new", "-e", "text:other/link",
                     "-o", "./-", "-e", "text:-", "-e", "text", findings})
                .in_folder(folder.path())
                .run()
                .status,
            0);
  for (const std::string path : {"more/new", "new", "other/new", "-"}) {
    EXPECT_EQ(read_file(folder / path), report) << path;
  }
}

TEST_F(SeveralOutputsTest, TheFileThatStandardOutputIsIsRefusedForAnOutput) {
  const std::string file = folder.write("file", "kept");
  fs::create_hard_link(file, folder / "hard_link");
  const auto expect_refused_there = [&](const std::vector<std::string>& arguments,
                                        const std::string& message) {
    expect_error(Command(arguments).in_folder(folder.path()).output_file(file).run(), 2,
                 message + ", which standard output is, too; see vond-report --help");
    EXPECT_EQ(read_file(file), "kept");
  };
  for (const std::string path : {"./file", "hard_link", "/dev/stdout"}) {
    const std::string message = "the file of --extension text is \"" + path + "\"";
    expect_refused_there({"-e", "text", "-e", "text:" + path, findings}, message);
    expect_refused_there({"-e", "text:-", "-e", "text:" + path, findings}, message);
    expect_refused_there({"-o", path, findings}, "--output is \"" + path + "\"");
  }
}

TEST_F(SeveralOutputsTest, WhereStandardOutputGetsNothingItsFileMayBeAnOutput) {
  const std::string file = folder.write("file", "");
  EXPECT_EQ(Command({"-e", "text:" + file, findings}).output_file(file).run().status, 0);
  EXPECT_EQ(read_file(file), report);
}

TEST_F(SeveralOutputsTest, OtherFilesDevicesAndPipesMayBeOutputsBesideStandardOutput) {
  const std::string file = folder.write("file", "");
  EXPECT_EQ(Command({"-o", out, findings}).output_file(file).run().status, 0);
  EXPECT_EQ(read_file(file), report);
  EXPECT_EQ(read_file(out), report);
  EXPECT_EQ(run({"-e", "text", "-e", "text:/dev/stdout", findings}).output, report + report);
  EXPECT_EQ(run({"-o", "/dev/stdout", findings}).output, report + report);
  EXPECT_EQ(Command({"-e", "text", "-e", "text:/dev/null", findings})
                .output_file("/dev/null")
                .run()
                .status,
            0);
  EXPECT_EQ(Command({"--width=80", "-e", "text", "-e", "text:/dev/stdout", findings})
                .output_terminal(80)
                .run()
                .status,
            0);
}

TEST_F(SeveralOutputsTest, ADashIsNoFileOfThatName) {
  const std::string input = folder.write("-", R"({"id": "a", "severity": 10})");
  EXPECT_EQ(Command({"-e", "text:-", "./-"}).in_folder(folder.path()).run().status, 0);
  EXPECT_EQ(
      Command({"-e", "text:-", "-e", "text:./-", findings}).in_folder(folder.path()).run().output,
      report);
  EXPECT_EQ(read_file(input), report);
}

TEST_F(SeveralOutputsTest, AnInputIsNotReplacedByAnOutputWithAFile) {
  expect_refused({"-e", "line:" + findings},
                 "the file of --extension line is \"" + findings + "\", which is an input, too");
}

TEST_F(SeveralOutputsTest, AFileBesideStandardOutputThatNothingWouldBeInIsRefused) {
  expect_refused({"-e", "line:" + folder / "own", "-o", out},
                 "--output is \"" + out +
                     "\", but every extension has a file of its own, so that nothing would be in "
                     "it");
}

TEST_F(SeveralOutputsTest, AnExtensionThatFailsIsNamedAndLeavesNoFileAndTheOthersAreComplete) {
  folder.write("kept", "old");
  const Outcome outcome = run_with_names({"-e", "throws:" + folder / "kept", "-e", "text", "-e",
                                          "line:" + out, "-o", folder / "shared", findings});
  EXPECT_EQ(outcome.output, report);
  EXPECT_EQ(read_file(folder / "shared"), report);
  EXPECT_EQ(read_file(out), LINE);
  EXPECT_EQ(read_file(folder / "kept"), "old");
  EXPECT_EQ(outcome.errors,
            "vond-report: error: throws: the extension's run failed: no \\x1b[31mtemplate\n");
  EXPECT_EQ(outcome.status, 3);
}

TEST_F(SeveralOutputsTest, AFileIsNotKeptWhenOneOfTheTextsInItIsNotWhole) {
  const Outcome outcome = run_with_names({"-e", "throws", "-e", "line", "-o", out, findings});
  EXPECT_EQ(outcome.output, std::string("before the fault\n") + LINE);
  EXPECT_FALSE(fs::exists(out));
  EXPECT_EQ(outcome.status, 3);
}

TEST_F(SeveralOutputsTest, AFileThatCannotBeMadeIsAnErrorBeforeAnythingIsWritten) {
  expect_error(run_with_names({"-e", "text", "-e", "line:/missing/folder/out", findings}), 3,
               "/missing/folder/out: No such file or directory");
}

TEST_F(SeveralOutputsTest, ADeviceThatIsFullIsNamedAndTheOthersAreComplete) {
  const Outcome outcome =
      run_with_names({"-e", "line:/dev/full", "-e", "text:" + out, "-e", "line", findings});
  EXPECT_EQ(outcome.output, LINE);
  EXPECT_EQ(read_file(out), report);
  EXPECT_EQ(outcome.errors, "vond-report: error: /dev/full: No space left on device\n");
  EXPECT_EQ(outcome.status, 3);
}

TEST_F(SeveralOutputsTest, AReaderThatHasGoneTakesNothingFromFiles) {
  const Outcome outcome = Command({"--width=20", "-e", "text", "-e", "text:" + out,
                                   std::string(EXAMPLE_FOLDER) + "/findings.jsonl"})
                              .output_read_up_to(80)
                              .run();
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_NE(read_file(out).find("End of report."), std::string::npos);
}

TEST_F(SeveralOutputsTest, OfAnExtensionThatEndsTheProcessNoFileIsLeftAndEarlierOnesAreComplete) {
  const Outcome outcome =
      run_with_names({"-e", "line:" + folder / "earlier", "-e",
                      std::string(ENDS_IN_TERMINATE_PATH) + ":" + out, "-e", "text", findings});
  EXPECT_EQ(read_file(folder / "earlier"), LINE);
  EXPECT_FALSE(fs::exists(out));
  EXPECT_EQ(outcome.output, "");
}

}  // namespace
}  // namespace vond::test
