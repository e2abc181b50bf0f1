#pragma once

#include <ctime>
#include <string>
#include <string_view>
#include <vector>

namespace vond::test {

std::string read_file(const std::string& path);

/// Makes the last change of the file at `path` one at `time`, in seconds since 1970.
void set_last_change(const std::string& path, std::time_t time);

/// A folder of its own, which goes with everything in it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return path_; }
  /// Returns the path of `name` in the folder.
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }
  /// Makes a file, two minutes old by the clock of a Command, and returns its path.
  std::string write(const std::string& name, std::string_view text) const;
  /// Returns what stands in the folder, sorted.
  std::vector<std::string> names() const;

 private:
  std::string path_;
};

}  // namespace vond::test
