#pragma once

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "standalone/model/definition_spec.h"
#include "vond/fwd.h"

namespace vond::standalone {

/// The framework-definition hierarchy of a report, and the definitions in it by name.
class DefinitionTree {
 public:
  /// The tree that `specs` describe. Those of `names` that it lacks become further roots, in byte
  /// order, and unknown_names().
  DefinitionTree(const std::vector<DefinitionSpec>& specs, const std::set<std::string_view>& names);

  /// The tree that `names` spell, in byte order, parents made where they are missing. Throws
  /// InputError for a name that is deeper than MAX_DEFINITION_DEPTH.
  explicit DefinitionTree(const std::set<std::string_view>& names);

  const std::shared_ptr<FwdHierarchy>& hierarchy() const { return hierarchy_; }

  /// Returns the definition of that full name, which must be in the tree.
  Fwd& operator[](std::string_view name) { return *by_name_.at(name); }

  /// Names that issues use and the definitions file lacks, sorted.
  const std::vector<std::string>& unknown_names() const { return unknown_names_; }

  /// Decides every definition: it fails when one of its own issues or a child that is not skipped
  /// does, otherwise it passes.
  void decide();

 private:
  std::shared_ptr<FwdNode> make_node(std::string_view name, bool skipped);
  std::shared_ptr<FwdNode> make_subtree(const DefinitionSpec& spec);
  std::vector<std::shared_ptr<FwdNode>>& children_of(std::string_view name);

  std::shared_ptr<FwdHierarchy> hierarchy_ = std::make_shared<FwdHierarchy>();
  /// The names are the definitions' own.
  std::unordered_map<std::string_view, Fwd*> by_name_;
  std::vector<std::string> unknown_names_;
};

}  // namespace vond::standalone
