#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace vond::standalone {

/// The name of the text report among extensions.
inline constexpr std::string_view TEXT_REPORT = "output_log";

/// Returns the folders that hold extensions, in the order in which they are searched: the program's
/// own, for the program as it is built, then the one of its installed place. `program_folder` is
/// where the program is. `installed_folder` is where extensions are below an installed program's
/// prefix, "lib/vond/extensions" for example.
std::vector<std::filesystem::path> extension_folders(const std::filesystem::path& program_folder,
                                                     const std::filesystem::path& installed_folder);

/// Returns the library of the extension `name`, "output_log" for example, in the first of `folders`
/// that has it. Without such a file this is a path in the last of them, which loading then names.
/// There must be a folder.
std::filesystem::path extension_path(std::string_view name,
                                     const std::vector<std::filesystem::path>& folders);

}  // namespace vond::standalone
