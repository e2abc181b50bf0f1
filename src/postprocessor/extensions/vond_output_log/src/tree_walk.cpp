#include "tree_walk.h"

#include <cstddef>
#include <string>

#include "count_block.h"
#include "layout.h"
#include "statement.h"
#include "tree_prefixes.h"
#include "vond/extension/words.h"
#include "vond/str/string_functions.h"

namespace vond_output_log {

using vond::Fwd;
using vond::str::word_wrap;

int TreeWalk::print_section() {
  write(word_wrap("Issues (repeated from above) ordered in the framework definition hierarchy",
                  data_.line_width, ""));
  write_line_end();
  write_line_end();

  if (!data_.fwd_root) {
    return 0;
  }
  const auto& roots = data_.fwd_root->roots;
  for (const auto& root : roots) {
    if (print_tree(*root->fwd, "", true) == 1) {
      return 1;
    }
    // Behind the last root too, but not behind an only one; that is wanted.
    if (roots.size() != 1) {
      write_line_end();
    }
  }
  return 0;
}

int TreeWalk::print_tree(const Fwd& fwd, const std::string& inherited, bool last) {
  const TreePrefixes prefixes = draw_prefixes(inherited, last, !fwd.node->child_groups.empty());
  write(word_wrap(prefixes.line + strings_.get_short_name(fwd.name) + ": " +
                      std::string(vond::extension::status_word(fwd)),
                  data_.line_width, prefixes.child));
  write_line_end();
  if (!fwd.skipped && print_blocks(fwd, prefixes.child) == 1) {
    return 1;
  }
  return print_children(fwd, prefixes.inherited_by_children);
}

int TreeWalk::print_blocks(const Fwd& fwd, const std::string& child_prefix) {
  std::string scratch;
  const std::string gap = blanks(5);
  const CountLine line(child_prefix, gap);
  if (CountBlock(data_, bands_, line, data_.line_width).print(fwd, scratch) == 1) {
    return 1;
  }
  return details_.print(fwd, child_prefix, data_.line_width, scratch);
}

int TreeWalk::print_children(const Fwd& fwd, const std::string& inherited) {
  std::size_t remaining = 0;
  for (const auto& group : fwd.node->child_groups) {
    remaining += group.children.size();
  }
  for (const auto& group : fwd.node->child_groups) {
    for (const auto& child : group.children) {
      --remaining;
      if (print_tree(*child->fwd, inherited, remaining == 0) == 1) {
        return 1;
      }
    }
  }
  return 0;
}

}  // namespace vond_output_log
