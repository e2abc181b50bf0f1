#pragma once

#include <string>

#include "issue_summaries.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/postprocessor/string_interface.h"

namespace vond_output_log {

/// The details of one band's issues under a definition. What it is made of must outlive it.
class DetailBlock {
 public:
  /// Every line begins with `prefix`. `buffer` takes each header and each body before it is
  /// written, and holds the last of them.
  DetailBlock(vond::postprocessor::StringInterface& strings, IssueSummaries& summaries,
              const std::string& prefix, int width, std::string& buffer)
      : strings_(strings), summaries_(summaries), prefix_(prefix), width_(width), buffer_(buffer) {}

  /// Writes the band's heading, its diagnoses and its observations; nothing when there are none.
  /// Returns 0 or 1.
  int print_band(const vond::postprocessor::IssueList& diagnoses,
                 const vond::postprocessor::IssueList& observations, const std::string& band_name);

  /// Writes the group of diagnoses or of observations, with its heading. Returns 0, or 1 as soon as
  /// an issue fails; what is written by then stays.
  int print_group(const vond::postprocessor::IssueList& issues, bool is_diagnosis);

 private:
  vond::postprocessor::StringInterface& strings_;
  IssueSummaries& summaries_;
  const std::string& prefix_;
  int width_;
  std::string& buffer_;
};

}  // namespace vond_output_log
