#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vond::standalone {

/// The most names that one node set may stand for.
inline constexpr std::size_t MAX_NODE_SET_SIZE = 1'048'576;

/// A node set that cannot be read. what() tells what is wrong and what was expected.
class NodeSetError : public std::runtime_error {
 public:
  NodeSetError(const std::string& message, std::size_t where)
      : std::runtime_error(message), offset(where) {}

  /// Where in the text, in bytes from 0.
  std::size_t offset;
};

/// Returns the names that a folded node set as clush, pdsh and Slurm write it stands for, in the
/// order of the text. Throws NodeSetError when it is malformed or stands for more than
/// MAX_NODE_SET_SIZE names; nothing is expanded then.
std::vector<std::string> expand_node_set(std::string_view text);

}  // namespace vond::standalone
