#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vond::standalone {

/// The most names that one node set may stand for, repeated ones counted each time.
inline constexpr std::size_t MAX_NODE_SET_SIZE = 1'048'576;

/// The most bytes that the names of one node set may have in sum: the largest set of the longest
/// host names. Without it a small text could ask for terabytes.
inline constexpr std::size_t MAX_NODE_SET_BYTES = MAX_NODE_SET_SIZE * 256;

/// A node set that cannot be read. what() tells what was found and what was expected.
class NodeSetError : public std::runtime_error {
 public:
  NodeSetError(const std::string& message, std::size_t where)
      : std::runtime_error(message), offset(where) {}

  /// Where in the text, in bytes from 0.
  std::size_t offset;
};

/// What spaces, tabs and line ends between the names of a node set are.
enum class Blanks { REFUSED, SEPARATORS };

/// Returns the names that a folded node set as clush, pdsh and Slurm write it stands for, in the
/// order of the text, several brackets of a name with the last one fastest; a name that the text
/// repeats is repeated. Throws NodeSetError when it is malformed or too large; nothing is expanded
/// then.
///
/// Terms stand between commas, without blanks unless `blanks` says that these separate terms, too:
/// then a comma may have blanks around it. A term is a name in which any number of brackets
/// hold numbers, ranges and ranges with a step: `node[001-128,130]`, `c[1-2]n[0-8/2]-ib0`. A range
/// is as wide as its first number where that begins with 0: `[08-11]` and, as pdsh writes it,
/// `[08-101]`; its second number may not be shorter then. Numbers have any number of digits.
///
/// A name in single quotes stands for itself, with `'\''` for a single quote in it, as folding
/// writes names that cannot be folded. Elsewhere blanks, control characters, single quotes, the
/// characters `!`, `&`, `^` and `@` and a `-` at the start of a name are errors: set operators,
/// files, groups and exclusions in one tool or the other, which we do not follow and must not take
/// for names.
std::vector<std::string> expand_node_set(std::string_view text, Blanks blanks = Blanks::REFUSED);

/// Whether expand_node_set() would read `text`. Expands nothing.
bool is_node_set(std::string_view text);

}  // namespace vond::standalone
