#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "vond/fwd.h"
#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/postprocessor/severity.h"

namespace vond::postprocessor {

using IssueList = std::vector<std::shared_ptr<CollapsedAnalysisOutput>>;
using CountsByMask = std::map<SeverityMask, int, CompareBitset>;
using IssuesByMask = std::map<SeverityMask, IssueList, CompareBitset>;

/// What the engine hands to every output extension. A copy shares the pointees with its original.
/// Order and types of the fields are the binary contract with the host; the fields named `host_…`
/// are the host's own.
struct PostprocessorExtensionData {
  std::vector<std::string> host_string_list;
  std::uint64_t host_word = 0;
  std::string host_text_1;
  std::string host_text_2;
  std::string host_text_3;
  std::string host_text_4;
  bool host_flag_1 = false;
  bool host_flag_2 = false;
  bool host_flag_3 = false;
  /// On the severity scale, 0 to 100: a band whose upper bound is at or above it contributes to
  /// FAIL.
  int fail_threshold = 0;
  int host_count = 0;
  /// The report's width in terminal columns; 0 or less means no wrapping.
  int line_width = 0;
  /// Number of issues by FAIL_BIT and type code 0 (diagnoses) or 3 (all observations).
  CountsByMask counts_by_mask;
  std::set<std::string> host_name_set;
  std::shared_ptr<void> host_shared_1;
  std::shared_ptr<void> host_shared_2;
  std::shared_ptr<void> host_shared_3;
  std::shared_ptr<void> host_shared_4;
  std::shared_ptr<FwdHierarchy> fwd_root;
  std::shared_ptr<void> host_shared_5;
  std::shared_ptr<void> host_shared_6;
  /// The issues by severity, type code and FAIL_BIT, in the order of the report.
  std::shared_ptr<IssuesByMask> issues_by_mask;
  /// A name of the log level table; "info" and "debug" switch the database row ids on.
  std::string log_level;
  std::shared_ptr<void> host_shared_7;
  std::shared_ptr<void> host_shared_8;
  std::shared_ptr<void> host_shared_9;
  std::map<std::string, std::vector<std::pair<std::string, std::string>>> host_option_map;
};

}  // namespace vond::postprocessor
