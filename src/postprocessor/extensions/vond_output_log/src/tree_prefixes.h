#pragma once

#include <string>

namespace vond_output_log {

/// What the lines of one definition begin with. A level is four columns wide:
///
///     root: FAIL              line prefix ""           child prefix "|  "
///     |-- first: PASS         line prefix "|-- "       child prefix "|   |  "
///     |   `-- leaf: PASS      line prefix "|   `-- "   child prefix "|          "
///     `-- last: FAIL          line prefix "`-- "       child prefix "       "
struct TreePrefixes {
  /// Begins the definition's own line.
  std::string line;
  /// Begins every further line of the definition.
  std::string child;
  /// What its children inherit: the child prefix, with a blank for the last bar when no sibling of
  /// the definition follows.
  std::string inherited_by_children;
};

/// Draws a definition's prefixes. `inherited` is what its parent hands down, empty for a root;
/// `last` tells that no sibling follows, and is set for every root.
TreePrefixes draw_prefixes(const std::string& inherited, bool last, bool has_child_groups);

}  // namespace vond_output_log
