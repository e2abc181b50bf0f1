#include "test_cases.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "vond/extension/issue_index.h"

namespace vond_junit {

using vond::postprocessor::FAIL_BIT;

namespace {

/// Returns a definition's name as a part of a class name: readers take dots for steps of a path.
std::string class_part(std::string name) {
  std::replace(name.begin(), name.end(), '.', '_');
  std::replace(name.begin(), name.end(), '/', '.');
  return name;
}

/// Returns a name without that of the definition above it, if it begins with that.
std::string name_below(const std::string& parent, const std::string& name) {
  const std::string start = parent + '/';
  const bool continues = name.size() > start.size() && name.compare(0, start.size(), start) == 0;
  return continues ? name.substr(start.size()) : name;
}

}  // namespace

std::size_t TestSuite::failures() const {
  return static_cast<std::size_t>(std::count_if(
      cases.begin(), cases.end(), [](const TestCase& test) { return test.failed(); }));
}

std::size_t TestSuite::skipped() const {
  return static_cast<std::size_t>(std::count_if(
      cases.begin(), cases.end(), [](const TestCase& test) { return test.definition->skipped; }));
}

TestSuites::TestSuites(const vond::FwdHierarchy& hierarchy,
                       vond::extension::IssuesByDefinition& issues,
                       const vond::vocabulary::SeverityBandTable& bands)
    : issues_(issues), bands_(vond::vocabulary::descending_bands(bands)) {
  for (const auto& root : hierarchy.roots) {
    const std::string& name = root->fwd->name;
    suites_.push_back({name, {}});
    const std::string class_name = class_part(name);
    add_tree(*root, {class_name, strings_.get_short_name(name), class_name});
  }
}

void TestSuites::add_tree(const vond::FwdNode& node, const Place& place) {
  auto& cases = suites_.back().cases;
  const std::size_t number = cases.size();
  const vond::Fwd& definition = *node.fwd;
  cases.push_back({&definition, place.class_name, place.name, worst_band_of(definition.name), {}});
  for (const auto& group : node.child_groups) {
    for (const auto& child : group.children) {
      add_child(number, *child, place);
    }
  }
}

void TestSuites::add_child(std::size_t parent, const vond::FwdNode& child,
                           const Place& parent_place) {
  auto& cases = suites_.back().cases;
  const std::size_t number = cases.size();
  const std::string& class_name = parent_place.class_of_children;
  std::string name = name_below(cases[parent].definition->name, child.fwd->name);
  std::string class_of_children = class_name + '.' + class_part(name);
  add_tree(child, {class_name, std::move(name), std::move(class_of_children)});
  if (cases[number].failed()) {
    cases[parent].worst_band = std::min(cases[parent].worst_band, cases[number].worst_band);
    cases[parent].failing_children.push_back(child.fwd->name);
  }
}

std::size_t TestSuites::worst_band_of(const std::string& definition) {
  const auto* const own = issues_.find(definition);
  if (own == nullptr) {
    return bands_.size();
  }
  const auto worst =
      std::find_if(bands_.begin(), bands_.end(), [own](const vond::vocabulary::SeverityBand& band) {
        return !vond::extension::find_band(*own, std::get<2>(band), FAIL_BIT).empty();
      });
  return static_cast<std::size_t>(worst - bands_.begin());
}

}  // namespace vond_junit
