#include "standalone/input/input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "standalone/input/input_error.h"
#include "standalone/text/harmless_text.h"

namespace vond::standalone {

namespace {

constexpr const char* STANDARD_INPUT = "-";

std::string reason(int error) { return std::generic_category().message(error); }

bool is_folder(int descriptor) {
  struct stat status {};
  return ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

InputFile::InputFile(const std::string& path, std::string expectation)
    : name_(path == STANDARD_INPUT ? std::string(NAME_OF_STANDARD_INPUT) : harmless(path)),
      expectation_(std::move(expectation)),
      descriptor_(STDIN_FILENO),
      is_owned_(path != STANDARD_INPUT) {
  if (is_owned_) {
    descriptor_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor_ < 0) {
      fail("cannot be opened (" + reason(errno) + ")");
    }
  }
  if (is_folder(descriptor_)) {
    if (is_owned_) {
      ::close(descriptor_);
    }
    fail("is a folder");
  }
}

InputFile::~InputFile() {
  if (is_owned_) {
    ::close(descriptor_);
  }
}

std::size_t InputFile::read(char* buffer, std::size_t size) {
  ssize_t count = -1;
  do {
    count = ::read(descriptor_, buffer, size);
  } while (count < 0 && errno == EINTR);
  if (count < 0) {
    fail("cannot be read (" + reason(errno) + ")");
  }
  return static_cast<std::size_t>(count);
}

void InputFile::fail(const std::string& fault) const {
  throw InputError(name_ + ": " + fault + ", expected " + expectation_);
}

}  // namespace vond::standalone
