#pragma once

#include <string_view>

// Without a definitions file names spell the tree: `a/b/c` stands under `a/b` under `a`. Slashes at
// the start, at the end and in a row make no parent.

namespace vond::standalone {

/// Returns the name under which `name` stands in a tree that names spell, "" for a root.
std::string_view spelled_parent(std::string_view name);

/// Returns how deep a tree that names spell has to be for `name`: 3 for `a/b/c`.
int spelled_depth(std::string_view name);

}  // namespace vond::standalone
