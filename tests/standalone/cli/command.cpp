#include "tests/standalone/cli/command.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace vond::test {
namespace {

/// What a child that could not become the program ends with.
constexpr int NOT_STARTED = 127;

struct Pipe {
  int reading_end = -1;
  int writing_end = -1;
};

Pipe make_pipe() {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) {
    throw std::runtime_error("cannot make a pipe");
  }
  return {ends[0], ends[1]};
}

/// Returns both ends of a terminal that passes on bytes as they are.
Pipe make_terminal(unsigned short columns) {
  Pipe terminal;
  termios settings{};
  cfmakeraw(&settings);
  winsize size{};
  size.ws_col = columns;
  if (openpty(&terminal.reading_end, &terminal.writing_end, nullptr, &settings, &size) != 0) {
    throw std::runtime_error("cannot make a terminal");
  }
  fcntl(terminal.reading_end, F_SETFD, FD_CLOEXEC);
  fcntl(terminal.writing_end, F_SETFD, FD_CLOEXEC);
  return terminal;
}

std::vector<char*> pointers_to(std::vector<std::string>& words) {
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) {
    pointers.push_back(word.data());
  }
  pointers.push_back(nullptr);
  return pointers;
}

void limit_memory(std::size_t bytes) {
  const rlimit limit{bytes, bytes};
  setrlimit(RLIMIT_AS, &limit);
}

/// Reads what is there, up to `most` bytes; false at the end.
bool read_some(int descriptor, std::string& text, std::size_t most) {
  char block[65536];
  const ssize_t count = read(descriptor, block, std::min(sizeof block, most));
  // A terminal that nobody writes to any more tells an error.
  if (count <= 0) {
    return count < 0 && errno == EINTR;
  }
  text.append(block, static_cast<std::size_t>(count));
  return true;
}

