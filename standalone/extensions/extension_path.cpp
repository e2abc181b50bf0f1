#include "standalone/extensions/extension_path.h"

#include <algorithm>
#include <set>
#include <system_error>

namespace vond::standalone {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view PREFIX = "vond_";
constexpr std::string_view SUFFIX = ".so";
constexpr std::string_view TEXT_REPORT_LIBRARY = "vond_output_log.so";

/// Returns the name of the extension in a library, nothing for any other file.
std::optional<std::string> name_in(std::string_view library) {
  if (library == TEXT_REPORT_LIBRARY) {
    return std::string(TEXT_REPORT);
  }
  if (library.size() <= PREFIX.size() + SUFFIX.size() || !library.starts_with(PREFIX) ||
      !library.ends_with(SUFFIX)) {
    return std::nullopt;
  }
  library.remove_prefix(PREFIX.size());
  library.remove_suffix(SUFFIX.size());
  return std::string(library);
}

}  // namespace

std::vector<fs::path> extension_folders(const fs::path& program_folder,
                                        const fs::path& installed_folder,
                                        std::string_view search_path) {
  std::vector<fs::path> folders = {program_folder, program_folder.parent_path() / installed_folder};
  while (!search_path.empty()) {
    const std::size_t end = std::min(search_path.find(':'), search_path.size());
    if (end != 0) {
      folders.emplace_back(search_path.substr(0, end));
    }
    search_path.remove_prefix(std::min(end + 1, search_path.size()));
  }
  return folders;
}

std::string extension_library(std::string_view name) {
  if (name == TEXT_REPORT) {
    return std::string(TEXT_REPORT_LIBRARY);
  }
  return std::string(PREFIX).append(name).append(SUFFIX);
}

std::optional<fs::path> find_extension(std::string_view name,
                                       const std::vector<fs::path>& folders) {
  const std::string library = extension_library(name);
  for (const fs::path& folder : folders) {
    std::error_code error;
    if (fs::exists(folder / library, error)) {
      return folder / library;
    }
  }
  return std::nullopt;
}

std::vector<std::string> extension_names(const std::vector<fs::path>& folders) {
  std::set<std::string> names;
  for (const fs::path& folder : folders) {
    std::error_code error;
    for (fs::directory_iterator file(folder, error), end; !error && file != end;
         file.increment(error)) {
      if (const auto name = name_in(file->path().filename().native())) {
        names.insert(*name);
      }
    }
  }
  return {names.begin(), names.end()};
}

}  // namespace vond::standalone
