#pragma once

#include <filesystem>
#include <string>

namespace vond::standalone {

/// Returns where `path` leads when it is a link, also when it is one to a file not made yet. Links
/// to folders in it stay. Of links that lead in a circle it returns one.
std::filesystem::path behind_links(const std::string& path);

}  // namespace vond::standalone
