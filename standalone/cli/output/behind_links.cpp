#include "standalone/cli/output/behind_links.h"

#include <system_error>

namespace vond::standalone {

std::filesystem::path behind_links(const std::string& path) {
  constexpr int MOST_LINKS = 40;
  std::filesystem::path file = path;
  std::error_code error;
  for (int links = 0; links < MOST_LINKS; ++links) {
    const std::filesystem::path target = std::filesystem::read_symlink(file, error);
    if (error) {
      break;
    }
    file = file.parent_path() / target;
  }
  return file;
}

}  // namespace vond::standalone
