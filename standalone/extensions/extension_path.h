#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vond::standalone {

/// The name of the text report among extensions. Its library has the name that hosts know.
inline constexpr std::string_view TEXT_REPORT = "text";

/// Returns the folders that hold extensions, in the order in which they are searched: the program's
/// own, for the program as it is built, then the one of its installed place, then those of
/// `search_path`. `program_folder` is where the program is. `installed_folder` is where extensions
/// are below an installed program's prefix, "lib/vond/extensions" for example. `search_path` has
/// ":" between folders; empty ones are left out.
std::vector<std::filesystem::path> extension_folders(const std::filesystem::path& program_folder,
                                                     const std::filesystem::path& installed_folder,
                                                     std::string_view search_path = {});

/// Returns the file name of the library that has the extension `name`, "vond_json.so" for "json".
std::string extension_library(std::string_view name);

/// Returns the library of the extension `name` in the first of `folders` that has it, nothing when
/// none has.
std::optional<std::filesystem::path> find_extension(
    std::string_view name, const std::vector<std::filesystem::path>& folders);

/// Returns the names of all extensions in `folders`, sorted, each once. Folders that cannot be read
/// have none.
std::vector<std::string> extension_names(const std::vector<std::filesystem::path>& folders);

}  // namespace vond::standalone
