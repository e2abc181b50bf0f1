#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "standalone/definitions/definitions_reader.h"
#include "standalone/report/collapser.h"
#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::standalone {

/// What decides how findings become a record.
struct RecordOptions {
  CollapseBy collapse_by = CollapseBy::TEXT;
  /// On the severity scale, 0 to 100.
  int fail_threshold = 0;
  /// In terminal columns; 0 means no wrapping.
  int line_width = 0;
  /// A name of the log level table.
  std::string log_level;
  /// Without definitions the tree is the one that the names in the findings spell.
  std::optional<std::vector<DefinitionSpec>> definitions;
};

/// The engine's result: the record for the extensions, and what it does not hold. Owns the issues
/// together with everybody who holds one of their shared pointers; when it goes, issues no longer
/// know what they are related to (they refer to each other and would never be released).
class Report {
 public:
  /// Takes the issues out of `collapser`. Throws InputError for definitions that cannot be.
  Report(Collapser& collapser, const RecordOptions& options);
  ~Report();
  Report(const Report&) = delete;
  Report& operator=(const Report&) = delete;

  postprocessor::PostprocessorExtensionData& record() { return record_; }

  /// Whether any issue contributes to FAIL.
  bool failed() const;

  /// Names that findings use and the definitions lack; sorted.
  const std::vector<std::string>& unknown_definitions() const { return unknown_definitions_; }

  /// Ids that a `based_on` names and no observation has; sorted.
  const std::vector<std::string>& unknown_based_on() const { return unknown_based_on_; }

 private:
  using Issue = postprocessor::CollapsedAnalysisOutput;

  /// An empty report. The other constructor begins with it, so that the destructor runs, and issues
  /// are released, even when that one throws.
  Report() = default;

  std::shared_ptr<Issue> issue(std::size_t number) const;
  void relate_issues(const std::vector<CollapsedIssue>& collapsed);
  void index_issues(const std::vector<CollapsedIssue>& collapsed);
  void hang_definitions(const std::vector<CollapsedIssue>& collapsed, const RecordOptions& options);
  void fill_issues(std::vector<CollapsedIssue> collapsed, const StringInterner& node_names);

  /// In the order of the report, in one array: sets of issues are ordered by address, and so in the
  /// order of the report too.
  std::shared_ptr<std::vector<Issue>> issues_ = std::make_shared<std::vector<Issue>>();
  postprocessor::PostprocessorExtensionData record_;
  std::vector<std::string> unknown_definitions_;
  std::vector<std::string> unknown_based_on_;
};

}  // namespace vond::standalone
