#include "output_file.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace vond::bench {

OutputFile::OutputFile(const std::string& path)
    : path_(path), file_(path == "-" ? stdout : std::fopen(path.c_str(), "w")) {
  check(file_ != nullptr);
  // The blocks are ours; a second buffer would only copy them.
  std::setvbuf(file_, nullptr, _IONBF, 0);
  block_.reserve(2 * BLOCK_SIZE);
}

OutputFile::~OutputFile() {
  if (file_ != nullptr && file_ != stdout) {
    std::fclose(file_);
  }
}

void OutputFile::finish() {
  write_block();
  check(std::fclose(std::exchange(file_, nullptr)) == 0);
}

void OutputFile::write_block() {
  check(std::fwrite(block_.data(), 1, block_.size(), file_) == block_.size());
  block_.clear();
}

void OutputFile::check(bool success) const {
  if (!success) {
    throw std::system_error(errno, std::generic_category(), path_);
  }
}

}  // namespace vond::bench
