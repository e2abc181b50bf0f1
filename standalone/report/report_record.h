#pragma once

#include <ctime>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "standalone/comparison/sightings.h"
#include "standalone/model/definition_spec.h"
#include "standalone/report/collapser.h"
#include "standalone/report/issue_masks.h"
#include "standalone/report/record_issues.h"
#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::standalone {

/// What decides how findings become a record.
struct RecordOptions {
  /// On the severity scale, 0 to 100.
  int fail_threshold = 0;
  /// In terminal columns; 0 means no wrapping.
  int line_width = 0;
  /// A name of the log level table.
  std::string log_level;
  /// Without definitions the tree is the one that the names in the findings spell.
  std::optional<std::vector<DefinitionSpec>> definitions;
  /// Whether to keep what all findings said; the collapser has to keep it, too.
  bool keeps_findings = false;
  /// Numbers what the record's issues say was seen, which the record then keeps; null: it does not.
  SeenNames* seen_names = nullptr;
};

/// What the findings come to: the data that every extension gets, and what that does not hold. A
/// copy of the data stays readable when this object is gone, but its issues no longer know what
/// they are related to.
class ReportRecord {
 public:
  /// Takes the issues out of `collapser`. `everything` holds, by pattern, all findings that are to
  /// be kept where these are more; else it is null. Throws InputError for definitions that cannot
  /// be.
  ReportRecord(Collapser& collapser, const RecordOptions& options, Collapser* everything = nullptr);

  postprocessor::PostprocessorExtensionData& data() { return data_; }
  const postprocessor::PostprocessorExtensionData& data() const { return data_; }

  /// Whether any issue contributes to FAIL.
  bool has_failed() const;

  /// Whether any issue that contributes to FAIL has a number for which `is_one` returns true.
  template <typename IsOne>
  bool any_fails(IsOne is_one) const {
    for (std::size_t number = 0; number < severities_.size(); ++number) {
      if (contributes_to_fail(severities_[number], data_.fail_threshold) && is_one(number)) {
        return true;
      }
    }
    return false;
  }

  /// Names that findings use and the definitions lack; sorted.
  const std::vector<std::string>& unknown_definitions() const { return unknown_definitions_; }

  /// Ids that a `based_on` names and no observation has; sorted.
  const std::vector<std::string>& unknown_based_on() const { return unknown_based_on_; }

  /// Returns the number of an issue in the order of the report, from 0; nothing for one that is not
  /// of this record.
  std::optional<std::size_t> number_of(const postprocessor::CollapsedAnalysisOutput& issue) const {
    return issues_.number_of(issue);
  }

  /// What findings of one pattern share.
  struct FindingSource {
    postprocessor::TypeCode type;
    std::string id;
    std::string category;
    std::vector<std::string> definitions;
    std::vector<std::string> based_on;
  };

  /// Whether what all findings said is kept.
  bool keeps_findings() const { return keeps_findings_; }

  /// When findings are kept: calls `visit(source, findings)`, with a FindingSource and a
  /// PatternIssue, for each pattern.
  template <typename Visit>
  void for_each_source(Visit visit) const {
    const std::vector<PatternIssue>& findings = kept_.empty() ? findings_ : kept_;
    for (std::size_t number = 0; number < sources_.size(); ++number) {
      visit(sources_[number], findings[number]);
    }
  }

  /// The highest severity of each issue's findings, 0 to 100, by the issues' numbers.
  const std::vector<int>& severities() const { return severities_; }

  /// What was seen, an item for each issue by number; nothing without RecordOptions::seen_names.
  /// Leaves the record without it.
  std::vector<SeenIssue> take_sightings() { return std::exchange(sightings_, {}); }

  /// Returns when the first finding of an issue was seen, by the issue's number, as far as findings
  /// tell.
  std::optional<std::time_t> first_seen(std::size_t number) const {
    const auto found = first_seen_.find(number);
    return found == first_seen_.end() ? std::nullopt : std::optional(found->second);
  }

  /// When collapsed by pattern: what the findings of each issue said, in the order of the report,
  /// which is that of the issues' addresses. Its texts are message and remedy, its nodes numbers of
  /// the collapser's node names. Needs the collapser. Else empty.
  const std::vector<PatternIssue>& findings() const { return findings_; }

 private:
  ReportRecord(std::vector<CollapsedIssue> collapsed, const StringInterner& node_names,
               const RecordOptions& options);

  void file_issues(const std::vector<CollapsedIssue>& collapsed);
  void hang_definitions(const std::vector<CollapsedIssue>& collapsed,
                        const std::optional<std::vector<DefinitionSpec>>& specs);
  void note_first_seen(const std::vector<CollapsedIssue>& collapsed);
  void note_severities(const std::vector<CollapsedIssue>& collapsed);
  void keep_sources(const std::vector<CollapsedIssue>& issues);
  void take_kept(std::vector<CollapsedIssue> kept);
  void take_findings(std::vector<CollapsedIssue>& collapsed);

  RecordIssues issues_;
  postprocessor::PostprocessorExtensionData data_;
  std::vector<std::string> unknown_definitions_;
  std::vector<std::string> unknown_based_on_;
  bool keeps_findings_;
  std::vector<int> severities_;
  /// By the issues' numbers. Few findings tell.
  std::map<std::size_t, std::time_t> first_seen_;
  std::vector<PatternIssue> findings_;
  /// Of `findings_`, or of `kept_` where findings were not collapsed by pattern.
  std::vector<FindingSource> sources_;
  std::vector<PatternIssue> kept_;
  std::vector<SeenIssue> sightings_;
};

}  // namespace vond::standalone
