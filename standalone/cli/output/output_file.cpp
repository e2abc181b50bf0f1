#include "standalone/cli/output/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "standalone/cli/output/behind_links.h"
#include "standalone/cli/output/output_error.h"

namespace vond::standalone {
namespace {

/// Returns the permissions that a new file gets in this process.
mode_t new_file_permissions() {
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

}  // namespace

OutputFile::OutputFile(const std::string& path)
    : name_(path),
      path_(behind_links(path).string()),
      descriptor_(open()),
      buffer_(descriptor_.number(), DescriptorBuffer::Flushing::IN_BLOCKS) {}

int OutputFile::open() {
  constexpr mode_t PERMISSIONS = 07777;
  struct stat status {};
  if (::stat(name_.c_str(), &status) != 0) {
    // Links in a circle lead to no file that could be made.
    if (errno != ENOENT) {
      fail(errno);
    }
    return create(new_file_permissions());
  }
  if (S_ISDIR(status.st_mode)) {
    fail(EISDIR);
  }
  if (!S_ISREG(status.st_mode)) {
    return open_device();
  }
  // A file that may not be written is not to be replaced either.
  if (::access(path_.c_str(), W_OK) != 0) {
    fail(errno);
  }
  return create(status.st_mode & PERMISSIONS);
}

int OutputFile::open_device() const {
  // Links such as /dev/stdout name pipes that only the system can follow.
  const int descriptor = ::open(name_.c_str(), O_WRONLY | O_CLOEXEC);
  if (descriptor < 0) {
    fail(errno);
  }
  return descriptor;
}

int OutputFile::create(unsigned permissions) {
  const int descriptor = unfinished_.create(path_);
  if (descriptor < 0) {
    fail(errno);
  }
  ::fchmod(descriptor, permissions);
  return descriptor;
}

void OutputFile::commit() {
  if (const int error = buffer_.drain(); error != 0) {
    fail(error);
  }
  if (const int error = descriptor_.close(); error != 0) {
    fail(error);
  }
  if (unfinished_.exists() && !unfinished_.rename_to(path_)) {
    fail(errno);
  }
}

void OutputFile::fail(int error) const {
  throw OutputError(name_ + ": " + std::generic_category().message(error));
}

}  // namespace vond::standalone
