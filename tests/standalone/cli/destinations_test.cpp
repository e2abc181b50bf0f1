// Where the report goes: complete or a message, never silently cut short.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

constexpr char EXAMPLE[] = EXAMPLE_FOLDER "/findings.jsonl";
/// Makes the example's report larger than a pipe holds.
constexpr char NARROW[] = "--width=20";

class DestinationsTest : public ::testing::Test {
 protected:
  DestinationsTest() { fs::create_directory(outputs); }

  /// Expects that an output that cannot be made is told and nothing else is done.
  void expect_refused(const std::string& path, const std::string& reason) {
    expect_error(run({"-o", path, findings}), 3, path + ": " + reason);
  }

  Names output_names() const {
    Names names;
    for (const auto& entry : fs::directory_iterator(outputs)) {
      names.push_back(entry.path().filename());
    }
    return names;
  }

  TemporaryFolder folder;
  std::string findings = folder.write("findings", R"({"id": "a", "severity": 10})");
  std::string outputs = folder / "outputs";
  std::string report = run({findings}).output;
  std::string example_report = run({NARROW, EXAMPLE}).output;
};

mode_t permissions(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status.st_mode & 07777;
}

bool may_do_anything() { return geteuid() == 0; }

TEST_F(DestinationsTest, StandardOutputThatIsClosedIsAnError) {
  expect_error(Command({findings}).closed(STDOUT_FILENO).run(), 3,
               "standard output: Bad file descriptor");
  expect_error(Command({"--help"}).closed(STDOUT_FILENO).run(), 3,
               "standard output: Bad file descriptor");
}

TEST_F(DestinationsTest, StandardOutputThatIsFullIsAnError) {
  for (const std::string& arguments : {findings, std::string("--help"), std::string("--version")}) {
    expect_error(Command({arguments}).output_file("/dev/full").run(), 3,
                 "standard output: No space left on device");
  }
  expect_error(Command({NARROW, EXAMPLE}).output_file("/dev/full").run(), 3,
               "standard output: No space left on device");
}

TEST_F(DestinationsTest, AReaderThatHasGoneIsToldNothingAndOtherFilesAreComplete) {
  const std::string output = folder / "output";
  const Outcome outcome = Command({NARROW, EXAMPLE, "-o", output}).output_read_up_to(80).run();
  EXPECT_EQ(outcome.output, example_report.substr(0, 80));
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(read_file(output), example_report);
}

TEST_F(DestinationsTest, AReaderThatHasGoneBeforeTheStartIsToldNothing) {
  for (const std::string& argument : {findings, std::string("--help")}) {
    const Outcome outcome = Command({argument}).output_read_up_to(0).run();
    // The program may still have been quicker.
    EXPECT_EQ(outcome.errors, "");
    EXPECT_TRUE(outcome.status == 3 || outcome.status == 0);
  }
}

