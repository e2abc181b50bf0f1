#pragma once

#include <string>
#include <string_view>

namespace vond::fuzz {

/// A file that is on no disk, for readers that open what they read.
class MemoryFile {
 public:
  MemoryFile();
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  /// Makes `text` all that the file holds and returns the path to open it at.
  const std::string& holding(std::string_view text);

 private:
  int descriptor_;
  std::string path_;
};

}  // namespace vond::fuzz
