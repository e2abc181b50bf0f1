#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/model/string_interner.h"

namespace vond::standalone {

/// Which nodes were looked at, and which should have been: a node without findings is healthy only
/// if somebody looked.
class Examination {
 public:
  void add_examined(std::string_view node) {
    known_ = true;
    examined_.emplace(node);
  }
  void add_expected(std::string_view node) { expected_.emplace(node); }

  /// Tells that examined nodes were given, even if there are none.
  void set_known() { known_ = true; }

  /// Whether anything is known about which nodes were examined.
  bool is_known() const { return known_; }

  std::size_t examined() const { return examined_.size(); }
  std::size_t expected() const { return expected_.size(); }

  /// Returns those of `nodes` that were not examined, sorted.
  std::vector<std::string> not_examined(const StringInterner& nodes) const;

  /// Returns the nodes that were expected and not examined, sorted.
  std::vector<std::string> expected_and_not_examined() const;

 private:
  bool known_ = false;
  std::set<std::string, std::less<>> examined_;
  std::set<std::string, std::less<>> expected_;
};

}  // namespace vond::standalone
