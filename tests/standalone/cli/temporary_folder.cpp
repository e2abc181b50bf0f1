#include "tests/standalone/cli/temporary_folder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace vond::test {

std::string read_file(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw std::runtime_error("cannot read " + path);
  }
  return {std::istreambuf_iterator<char>(file), {}};
}

void set_last_change(const std::string& path, std::time_t time) {
  const timespec times[] = {{time, 0}, {time, 0}};
  if (::utimensat(AT_FDCWD, path.c_str(), times, 0) != 0) {
    throw std::runtime_error("cannot change " + path);
  }
}

TemporaryFolder::TemporaryFolder()
    : path_((std::filesystem::temp_directory_path() / "vond_cli_test.XXXXXX").string()) {
  if (mkdtemp(path_.data()) == nullptr) {
    throw std::runtime_error("cannot make " + path_);
  }
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code error;
  std::filesystem::remove_all(path_, error);
}

std::string TemporaryFolder::write(const std::string& name, std::string_view text) const {
  std::string path = *this / name;
  std::ofstream(path, std::ios::binary) << text;
  set_last_change(path, 1763699280);
  return path;
}

std::vector<std::string> TemporaryFolder::names() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(path_)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace vond::test
