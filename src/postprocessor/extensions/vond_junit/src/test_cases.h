#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "vond/extension/issues_by_definition.h"
#include "vond/fwd.h"
#include "vond/postprocessor/string_interface.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_junit {

/// A definition as a test.
struct TestCase {
  /// The hierarchy's.
  const vond::Fwd* definition = nullptr;
  /// The definitions above it with dots between them; of a root, itself.
  std::string class_name;
  std::string name;
  /// Of what made it fail, its own issues and those of failing definitions below it; a place in the
  /// descending bands, their number without such an issue.
  std::size_t worst_band = 0;
  /// Full names of the definitions below it that made it fail, in the order of the tree.
  std::vector<std::string> failing_children;

  bool failed() const { return !definition->skipped && !definition->passed; }
};

/// A root with all definitions below it, itself first.
struct TestSuite {
  std::string name;
  std::vector<TestCase> cases;

  std::size_t failures() const;
  std::size_t skipped() const;
};

/// Makes tests of a hierarchy, which must outlive them. Cases are definitions and never issues: a
/// pipeline compares the cases of two runs, and issues come and go.
class TestSuites {
 public:
  TestSuites(const vond::FwdHierarchy& hierarchy, vond::extension::IssuesByDefinition& issues,
             const vond::vocabulary::SeverityBandTable& bands);

  /// In the order of the tree.
  const std::vector<TestSuite>& suites() const { return suites_; }

 private:
  /// Where a definition stands.
  struct Place {
    std::string class_name;
    std::string name;
    /// The class of what stands below it.
    std::string class_of_children;
  };

  void add_tree(const vond::FwdNode& node, const Place& place);
  void add_child(std::size_t parent, const vond::FwdNode& child, const Place& parent_place);
  std::size_t worst_band_of(const std::string& definition);

  vond::extension::IssuesByDefinition& issues_;
  std::vector<vond::vocabulary::SeverityBand> bands_;
  vond::postprocessor::StringInterface strings_;
  std::vector<TestSuite> suites_;
};

}  // namespace vond_junit
