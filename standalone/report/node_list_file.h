#pragma once

#include <string>
#include <vector>

namespace vond::standalone {

/// Returns the names that a file of node sets holds, made harmless: a set a line, blank lines and
/// what stands behind a `#` skipped; names in single quotes may hold a `#`. "-" is standard input.
/// Throws InputError, for a file that names no node too: a list that got lost would else turn off
/// what it is for.
std::vector<std::string> read_node_list(const std::string& path);

}  // namespace vond::standalone
