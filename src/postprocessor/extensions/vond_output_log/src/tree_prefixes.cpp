#include "tree_prefixes.h"

#include <cstddef>

#include "layout.h"

namespace vond_output_log {
namespace {

/// Returns the character `count` places before the end.
char& from_end(std::string& text, std::size_t count) { return text[text.size() - count]; }

}  // namespace

TreePrefixes draw_prefixes(const std::string& inherited, bool last, bool has_child_groups) {
  const bool root = inherited.size() <= 1;
  TreePrefixes prefixes{inherited + blanks(root ? 0 : 1), inherited + blanks(root ? 3 : 4), {}};
  auto& [line, child, inherited_by_children] = prefixes;
  if (line.size() > 2) {
    line.replace(line.size() - 3, 3, "-- ");
  }
  if (line.size() > 3) {
    from_end(line, 4) = last ? '`' : '|';
  }
  if (child.size() >= 7) {
    from_end(child, 7) = last ? ' ' : '|';
  }
  // Groups without children draw a bar to nothing; that is wanted.
  if (has_child_groups) {
    from_end(child, 3) = '|';
  }
  inherited_by_children = child;
  if (last) {
    from_end(inherited_by_children, 3) = ' ';
  }
  return prefixes;
}

}  // namespace vond_output_log
