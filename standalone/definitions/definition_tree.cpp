#include "standalone/definitions/definition_tree.h"

#include <algorithm>

#include "standalone/definitions/definition_names.h"
#include "standalone/input/input_error.h"
#include "standalone/text/messages.h"

namespace vond::standalone {
namespace {

/// Adds the names of all missing parents.
std::set<std::string_view> with_parents(const std::set<std::string_view>& names) {
  std::set<std::string_view> all = names;
  for (const std::string_view name : names) {
    std::string_view parent = spelled_parent(name);
    while (!parent.empty() && all.emplace(parent).second) {
      parent = spelled_parent(parent);
    }
  }
  return all;
}

/// Returns the start of a UTF-8 text, at most `size` bytes, without a part of a character at its
/// end.
std::string_view start_of(std::string_view text, std::size_t size) {
  const auto continues = [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
  };
  while (size > 0 && size < text.size() && continues(text[size])) {
    --size;
  }
  return text.substr(0, size);
}

std::string too_deep(std::string_view name) {
  constexpr std::size_t SHOWN = 60;
  const std::string shown = std::string(start_of(name, SHOWN)) + (name.size() > SHOWN ? "…" : "");
  return "definition " + in_quotes(shown) + " is " + std::to_string(spelled_depth(name)) +
         " levels deep, expected at most " + std::to_string(MAX_DEFINITION_DEPTH);
}

bool has_issue_contributing_to_fail(const Fwd& fwd) {
  return std::any_of(fwd.issue_counts.begin(), fwd.issue_counts.end(), [](const auto& entry) {
    return (entry.first.to_ulong() & postprocessor::FAIL_BIT) != 0 && entry.second > 0;
  });
}

/// Decides a node and all below it; returns whether it makes its parent fail.
bool decide_node(FwdNode& node) {
  bool failed = has_issue_contributing_to_fail(*node.fwd);
  for (const FwdChildGroup& group : node.child_groups) {
    for (const auto& child : group.children) {
      failed = decide_node(*child) || failed;
    }
  }
  node.fwd->passed = !failed;
  return failed && !node.fwd->skipped;
}

}  // namespace

DefinitionTree::DefinitionTree(const std::vector<DefinitionSpec>& specs,
                               const std::set<std::string_view>& names) {
  for (const DefinitionSpec& spec : specs) {
    hierarchy_->roots.push_back(make_subtree(spec));
  }
  for (const std::string_view name : names) {
    if (by_name_.contains(name)) {
      continue;
    }
    hierarchy_->roots.push_back(make_node(name, false));
    unknown_names_.emplace_back(name);
  }
}

DefinitionTree::DefinitionTree(const std::set<std::string_view>& names) {
  for (const std::string_view name : names) {
    if (spelled_depth(name) > MAX_DEFINITION_DEPTH) {
      throw InputError(too_deep(name));
    }
  }
  // In byte order a parent comes before its children, for its name is the start of theirs.
  for (const std::string_view name : with_parents(names)) {
    const std::string_view parent = spelled_parent(name);
    auto& siblings = parent.empty() ? hierarchy_->roots : children_of(parent);
    siblings.push_back(make_node(name, false));
  }
}

void DefinitionTree::decide() {
  for (const auto& root : hierarchy_->roots) {
    decide_node(*root);
  }
}

std::shared_ptr<FwdNode> DefinitionTree::make_node(std::string_view name, bool skipped) {
  auto node = std::make_shared<FwdNode>();
  node->fwd = std::make_shared<Fwd>();
  node->fwd->name = name;
  node->fwd->skipped = skipped;
  node->fwd->node = node.get();
  by_name_.emplace(node->fwd->name, node->fwd.get());
  return node;
}

std::shared_ptr<FwdNode> DefinitionTree::make_subtree(const DefinitionSpec& spec) {
  auto node = make_node(spec.name, spec.skipped);
  for (const auto& group : spec.child_groups) {
    auto& children = node->child_groups.emplace_back().children;
    for (const DefinitionSpec& child : group) {
      children.push_back(make_subtree(child));
    }
  }
  return node;
}

std::vector<std::shared_ptr<FwdNode>>& DefinitionTree::children_of(std::string_view name) {
  auto& groups = by_name_.at(name)->node->child_groups;
  if (groups.empty()) {
    groups.emplace_back();
  }
  return groups[0].children;
}

}  // namespace vond::standalone