TEST_F(DestinationsTest, APipeThatDoesNotBlockGetsEverything) {
  const Outcome outcome = Command({NARROW, EXAMPLE}).output_non_blocking().run();
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.output, example_report);
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(DestinationsTest, StandardErrorThatIsClosedTakesNothingFromTheReport) {
  const Outcome outcome = Command({findings}).closed(STDERR_FILENO).run();
  EXPECT_EQ(outcome.output, report);
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(DestinationsTest, MessagesNeverEndUpInAFileThatWasOpenedInPlaceOfStandardError) {
  const std::string output = folder / "output";
  folder.write("output", "old");
  const Outcome outcome =
      Command({"-o", output, "-e", EXTENSION_WHOSE_RUN_THROWS_ITS_OWN_TYPE_PATH, findings})
          .closed(STDERR_FILENO)
          .run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(read_file(output), "old");
}

TEST_F(DestinationsTest, StandardInputThatIsClosedIsAnInputError) {
  expect_error(Command({}).closed(STDIN_FILENO).run(), 2,
               "<stdin>: cannot be read (Bad file descriptor), expected a file of findings");
}

TEST_F(DestinationsTest, AFileIsMadeWithTheUsualPermissions) {
  const std::string output = folder / "output";
  EXPECT_EQ(run({"-o", output, findings}).output, report);
  EXPECT_EQ(read_file(output), report);
  const mode_t mask = umask(0);
  umask(mask);
  EXPECT_EQ(permissions(output), 0666 & ~mask);
}

TEST_F(DestinationsTest, AFileThatIsReplacedKeepsItsPermissions) {
  const std::string output = folder.write("output", "old");
  chmod(output.c_str(), 0604);
  run({"-o", output, findings});
  EXPECT_EQ(read_file(output), report);
  EXPECT_EQ(permissions(output), 0604U);
}

TEST_F(DestinationsTest, ALinkIsFollowed) {
  const std::string target = folder.write("target", "old");
  fs::create_symlink("target", folder / "link");
  run({"-o", folder / "link", findings});
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_EQ(read_file(target), report);
}

TEST_F(DestinationsTest, ALinkToAFileNotMadeYetIsFollowed) {
  fs::create_symlink("outputs/new", folder / "link");
  run({"-o", folder / "link", findings});
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_EQ(read_file(outputs + "/new"), report);
}

TEST_F(DestinationsTest, LinksInACircleAreAnErrorAndStay) {
  fs::create_symlink("second", folder / "first");
  fs::create_symlink("first", folder / "second");
  expect_refused(folder / "first", "Too many levels of symbolic links");
  expect_error(
      run({"-e", "text:" + folder / "first", "-e", "text:" + folder / "./first", findings}), 3,
      folder / "first: Too many levels of symbolic links");
  EXPECT_TRUE(fs::is_symlink(folder / "first"));
  EXPECT_TRUE(fs::is_symlink(folder / "second"));
}

TEST_F(DestinationsTest, TheSameFileTwiceIsComplete) {
  const std::string output = outputs + "/output";
  EXPECT_EQ(run({"-o", output, "-o", output, findings}).status, 0);
  EXPECT_EQ(read_file(output), report);
  EXPECT_EQ(output_names(), Names{"output"});
}

TEST_F(DestinationsTest, ADeviceIsWrittenAsItIs) {
  EXPECT_EQ(run({"-o", "/dev/null", findings}).output, report);
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  const Outcome outcome = run({"-o", "/dev/stderr", findings});
  EXPECT_EQ(outcome.errors, report);
  EXPECT_EQ(outcome.output, report);
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(DestinationsTest, ADeviceThatIsFullIsAnErrorAndStandardOutputIsComplete) {
  const Outcome outcome = run({"-o", "/dev/full", findings});
  EXPECT_EQ(outcome.errors, "vond-report: error: /dev/full: No space left on device\n");
  EXPECT_EQ(outcome.output, report);
  EXPECT_EQ(outcome.status, 3);
}

TEST_F(DestinationsTest, AllOutputsThatAreIncompleteAreNamed) {
  const Outcome outcome = Command({"-o", "/dev/full", "-o", folder / "output", findings})
                              .output_file("/dev/full")
                              .run();
  EXPECT_EQ(outcome.errors,
            "vond-report: error: standard output: No space left on device\n"
            "vond-report: error: /dev/full: No space left on device\n");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(read_file(folder / "output"), report);
}

TEST_F(DestinationsTest, AFileThatCannotBeMadeIsAnErrorBeforeAnythingIsWritten) {
  expect_refused(folder / "missing/output", "No such file or directory");
  expect_refused(outputs, "Is a directory");
  expect_refused(outputs + "/", "Is a directory");
  expect_refused(findings + "/output", "Not a directory");
  expect_refused(folder / std::string(300, 'x'), "File name too long");
}

TEST_F(DestinationsTest, AFolderThatMayNotBeWrittenIsAnError) {
  if (may_do_anything()) {
    GTEST_SKIP() << "root may write everywhere";
  }
  chmod(outputs.c_str(), 0555);
  expect_refused(outputs + "/output", "Permission denied");
}

TEST_F(DestinationsTest, AFileThatMayNotBeWrittenIsNotReplaced) {
  if (may_do_anything()) {
    GTEST_SKIP() << "root may write everywhere";
  }
  const std::string output = folder.write("output", "old");
  chmod(output.c_str(), 0444);
  expect_refused(output, "Permission denied");
  EXPECT_EQ(read_file(output), "old");
}

TEST_F(DestinationsTest, ADashIsNoFileAndRefusedWithAHint) {
  expect_error(Command({"-o", "-", findings}).in_folder(folder.path()).run(), 2,
               "--output is \"-\", but standard output gets the report in any case; a file of that "
               "name is \"./-\"; see vond-report --help");
  EXPECT_EQ(Command({"-o", "./-", findings}).in_folder(folder.path()).run().status, 0);
  EXPECT_EQ(read_file(folder / "-"), report);
}

TEST_F(DestinationsTest, AnInputIsNotReplacedByItsReport) {
  fs::create_symlink("findings", folder / "link");
  for (const std::string& output : {findings, folder / "link", folder / "outputs/../findings"}) {
    expect_error(run({"-o", output, findings}), 2,
                 "--output is \"" + output + "\", which is an input, too; see vond-report --help");
  }
  expect_error(run({"-d", findings, "-o", findings}), 2,
               "--output is \"" + findings + "\", which is an input, too; see vond-report --help");
}

TEST_F(DestinationsTest, AnInputThatIsRedirectedIsNotReplacedEither) {
  expect_error(Command({"-o", findings}).input_file(findings).run(), 2,
               "--output is \"" + findings + "\", which is an input, too; see vond-report --help");
  EXPECT_EQ(Command({"-o", folder / "output"}).input_file(findings).run().status, 0);
}

TEST_F(DestinationsTest, NothingIsLeftOfAReportThatCannotBeMade) {
  const std::string output = outputs + "/output";
  const std::string bad = folder.write("bad", "{");
  EXPECT_EQ(run({"-o", output, bad}).status, 2);
  EXPECT_EQ(run({"-o", output, "-o", folder / "missing/output", findings}).status, 3);
  EXPECT_EQ(
      run({"-o", output, "-e", EXTENSION_WHOSE_RUN_THROWS_ITS_OWN_TYPE_PATH, findings}).status, 3);
  EXPECT_EQ(run({"-o", output, "-e", PRINTS_AND_THROWS_PATH, findings}).status, 3);
  EXPECT_EQ(run({"-o", output, "-e", ENDS_IN_TERMINATE_PATH, findings}).status, 128 + SIGABRT);
  EXPECT_EQ(output_names(), Names{});
}

TEST_F(DestinationsTest, TheOldContentStaysWhenTheReportCannotBeMade) {
  const std::string output = outputs + "/output";
  folder.write("outputs/output", "old");
  for (const char* extension :
       {EXTENSION_WHOSE_RUN_THROWS_ITS_OWN_TYPE_PATH, PRINTS_AND_THROWS_PATH,
        ENDS_IN_TERMINATE_PATH, STATEMENT_WITHOUT_MEMORY_PATH,
        EXTENSION_WHOSE_RUN_RETURNS_1_PATH}) {
    run({"-o", output, "-e", extension, findings});
    EXPECT_EQ(read_file(output), "old") << extension;
    EXPECT_EQ(output_names(), Names{"output"}) << extension;
  }
}

TEST_F(DestinationsTest, NothingIsLeftWhenASignalEndsTheProgram) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const Outcome outcome = Command({"-o", outputs + "/output", "-e", WAITS_PATH, findings})
                                .output_terminal(80)
                                .signal_after_first_text(signal)
                                .run();
    EXPECT_EQ(outcome.output, "waiting\n");
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.status, 128 + signal);
    EXPECT_EQ(output_names(), Names{});
  }
}

}  // namespace
}  // namespace vond::test
