#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <string_view>

namespace vond::test {

/// A file in the tests' temporary folder that goes with the object.
class TestFile {
 public:
  explicit TestFile(std::string_view content) : path_(next_path()) {
    std::ofstream(path_, std::ios::binary) << content;
  }
  ~TestFile() { std::remove(path_.c_str()); }
  TestFile(const TestFile&) = delete;
  TestFile& operator=(const TestFile&) = delete;

  const std::string& path() const { return path_; }

  /// Returns `message` with "FILE" in place of the path.
  std::string without_path(std::string message) const {
    for (auto at = message.find(path_); at != std::string::npos; at = message.find(path_)) {
      message.replace(at, path_.size(), "FILE");
    }
    return message;
  }

 private:
  static std::string next_path() {
    static int count = 0;
    return ::testing::TempDir() + "input-" + std::to_string(::getpid()) + "-" +
           std::to_string(++count);
  }

  std::string path_;
};

}  // namespace vond::test
