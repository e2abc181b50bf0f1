// Runs a fuzz target once for every input that is named on the command line, files or folders of
// them, without a fuzzer: so its corpus tests every build, with any compiler.

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

#include "fuzz/target.h"

namespace {

namespace fs = std::filesystem;

/// Returns the files that `path` stands for, in an order that is the same everywhere.
std::vector<fs::path> files_at(const fs::path& path) {
  if (!fs::is_directory(path)) {
    return {path};
  }
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(path)) {
    files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

bool replay(const fs::path& path) {
  // Told first: whatever goes wrong ends the process.
  std::cout << path.filename().string() << std::endl;
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(file),
                                std::istreambuf_iterator<char>()};
  if (!file) {
    std::cerr << path.string() << ": cannot be read\n";
    return false;
  }
  // A copy of exactly the size, so that the sanitizers see every byte that is read behind it.
  const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
  LLVMFuzzerTestOneInput(input.data(), input.size());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  std::size_t count = 0;
  for (int i = 1; i < argc; ++i) {
    for (const fs::path& path : files_at(argv[i])) {
      if (!replay(path)) {
        return 1;
      }
      ++count;
    }
  }
  std::cout << count << " inputs\n";
  // A corpus that is gone must not pass.
  return count == 0 ? 1 : 0;
}
