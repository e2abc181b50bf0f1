#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/pattern_oracle.h"
#include "standalone/patterns/pattern_issue.h"
#include "standalone/patterns/pattern_summaries.h"

namespace vond::fuzz {

/// Collapses findings by their patterns with the library, for comparison with the oracle.
class PatternRun {
 public:
  explicit PatternRun(const std::vector<PatternFinding>& findings);
  PatternRun(const PatternRun&) = delete;
  PatternRun& operator=(const PatternRun&) = delete;

  /// As an IssueWriter writes them, sorted.
  std::vector<std::string> issues();
  /// What people see of the issues, sorted.
  std::vector<std::vector<std::string>> shown_texts();
  /// The texts of all issues. Two of them may have the same, if NODE stands in one of them.
  TextSources sources();

 private:
  void add(const PatternFinding& finding);
  std::uint32_t node_id(const std::string& name);
  std::string write(const standalone::PatternIssue& issue);

  std::vector<std::string> node_names_;
  standalone::NodeNames names_;
  standalone::ValueTable table_;
  std::map<std::string, standalone::PatternGroup> groups_;
  std::map<std::string, standalone::PatternIssue> issues_;
};

}  // namespace vond::fuzz
