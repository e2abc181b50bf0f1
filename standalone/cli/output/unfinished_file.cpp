#include "standalone/cli/output/unfinished_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "standalone/cli/output/ending_signals.h"

namespace vond::standalone {

// Signals are held while a file and its name change, so that their handlers find both in step.

UnfinishedFile::~UnfinishedFile() {
  const EndingSignalsHeld signals_held;
  if (exists()) {
    ::unlink(temporary_path_.c_str());
  }
  temporary_path_.clear();
}

int UnfinishedFile::create(const std::string& final_path) {
  std::string path = final_path + ".XXXXXX";
  const EndingSignalsHeld signals_held;
  const int descriptor = ::mkostemp(path.data(), O_CLOEXEC);
  if (descriptor >= 0) {
    temporary_path_ = std::move(path);
  }
  return descriptor;
}

bool UnfinishedFile::rename_to(const std::string& final_path) {
  const EndingSignalsHeld signals_held;
  if (std::rename(temporary_path_.c_str(), final_path.c_str()) != 0) {
    return false;
  }
  temporary_path_.clear();
  return true;
}

void UnfinishedFile::remove_all() noexcept {
  for_each([](const UnfinishedFile& file) {
    if (file.exists()) {
      ::unlink(file.temporary_path_.c_str());
    }
  });
}

}  // namespace vond::standalone
