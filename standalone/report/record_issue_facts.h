#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "standalone/libvond_host/issue_facts.h"
#include "standalone/model/string_interner.h"
#include "standalone/patterns/pattern_summaries.h"
#include "standalone/patterns/place_summary.h"
#include "standalone/report/report_record.h"
#include "standalone/report/run_history.h"

namespace vond::standalone {

/// What the issues of a record were made of.
class RecordIssueFacts : public IssueFacts {
 public:
  /// Keeps references to all. The names are those of the record's collapser, and those of the
  /// collapser of all findings that are kept, where that is another one. Both must be there, too.
  /// `history` has compared the record's run with others, or is null.
  RecordIssueFacts(const ReportRecord& record, const StringInterner& node_names,
                   const StringInterner& names_of_kept, const RunHistory* history = nullptr);
  RecordIssueFacts(const ReportRecord& record, const StringInterner& node_names)
      : RecordIssueFacts(record, node_names, node_names) {}

  int severity(const postprocessor::CollapsedAnalysisOutput& issue) const override;
  facts::Patterns patterns(const postprocessor::CollapsedAnalysisOutput& issue) const override;
  std::optional<facts::Change> change(
      const postprocessor::CollapsedAnalysisOutput& issue) const override;
  std::optional<std::int64_t> first_seen(
      const postprocessor::CollapsedAnalysisOutput& issue) const override;
  std::optional<facts::Since> since() const override;
  void for_each_finding(const std::function<void(const facts::Finding&)>& visit) const override;
  std::vector<facts::Place> places(const postprocessor::CollapsedAnalysisOutput& issue) override;

 private:
  void visit_by_first_seen(postprocessor::TypeCode type, facts::Finding finding,
                           const std::function<void(const facts::Finding&)>& visit) const;
  /// Null for an issue that was not collapsed by pattern.
  const PatternIssue* findings_of(const postprocessor::CollapsedAnalysisOutput& issue) const;

  const ReportRecord& record_;
  const NodeNames node_names_;
  const NodeNames names_of_kept_;
  const RunHistory* history_;
  /// Made when it is first needed, for its memory grows with all values.
  std::optional<PatternSummaries> summaries_;
};

}  // namespace vond::standalone
