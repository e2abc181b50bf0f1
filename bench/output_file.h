#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace vond::bench {

/// A file, or standard output, that is written in large blocks.
class OutputFile {
 public:
  /// "-" is standard output. Throws std::system_error.
  explicit OutputFile(const std::string& path);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile();

  OutputFile& operator<<(std::string_view text) {
    block_ += text;
    if (block_.size() >= BLOCK_SIZE) {
      write_block();
    }
    return *this;
  }

  /// Completes the file. Throws std::system_error when it is not complete.
  void finish();

 private:
  static constexpr std::size_t BLOCK_SIZE = 1UL << 20U;

  void write_block();
  void check(bool success) const;

  std::string path_;
  std::FILE* file_;
  std::string block_;
};

}  // namespace vond::bench
