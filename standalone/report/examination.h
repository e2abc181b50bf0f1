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
  std::vector<std::string> examined_names() const { return {examined_.begin(), examined_.end()}; }
  std::size_t expected() const { return expected_.size(); }

  /// Returns those of `nodes` that were not examined, sorted.
  std::vector<std::string> not_examined(const StringInterner& nodes) const;

  /// Returns the nodes that were seen, sorted: the examined ones or, where nothing is known of
  /// these, `nodes_with_findings`.
  std::vector<std::string> seen(const StringInterner& nodes_with_findings) const;

  /// Returns the expected nodes that are not in `seen`, which is sorted; sorted.
  std::vector<std::string> expected_and_not_in(const std::vector<std::string>& seen) const;

  /// Returns those of `seen`, which is sorted, that were not expected; sorted.
  std::vector<std::string> not_expected_of(const std::vector<std::string>& seen) const;

 private:
  bool known_ = false;
  std::set<std::string, std::less<>> examined_;
  std::set<std::string, std::less<>> expected_;
};

}  // namespace vond::standalone
