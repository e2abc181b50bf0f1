#include "standalone/input/input_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <string>

#include "standalone/input/input_error.h"
#include "tests/standalone/support/test_input.h"

namespace {

using vond::standalone::InputError;
using vond::standalone::InputFile;
using vond::test::TestFile;

std::string error_of_opening(const std::string& path) {
  try {
    const InputFile file(path, "a file of findings");
  } catch (const InputError& error) {
    return error.what();
  }
  return "no error";
}

std::string read_all(InputFile& file, std::size_t block_size) {
  std::string content;
  std::string block(block_size, '\0');
  while (const std::size_t count = file.read(block.data(), block.size())) {
    content.append(block, 0, count);
  }
  return content;
}

TEST(InputFile, ReadsFromTheStartToTheEndInPiecesOfAnySize) {
  const std::string content = std::string("a\0b\n\xFF", 5) + std::string(10000, 'x');
  const TestFile test_file(content);
  for (const std::size_t block_size : {1U, 7U, 4096U, 100000U}) {
    InputFile file(test_file.path(), "a file");
    EXPECT_EQ(read_all(file, block_size), content);
    char rest = '\0';
    EXPECT_EQ(file.read(&rest, 1), 0U) << "the end stays the end";
  }
}

TEST(InputFile, ReadsNothingFromAnEmptyFile) {
  const TestFile test_file("");
  InputFile file(test_file.path(), "a file");
  EXPECT_EQ(read_all(file, 10), "");
}

TEST(InputFile, IsCalledByItsPathMadeHarmless) {
  const TestFile test_file("");
  EXPECT_EQ(InputFile(test_file.path(), "a file").name(), test_file.path());
  EXPECT_EQ(error_of_opening("no\nsuch\x1b"),
            "no\\x0asuch\\x1b: cannot be opened (No such file or directory), expected a file of "
            "findings");
}

TEST(InputFile, TellsThatItIsNotThereOrNoFile) {
  EXPECT_EQ(error_of_opening("/nowhere/at/all"),
            "/nowhere/at/all: cannot be opened (No such file or directory), expected a file of "
            "findings");
  EXPECT_EQ(error_of_opening("/"), "/: is a folder, expected a file of findings");
  EXPECT_EQ(error_of_opening(""),
            ": cannot be opened (No such file or directory), expected a file of findings");
}

TEST(InputFile, TellsThatReadingFailed) {
  // What a process may open there, but not read at the start, is its own memory.
  InputFile file("/proc/self/mem", "a file");
  std::array<char, 16> buffer{};
  try {
    file.read(buffer.data(), buffer.size());
    ADD_FAILURE() << "no error";
  } catch (const InputError& error) {
    EXPECT_STREQ(error.what(),
                 "/proc/self/mem: cannot be read (Input/output error), expected a file");
  }
}

TEST(InputFile, ClosesWhatItHasOpenedAndNothingElse) {
  const TestFile test_file("content");
  const int next_descriptor = ::dup(STDIN_FILENO);
  ASSERT_GE(next_descriptor, 0);
  ::close(next_descriptor);
  { const InputFile file(test_file.path(), "a file"); }
  EXPECT_EQ(error_of_opening("/"), "/: is a folder, expected a file of findings");
  { const InputFile standard_input("-", "a file"); }
  EXPECT_NE(::fcntl(STDIN_FILENO, F_GETFD), -1) << "standard input stays open";
  const int descriptor = ::dup(STDIN_FILENO);
  EXPECT_EQ(descriptor, next_descriptor) << "a file was left open";
  ::close(descriptor);
}

TEST(InputFile, TakesStandardInputForADash) {
  std::array<int, 2> pipe_ends{};
  ASSERT_EQ(::pipe(pipe_ends.data()), 0);
  ASSERT_EQ(::write(pipe_ends[1], "piped", 5), 5);
  ::close(pipe_ends[1]);
  const int standard_input = ::dup(STDIN_FILENO);
  ::dup2(pipe_ends[0], STDIN_FILENO);
  InputFile file("-", "a file");
  EXPECT_EQ(file.name(), "<stdin>");
  EXPECT_EQ(read_all(file, 3), "piped");
  ::dup2(standard_input, STDIN_FILENO);
  ::close(standard_input);
  ::close(pipe_ends[0]);
}

}  // namespace
