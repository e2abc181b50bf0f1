#include "standalone/cli/output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace vond::standalone {
namespace {

constexpr std::size_t BLOCK_SIZE = 256UL * 1024;

/// Returns the permissions that a new file gets in this process.
mode_t new_file_mode() {
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

/// Returns `path` with every link in it followed, also where it ends at a file not made yet.
std::string behind_links(const std::string& path) {
  std::error_code error;
  const auto resolved = std::filesystem::weakly_canonical(path, error);
  return error ? path : resolved.string();
}

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
  for (DescriptorBuffer* buffer : all()) buffer->drain();
}

int DescriptorBuffer::drain() noexcept {
  const char* position = pbase();
  while (error_ == 0 && position != pptr()) {
    const ssize_t written =
        ::write(descriptor_, position, static_cast<std::size_t>(pptr() - position));
    if (written >= 0) {
      position += written;
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
  if (flushing_ == Flushing::AT_ONCE) drain();
  return 0;
}

StandardOutput::StandardOutput()
    : is_terminal_(isatty(STDOUT_FILENO) == 1),
      buffer_(STDOUT_FILENO, is_terminal_ ? DescriptorBuffer::Flushing::AT_ONCE
                                          : DescriptorBuffer::Flushing::IN_BLOCKS) {}

int OutputFile::Descriptor::close() noexcept {
  const int result = number_ < 0 ? 0 : ::close(number_);
  number_ = -1;
  return result == 0 ? 0 : errno;
}

OutputFile::OutputFile(const std::string& path)
    : name_(path),
      path_(behind_links(path)),
      descriptor_(open()),
      buffer_(descriptor_.number(), DescriptorBuffer::Flushing::IN_BLOCKS) {}

OutputFile::~OutputFile() {
  if (!temporary_path_.empty()) ::unlink(temporary_path_.c_str());
}

int OutputFile::open() {
  struct stat status {};
  const bool exists = ::stat(path_.c_str(), &status) == 0;
  if (exists && S_ISDIR(status.st_mode)) fail(EISDIR);
  if (exists && !S_ISREG(status.st_mode)) {
    const int special = ::open(path_.c_str(), O_WRONLY | O_CLOEXEC);
    if (special < 0) fail(errno);
    return special;
  }
  // A file that may not be written is not to be replaced either.
  if (exists && ::access(path_.c_str(), W_OK) != 0) fail(errno);
  std::string temporary = path_ + ".XXXXXX";
  const int descriptor = ::mkostemp(temporary.data(), O_CLOEXEC);
  if (descriptor < 0) fail(errno);
  temporary_path_ = temporary;
  ::fchmod(descriptor, exists ? status.st_mode & 07777 : new_file_mode());
  return descriptor;
}

void OutputFile::commit() {
  if (const int error = buffer_.drain(); error != 0) fail(error);
  if (const int error = descriptor_.close(); error != 0) fail(error);
  if (temporary_path_.empty()) return;
  if (std::rename(temporary_path_.c_str(), path_.c_str()) != 0) fail(errno);
  temporary_path_.clear();
}

void OutputFile::fail(int error) const {
  throw OutputError(name_ + ": " + std::generic_category().message(error));
}

void occupy_standard_descriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(descriptor, F_GETFD) != -1 || errno != EBADF) continue;
    // The lowest free number is taken, which is this one. It is opened the wrong way round, so that
    // reading and writing still fail.
    const int flags = descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY;
    if (::open("/dev/null", flags) != descriptor) return;
  }
}

}  // namespace vond::standalone
