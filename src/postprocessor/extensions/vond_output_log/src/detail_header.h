#pragma once

#include <string>

#include "issue_summaries.h"
#include "vond/extension/issue_index.h"

namespace vond_output_log {

/// The first line of an issue in the tree section. What it is made of must outlive it.
class DetailHeader {
 public:
  DetailHeader(IssueSummaries& summaries, const std::string& prefix)
      : summaries_(summaries), prefix_(prefix) {}

  /// Sets `buffer` to the line, not wrapped. Returns 0, or 1 after a report in the error log.
  int format(std::string& buffer, int ordinal, const std::string& ordinal_pad,
             const vond::extension::Issue& issue) const;

 private:
  IssueSummaries& summaries_;
  const std::string& prefix_;
};

}  // namespace vond_output_log
