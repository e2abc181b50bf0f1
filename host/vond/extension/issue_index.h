#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>

#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/postprocessor/severity.h"

namespace vond::extension {

/// An entry of the issue index. It may be empty.
using Issue = std::shared_ptr<postprocessor::CollapsedAnalysisOutput>;

/// The entries under one mask, in the order of the report; lives as long as the index does and has
/// no lists added or removed.
class IssueView {
 public:
  /// `issues` may be null, then the view is empty.
  explicit IssueView(const postprocessor::IssueList* issues)
      : begin_(issues == nullptr ? nullptr : issues->data()),
        size_(issues == nullptr ? 0 : issues->size()) {}

  const Issue* begin() const { return begin_; }
  const Issue* end() const { return begin_ + size_; }
  /// Counts the entries, those without an issue too.
  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }

 private:
  const Issue* begin_;
  std::size_t size_;
};

/// Returns the bits of a mask that a whole band has. `upper_bound` and `fail_threshold` are on the
/// severity scale, 0 to 100.
inline unsigned band_mask(postprocessor::Severity severity, int upper_bound, int fail_threshold) {
  return static_cast<unsigned>(severity) | postprocessor::fail_bit(upper_bound, fail_threshold);
}

/// Returns the index entry of a mask, null without one.
inline const postprocessor::IssueList* find_issues(const postprocessor::IssuesByMask& index,
                                                   unsigned mask) {
  const auto entry = index.find(postprocessor::SeverityMask(mask));
  return entry == index.end() ? nullptr : &entry->second;
}

/// Returns how many issues are filed under a mask. Entries without an issue are none.
inline std::size_t count_issues(const postprocessor::IssuesByMask& index, unsigned mask) {
  const IssueView issues(find_issues(index, mask));
  return static_cast<std::size_t>(std::count_if(
      issues.begin(), issues.end(), [](const Issue& issue) { return issue != nullptr; }));
}

/// The issues of one band that contribute to FAIL, or those that do not.
struct BandIssues {
  IssueView diagnoses;
  IssueView observations;
  /// Listed behind the observations, as one group with them.
  IssueView missing_data;

  bool empty() const { return diagnoses.empty() && observations.empty() && missing_data.empty(); }
};

/// Returns the issues of one band. `section_bit` is FAIL_BIT for those that contribute to FAIL, 0
/// for those that do not.
inline BandIssues find_band(const postprocessor::IssuesByMask& index,
                            postprocessor::Severity severity, unsigned section_bit) {
  const unsigned mask = static_cast<unsigned>(severity) | section_bit;
  return {IssueView(find_issues(index, mask | postprocessor::DIAGNOSES)),
          IssueView(find_issues(index, mask | postprocessor::OBSERVATIONS)),
          IssueView(find_issues(index, mask | postprocessor::MISSING_DATA))};
}

}  // namespace vond::extension
