#include "standalone/extensions/extension_path.h"

#include <string>

namespace vond::standalone {

namespace fs = std::filesystem;

std::vector<fs::path> extension_folders(const fs::path& program_folder,
                                        const fs::path& installed_folder) {
  return {program_folder, program_folder.parent_path() / installed_folder};
}

fs::path extension_path(std::string_view name, const std::vector<fs::path>& folders) {
  const std::string file = std::string("vond_").append(name).append(".so");
  for (const fs::path& folder : folders) {
    if (fs::exists(folder / file)) {
      return folder / file;
    }
  }
  return folders.back() / file;
}

}  // namespace vond::standalone