int wait_for(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

Command& Command::program(const std::string& path) {
  program_ = path;
  return *this;
}

Command& Command::environment(const std::string& name, const std::string& value) {
  environment_[name] = value;
  return *this;
}

Command& Command::without_environment(const std::string& name) {
  environment_.erase(name);
  return *this;
}

Command& Command::in_folder(const std::string& path) {
  folder_ = path;
  return *this;
}

Command& Command::input(const std::string& text) {
  input_ = text;
  return *this;
}

Command& Command::input_file(const std::string& path) {
  input_path_ = path;
  return *this;
}

Command& Command::input_terminal() {
  input_is_terminal_ = true;
  return *this;
}

Command& Command::output_terminal(unsigned short columns) {
  output_ = Output::TERMINAL;
  columns_ = columns;
  return *this;
}

Command& Command::output_file(const std::string& path) {
  output_ = Output::FILE;
  output_path_ = path;
  return *this;
}

Command& Command::output_read_up_to(std::size_t bytes) {
  most_bytes_ = bytes;
  return *this;
}

Command& Command::output_non_blocking() {
  output_ = Output::NON_BLOCKING_PIPE;
  return *this;
}

Command& Command::closed(int descriptor) {
  closed_.push_back(descriptor);
  return *this;
}

Command& Command::memory_limit(std::size_t bytes) {
  memory_limit_ = bytes;
  return *this;
}

Command& Command::signal_after_first_text(int signal) {
  signal_ = signal;
  return *this;
}

Outcome Command::run() {
  const int input = open_input();
  int output_reader = -1;
  const int output = open_output(output_reader);
  const Pipe errors = make_pipe();
  const pid_t process = fork();
  if (process < 0) {
    throw std::runtime_error("cannot start a process");
  }
  if (process == 0) {
    become_program(input, output, errors.writing_end);
  }
  for (const int descriptor : {input, output, errors.writing_end}) {
    close(descriptor);
  }
  Outcome outcome;
  read_texts(process, output_reader, errors.reading_end, outcome);
  outcome.status = wait_for(process);
  if (input_master_ >= 0) {
    close(input_master_);
  }
  return outcome;
}

int Command::open_input() {
  if (!input_path_.empty()) {
    return open(input_path_.c_str(), O_RDONLY | O_CLOEXEC);
  }
  if (input_is_terminal_) {
    const Pipe terminal = make_terminal(80);
    input_master_ = terminal.reading_end;
    return terminal.writing_end;
  }
  const Pipe pipe = make_pipe();
  constexpr int LARGEST_PIPE = 1 << 20;
  fcntl(pipe.writing_end, F_SETPIPE_SZ, LARGEST_PIPE);
  const ssize_t count = write(pipe.writing_end, input_.data(), input_.size());
  if (count != static_cast<ssize_t>(input_.size())) {
    throw std::runtime_error("too much input");
  }
  close(pipe.writing_end);
  return pipe.reading_end;
}

int Command::open_output(int& reading_end) const {
  if (output_ == Output::FILE) {
    return open(output_path_.c_str(), O_WRONLY | O_CLOEXEC);
  }
  const Pipe pipe = output_ == Output::TERMINAL ? make_terminal(columns_) : make_pipe();
  if (output_ == Output::NON_BLOCKING_PIPE) {
    fcntl(pipe.writing_end, F_SETFL, O_NONBLOCK);
  }
  reading_end = pipe.reading_end;
  return pipe.writing_end;
}

void Command::become_program(int input, int output, int errors) const {
  dup2(input, STDIN_FILENO);
  dup2(output, STDOUT_FILENO);
  dup2(errors, STDERR_FILENO);
  for (const int descriptor : closed_) {
    close(descriptor);
  }
  if (!folder_.empty() && chdir(folder_.c_str()) != 0) {
    _exit(NOT_STARTED);
  }
  std::vector<std::string> arguments = arguments_;
  arguments.insert(arguments.begin(), "vond-report");
  std::vector<std::string> environment;
  environment.reserve(environment_.size());
  for (const auto& [name, value] : environment_) {
    environment.push_back(name + "=" + value);
  }
  if (memory_limit_ != 0) {
    limit_memory(memory_limit_);
  }
  execve(program_.c_str(), pointers_to(arguments).data(), pointers_to(environment).data());
  _exit(NOT_STARTED);
}

void Command::read_texts(pid_t process, int output, int errors, Outcome& outcome) const {
  pollfd sources[] = {{output, POLLIN, 0}, {errors, POLLIN, 0}};
  std::string* const texts[] = {&outcome.output, &outcome.errors};
  bool is_signalled = signal_ == 0;
  const std::size_t most_bytes = most_bytes_.value_or(std::string::npos);
  while (sources[0].fd >= 0 || sources[1].fd >= 0) {
    if (poll(sources, 2, -1) < 0) {
      continue;
    }
    for (std::size_t i = 0; i < 2; ++i) {
      if (sources[i].revents == 0) {
        continue;
      }
      const std::size_t most = i == 0 ? most_bytes - texts[i]->size() : std::string::npos;
      if (most == 0 || !read_some(sources[i].fd, *texts[i], most)) {
        close(sources[i].fd);
        sources[i].fd = -1;
      } else if (!is_signalled) {
        kill(process, signal_);
        is_signalled = true;
      }
    }
  }
}

Outcome run(const std::vector<std::string>& arguments) { return Command(arguments).run(); }

std::vector<std::string> output_names() {
  std::istringstream lines(run({"--list-extensions"}).output);
  std::vector<std::string> names;
  for (std::string line; std::getline(lines, line);) {
    names.push_back(line.substr(0, line.find('\t')));
  }
  return names;
}

void expect_error(const Outcome& outcome, int status, const std::string& message) {
  EXPECT_EQ(outcome.errors, "vond-report: error: " + message + "\n");
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.status, status);
}

bool is_under_address_sanitizer() {
  return std::string_view(VOND_SANITIZERS).find("address") != std::string_view::npos;
}

}  // namespace vond::test
