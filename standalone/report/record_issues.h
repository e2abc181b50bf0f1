#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "standalone/model/string_interner.h"
#include "standalone/report/collapser.h"
#include "vond/postprocessor/collapsed_analysis_output.h"

namespace vond::standalone {

/// The issues of a record, as extensions get them. They live until this object and everybody who
/// holds one of the shared pointers are gone. When this object goes, issues no longer know what
/// they are related to: they refer to each other and would never be released.
class RecordIssues {
 public:
  using Issue = postprocessor::CollapsedAnalysisOutput;

  /// `count` issues that tell nothing yet.
  explicit RecordIssues(std::size_t count) : issues_(std::make_shared<std::vector<Issue>>(count)) {}
  ~RecordIssues();
  RecordIssues(const RecordIssues&) = delete;
  RecordIssues& operator=(const RecordIssues&) = delete;

  /// `number` counts from 0.
  std::shared_ptr<Issue> operator[](std::size_t number) const {
    return {issues_, &(*issues_)[number]};
  }

  std::size_t size() const { return issues_->size(); }

  /// Returns the number of an issue, nothing for any other than these.
  std::optional<std::size_t> number_of(const Issue& issue) const;

  /// Lets every issue tell what the one with its number in `collapsed` does. There must be as many
  /// of them as issues. `node_names` are those of the collapser.
  void fill(std::vector<CollapsedIssue> collapsed, const StringInterner& node_names);

 private:
  /// In the order of the report, in one array: sets of issues are ordered by address, and so in the
  /// order of the report too.
  std::shared_ptr<std::vector<Issue>> issues_;
};

}  // namespace vond::standalone
