#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

#include "vond/extension/issue_order.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/postprocessor/severity.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond::extension {

/// Where an issue stands in the report: where it is filed first.
struct IssuePlace {
  /// From 1, through all issues.
  std::size_t number = 0;
  /// The name of its severity band, "critical" for example.
  std::string band;
  postprocessor::TypeCode type = postprocessor::DIAGNOSES;
  /// Whether it contributes to FAIL.
  bool fails = false;
};

/// Numbers the issues of a record from 1, through all of them, in the order of the report, and
/// knows the band and the type of each, which an issue does not tell. Issues must not go while this
/// lives.
class IssueNumbers {
 public:
  explicit IssueNumbers(const postprocessor::PostprocessorExtensionData& data)
      : IssueNumbers(data, vocabulary::standard_bands()) {}

  IssueNumbers(const postprocessor::PostprocessorExtensionData& data,
               const vocabulary::SeverityBandTable& bands) {
    for_each_issue(
        data, bands, [this](const Issue& issue, const auto& band, auto type, bool fails) {
          places_.try_emplace(issue.get(), IssuePlace{places_.size() + 1,
                                                      vocabulary::band_name(band), type, fails});
        });
  }

  /// Returns the issue's number, 0 for one that is not of the record.
  std::size_t of(const postprocessor::CollapsedAnalysisOutput* issue) const {
    const IssuePlace* place = place_of(issue);
    return place == nullptr ? 0 : place->number;
  }

  /// Returns where the issue stands, null for one that is not of the record. Lives as long as this.
  const IssuePlace* place_of(const postprocessor::CollapsedAnalysisOutput* issue) const {
    const auto found = places_.find(issue);
    return found == places_.end() ? nullptr : &found->second;
  }

  /// Counts each issue once, however often it is filed.
  std::size_t size() const { return places_.size(); }

 private:
  std::unordered_map<const postprocessor::CollapsedAnalysisOutput*, IssuePlace> places_;
};

}  // namespace vond::extension
