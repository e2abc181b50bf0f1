#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <cstddef>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace vond::test {

/// What a run of the program left behind.
struct Outcome {
  /// The exit status, or 128 and the signal that ended the program, as shells have it.
  int status = 0;
  std::string output;
  std::string errors;
};

/// A run of vond-report as a process of its own, with a clock that stands still, nothing on
/// standard input, and pipes for the rest unless told otherwise.
class Command {
 public:
  explicit Command(std::vector<std::string> arguments) : arguments_(std::move(arguments)) {}

  /// `program` runs in place of vond-report.
  Command& program(const std::string& path);
  Command& environment(const std::string& name, const std::string& value);
  Command& without_environment(const std::string& name);
  Command& in_folder(const std::string& path);
  /// Standard input is a pipe with this text in it.
  Command& input(const std::string& text);
  /// Standard input is the file at `path`.
  Command& input_file(const std::string& path);
  Command& input_terminal();
  /// Standard output is a terminal with so many columns; 0 is a terminal that knows no size.
  Command& output_terminal(unsigned short columns);
  /// Standard output is the file at `path`, a device for example.
  Command& output_file(const std::string& path);
  /// Standard output is a pipe; its reader takes `bytes` and goes.
  Command& output_read_up_to(std::size_t bytes);
  /// Standard output is a pipe that another process has made non-blocking.
  Command& output_non_blocking();
  /// Standard output or another descriptor is closed.
  Command& closed(int descriptor);
  /// In bytes of address space.
  Command& memory_limit(std::size_t bytes);
  /// The program gets this signal as soon as standard output or error has some text.
  Command& signal_after_first_text(int signal);

  Outcome run();

 private:
  enum class Output { PIPE, TERMINAL, FILE, NON_BLOCKING_PIPE };

  int open_input();
  int open_output(int& reading_end) const;
  [[noreturn]] void become_program(int input, int output, int errors) const;
  void read_texts(pid_t process, int output, int errors, Outcome& outcome) const;

  std::string program_ = VOND_REPORT;
  std::vector<std::string> arguments_;
  /// What a sanitizer finds must not look like a report that tells of failures.
  std::map<std::string, std::string> environment_ = {{"SOURCE_DATE_EPOCH", "1763699400"},
                                                     {"ASAN_OPTIONS", "exitcode=99"}};
  std::string folder_;
  std::string input_;
  std::string input_path_;
  bool input_is_terminal_ = false;
  int input_master_ = -1;
  Output output_ = Output::PIPE;
  unsigned short columns_ = 0;
  std::string output_path_;
  std::optional<std::size_t> most_bytes_;
  std::vector<int> closed_;
  std::size_t memory_limit_ = 0;
  int signal_ = 0;
};

/// Runs the program with `arguments`.
Outcome run(const std::vector<std::string>& arguments);

/// Returns the names of all outputs.
std::vector<std::string> output_names();

/// Expects that nothing but `message`, an error, was written.
void expect_error(const Outcome& outcome, int status, const std::string& message);

/// Whether the tests run under the address sanitizer, which takes a terabyte of address space.
bool is_under_address_sanitizer();

}  // namespace vond::test
