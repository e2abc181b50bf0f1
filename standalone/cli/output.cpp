#include "standalone/cli/output.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

namespace vond::standalone {
namespace {

constexpr std::size_t BLOCK_SIZE = 256UL * 1024;

/// Returns the permissions that a new file gets in this process.
mode_t new_file_mode() {
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

/// Returns where `path` leads, also where it is a link to a file not made yet.
std::string behind_links(const std::string& path) {
  constexpr int MOST_LINKS = 40;
  std::filesystem::path file = path;
  std::error_code error;
  for (int links = 0; links < MOST_LINKS; ++links) {
    const std::filesystem::path target = std::filesystem::read_symlink(file, error);
    if (error) {
      break;
    }
    file = file.parent_path() / target;
  }
  return file.string();
}

/// Another process that shares the terminal or the pipe may have made it non-blocking.
void wait_until_writable(int descriptor) {
  pollfd waited{descriptor, POLLOUT, 0};
  ::poll(&waited, 1, -1);
}

/// While it lives the handlers of ENDING_SIGNALS wait, so that they find names and files in step.
class SignalsHeld {
 public:
  SignalsHeld() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : ENDING_SIGNALS) {
      sigaddset(&signals, signal);
    }
    sigprocmask(SIG_BLOCK, &signals, &before_);
  }
  ~SignalsHeld() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;

 private:
  sigset_t before_{};
};

}  // namespace

DescriptorBuffer::DescriptorBuffer(int descriptor, Flushing flushing)
    : descriptor_(descriptor), flushing_(flushing), block_(BLOCK_SIZE) {
  setp(block_.data(), block_.data() + block_.size());
  all().push_back(this);
}

DescriptorBuffer::~DescriptorBuffer() { std::erase(all(), this); }

std::vector<DescriptorBuffer*>& DescriptorBuffer::all() {
  static std::vector<DescriptorBuffer*> buffers;
  return buffers;
}

void DescriptorBuffer::drain_all() noexcept {
  for (DescriptorBuffer* buffer : all()) {
    buffer->drain();
  }
}

int DescriptorBuffer::drain() noexcept {
  const char* position = pbase();
  while (error_ == 0 && position != pptr()) {
    const ssize_t written =
        ::write(descriptor_, position, static_cast<std::size_t>(pptr() - position));
    if (written >= 0) {
      position += written;
    } else if (errno == EAGAIN) {
      wait_until_writable(descriptor_);
    } else if (errno != EINTR) {
      error_ = errno;
    }
  }
  setp(block_.data(), block_.data() + block_.size());
  return error_;
}

DescriptorBuffer::int_type DescriptorBuffer::overflow(int_type character) {
  drain();
  if (!traits_type::eq_int_type(character, traits_type::eof())) {
    *pptr() = traits_type::to_char_type(character);
    pbump(1);
  }
  return traits_type::not_eof(character);
}

int DescriptorBuffer::sync() {
  if (flushing_ == Flushing::AT_ONCE) {
    drain();
  }
  return 0;
}

StandardOutput::StandardOutput()
    : is_terminal_(isatty(STDOUT_FILENO) == 1),
      buffer_(STDOUT_FILENO, is_terminal_ ? DescriptorBuffer::Flushing::AT_ONCE
                                          : DescriptorBuffer::Flushing::IN_BLOCKS) {}

std::string StandardOutput::error_message() const {
  return "standard output: " + std::generic_category().message(buffer_.error());
}

int OutputFile::Descriptor::close() noexcept {
  const int result = number_ < 0 ? 0 : ::close(number_);
  number_ = -1;
  return result == 0 ? 0 : errno;
}

OutputFile::UnfinishedName::~UnfinishedName() {
  const SignalsHeld signals_held;
  if (exists()) {
    ::unlink(path_.c_str());
  }
  std::erase(all(), this);
}

int OutputFile::UnfinishedName::make_beside(const std::string& path) {
  std::string name = path + ".XXXXXX";
  const SignalsHeld signals_held;
  all().push_back(this);
  const int descriptor = ::mkostemp(name.data(), O_CLOEXEC);
  if (descriptor >= 0) {
    path_ = std::move(name);
  }
  return descriptor;
}

bool OutputFile::UnfinishedName::rename_to(const std::string& path) {
  const SignalsHeld signals_held;
  if (std::rename(path_.c_str(), path.c_str()) != 0) {
    return false;
  }
  path_.clear();
  return true;
}

void OutputFile::UnfinishedName::unlink_all() noexcept {
  for (const UnfinishedName* name : all()) {
    if (name->exists()) {
      ::unlink(name->path_.c_str());
    }
  }
}

std::vector<const OutputFile::UnfinishedName*>& OutputFile::UnfinishedName::all() {
  static std::vector<const UnfinishedName*> names;
  return names;
}

OutputFile::OutputFile(const std::string& path)
    : name_(path),
      path_(behind_links(path)),
      descriptor_(open()),
      buffer_(descriptor_.number(), DescriptorBuffer::Flushing::IN_BLOCKS) {}

void OutputFile::remove_unfinished() noexcept { UnfinishedName::unlink_all(); }

int OutputFile::open() {
  struct stat status {};
  const bool exists = ::stat(name_.c_str(), &status) == 0;
  if (exists && S_ISDIR(status.st_mode)) {
    fail(EISDIR);
  }
  if (exists && !S_ISREG(status.st_mode)) {
    // Links such as /dev/stdout name pipes that only the system can follow.
    const int special = ::open(name_.c_str(), O_WRONLY | O_CLOEXEC);
    if (special < 0) {
      fail(errno);
    }
    return special;
  }
  // A file that may not be written is not to be replaced either.
  if (exists && ::access(path_.c_str(), W_OK) != 0) {
    fail(errno);
  }
  const int descriptor = unfinished_name_.make_beside(path_);
  if (descriptor < 0) {
    fail(errno);
  }
  ::fchmod(descriptor, exists ? status.st_mode & 07777 : new_file_mode());
  return descriptor;
}

void OutputFile::commit() {
  if (const int error = buffer_.drain(); error != 0) {
    fail(error);
  }
  if (const int error = descriptor_.close(); error != 0) {
    fail(error);
  }
  if (unfinished_name_.exists() && !unfinished_name_.rename_to(path_)) {
    fail(errno);
  }
}

void OutputFile::fail(int error) const {
  throw OutputError(name_ + ": " + std::generic_category().message(error));
}

void occupy_standard_descriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(descriptor, F_GETFD) != -1 || errno != EBADF) {
      continue;
    }
    // The lowest free number is taken, which is this one. It is opened the wrong way round, so that
    // reading and writing still fail.
    const int flags = descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY;
    if (::open("/dev/null", flags) != descriptor) {
      return;
    }
  }
}

}  // namespace vond::standalone
