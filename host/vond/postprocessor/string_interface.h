#pragma once

#include <string>
#include <vector>

#include "vond/host_api.h"

namespace vond::postprocessor {

/// The host's texts for names and lists; stateless.
class VOND_HOST_API StringInterface {
 public:
  /// Returns all names of all lists as one folded node set, as clush, pdsh and Slurm read it;
  /// "none" when there are no names. The lists are left as they are.
  std::string get_node_string(std::vector<std::vector<std::string>>& node_lists);

  /// Returns the form of a framework definition's name that is shown in the tree.
  std::string get_short_name(const std::string& name) const;

  /// Returns `text` on one line: a stretch of white space with a line end in it becomes one space.
  std::string remove_endl(const std::string& text) const;
};

}  // namespace vond::postprocessor
