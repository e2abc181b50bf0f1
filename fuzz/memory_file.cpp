#include "fuzz/memory_file.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace vond::fuzz {
namespace {

/// Returns `result` unless it says that a call has failed.
template <typename Result>
Result checked(Result result) {
  if (result < 0) {
    throw std::system_error(errno, std::generic_category(), "memory file");
  }
  return result;
}

}  // namespace

MemoryFile::MemoryFile()
    : descriptor_(checked(::memfd_create("input", MFD_CLOEXEC))),
      // To open it there is to read it from its start.
      path_("/proc/self/fd/" + std::to_string(descriptor_)) {}

MemoryFile::~MemoryFile() { ::close(descriptor_); }

const std::string& MemoryFile::holding(std::string_view text) {
  checked(::ftruncate(descriptor_, 0));
  for (off_t at = 0; !text.empty();) {
    const ssize_t count = checked(::pwrite(descriptor_, text.data(), text.size(), at));
    text.remove_prefix(static_cast<std::size_t>(count));
    at += count;
  }
  return path_;
}

}  // namespace vond::fuzz
