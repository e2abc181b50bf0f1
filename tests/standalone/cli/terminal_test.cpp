// What depends on whether a terminal is behind standard input or standard output.
#include <gtest/gtest.h>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

// A red verdict, and a message that is longer than any of the widths.
constexpr char FINDING[] =
    R"({"id": "a", "severity": 90, "message": "one two three four five six seven eight nine ten )"
    R"(eleven twelve thirteen fourteen fifteen sixteen seventeen eighteen nineteen twenty"})"
    "\n";

bool has_colors(const std::string& text) { return text.find("\033[") != std::string::npos; }

std::string without_colors(std::string text) {
  for (std::size_t at = text.find("\033["); at != std::string::npos; at = text.find("\033[", at)) {
    text.erase(at, text.find('m', at) + 1 - at);
  }
  return text;
}

std::string report_of_width(const std::string& width) {
  return Command({"--width", width}).input(FINDING).run().output;
}

class TerminalTest : public ::testing::Test {
 protected:
  Command on_terminal(std::vector<std::string> arguments) {
    Command command(std::move(arguments));
    command.output_terminal(100).input(FINDING);
    return command;
  }
};

TEST_F(TerminalTest, NoOperandsAndATerminalAsInputIsAUsageError) {
  expect_error(Command({}).input_terminal().run(), 2,
               "no findings: name files of them, or pipe them in; see vond-report --help");
}

TEST_F(TerminalTest, NothingAndADashReadPipedInput) {
  const Outcome nothing = Command({}).input(FINDING).run();
  EXPECT_EQ(nothing.status, 1);
  EXPECT_NE(nothing.output.find("  Input:    standard input\n"), std::string::npos);
  EXPECT_EQ(Command({"-"}).input(FINDING).run().output, nothing.output);
}

TEST_F(TerminalTest, TheTerminalsWidthIsTheReports) {
  EXPECT_EQ(Command({"--color", "never"}).output_terminal(50).input(FINDING).run().output,
            report_of_width("50"));
}

TEST_F(TerminalTest, WithoutATerminalOrItsSizeTheWidthIsThatOfColumns) {
  EXPECT_EQ(Command({}).environment("COLUMNS", "50").input(FINDING).run().output,
            report_of_width("50"));
  Command terminal({"--color", "never"});
  terminal.output_terminal(0).environment("COLUMNS", "50").input(FINDING);
  EXPECT_EQ(terminal.run().output, report_of_width("50"));
}

TEST_F(TerminalTest, ATerminalThatKnowsItsSizeGoesBeforeColumns) {
  EXPECT_EQ(on_terminal({"--color", "never"}).environment("COLUMNS", "50").run().output,
            report_of_width("100"));
}

TEST_F(TerminalTest, AWidthThatIsGivenGoesBeforeColumns) {
  EXPECT_EQ(Command({"-w", "40"}).environment("COLUMNS", "50").input(FINDING).run().output,
            report_of_width("40"));
}

TEST_F(TerminalTest, ColumnsThatAreNoNumberOfColumnsAreIgnored) {
  for (const char* columns : {"", "0", "-5", "50x", " 50", "many", "99999999999999999999"}) {
    EXPECT_EQ(Command({}).environment("COLUMNS", columns).input(FINDING).run().output,
              report_of_width("80"))
        << columns;
  }
}

TEST_F(TerminalTest, AWidthThatIsGivenGoesBeforeTheTerminals) {
  EXPECT_EQ(on_terminal({"--color", "never", "-w", "40"}).run().output, report_of_width("40"));
}

TEST_F(TerminalTest, WithoutATerminalOrItsSizeTheWidthIs80) {
  EXPECT_EQ(Command({}).input(FINDING).run().output, report_of_width("80"));
  EXPECT_EQ(Command({"--color", "never"}).output_terminal(0).input(FINDING).run().output,
            report_of_width("80"));
  EXPECT_NE(report_of_width("80"), report_of_width("79"));
}

TEST_F(TerminalTest, AWidthOfZeroWrapsNothing) {
  EXPECT_NE(report_of_width("0").find("seventeen eighteen nineteen twenty\n"), std::string::npos);
}

TEST_F(TerminalTest, ColoursAreForTerminalsUnlessToldOtherwise) {
  EXPECT_TRUE(has_colors(on_terminal({}).run().output));
  EXPECT_TRUE(has_colors(on_terminal({"--color", "auto"}).run().output));
  EXPECT_TRUE(has_colors(on_terminal({"--color=always"}).run().output));
  EXPECT_FALSE(has_colors(on_terminal({"--color", "never"}).run().output));
  EXPECT_FALSE(has_colors(Command({}).input(FINDING).run().output));
  EXPECT_FALSE(has_colors(Command({"--color", "auto"}).input(FINDING).run().output));
  EXPECT_FALSE(has_colors(Command({"--color", "never"}).input(FINDING).run().output));
  EXPECT_TRUE(has_colors(Command({"--color", "always"}).input(FINDING).run().output));
}

TEST_F(TerminalTest, NoColorIsHonouredUnlessItIsEmptyOrColoursAreAskedFor) {
  EXPECT_FALSE(has_colors(on_terminal({}).environment("NO_COLOR", "1").run().output));
  EXPECT_FALSE(has_colors(on_terminal({}).environment("NO_COLOR", "0").run().output));
  EXPECT_TRUE(has_colors(on_terminal({}).environment("NO_COLOR", "").run().output));
  EXPECT_TRUE(
      has_colors(on_terminal({"--color", "always"}).environment("NO_COLOR", "1").run().output));
}

TEST_F(TerminalTest, ColoursChangeNothingElse) {
  EXPECT_EQ(without_colors(on_terminal({}).run().output), report_of_width("100"));
}

TEST_F(TerminalTest, FilesGetPlainTextWhileTheTerminalGetsColours) {
  const TemporaryFolder folder;
  const Outcome outcome = on_terminal({"-o", folder / "one", "--output", folder / "two"}).run();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(has_colors(outcome.output));
  EXPECT_EQ(read_file(folder / "one"), report_of_width("100"));
  EXPECT_EQ(read_file(folder / "two"), report_of_width("100"));
}

}  // namespace
}  // namespace vond::test
