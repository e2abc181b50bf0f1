#include "standalone/libvond_host/blocks/failing_definitions.h"

#include <string_view>

namespace vond::standalone {
namespace {

/// Returns the name without "<root>/" before it.
std::string_view below(std::string_view root, std::string_view name) {
  const bool spells_path = name.size() > root.size() + 1 && name.substr(0, root.size()) == root &&
                           name[root.size()] == '/';
  return spells_path ? name.substr(root.size() + 1) : name;
}

bool fails(const FwdNode& node) { return !node.fwd->skipped && !node.fwd->passed; }

}  // namespace

FailingDefinitions::FailingDefinitions(const FwdHierarchy& hierarchy) {
  for (const auto& root : hierarchy.roots) {
    const std::string* failing_root = fails(*root) ? &root->fwd->name : nullptr;
    if (failing_root != nullptr) {
      definitions_.push_back({failing_root, nullptr});
    }
    collect(*root, failing_root);
  }
}

void FailingDefinitions::collect(const FwdNode& node, const std::string* failing_root) {
  for (const FwdChildGroup& group : node.child_groups) {
    for (const auto& child : group.children) {
      if (fails(*child)) {
        definitions_.push_back({&child->fwd->name, failing_root});
      }
      collect(*child, failing_root);
    }
  }
}

std::string FailingDefinitions::first(std::size_t count) const {
  std::string text;
  const std::string* open_root = nullptr;
  for (std::size_t i = 0; i < count; ++i) {
    const auto& [name, root] = definitions_[i];
    if (root != nullptr && root != open_root) {
      text.append(" (").append(below(*root, *name));
    } else {
      text.append(open_root != nullptr && root == nullptr ? ")" : "");
      text.append(i == 0 ? "" : ", ");
      text.append(root == nullptr ? std::string_view(*name) : below(*root, *name));
    }
    open_root = root;
  }
  return open_root == nullptr ? text : text + ")";
}

}  // namespace vond::standalone
