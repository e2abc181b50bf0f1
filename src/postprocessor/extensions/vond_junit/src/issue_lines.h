#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "vond/extension/node_summaries.h"
#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/postprocessor/severity.h"
#include "vond/postprocessor/string_interface.h"

namespace vond_junit {

/// In bytes: of ids, node sets, messages and names in lists.
inline constexpr std::size_t LONGEST_TEXT = 1000;

/// Writes an issue as one line, "CRITICAL observation disk-full (2 nodes: cn[1-2]): /var is full.".
/// Long texts are cut, for pipelines keep and show all of them.
class IssueLine {
 public:
  /// `band` is the band's name.
  std::string format(const vond::postprocessor::CollapsedAnalysisOutput& issue,
                     std::string_view band, vond::postprocessor::TypeCode type);

 private:
  std::string nodes_of(const vond::postprocessor::CollapsedAnalysisOutput& issue);

  vond::extension::NodeSummaries nodes_;
  vond::postprocessor::StringInterface strings_;
};

/// A list of lines that tells how many it leaves out.
class Lines {
 public:
  static constexpr std::size_t MOST_LINES = 20;

  /// Whether the next line will be shown; what is not shown need not be made.
  bool has_room() const { return count_ < MOST_LINES; }

  /// Adds a line, which is only counted when there is no room.
  void add(std::string_view line);

  std::size_t count() const { return count_; }

  /// Returns the lines, each with its end, and "and 3 more" where some are left out.
  std::string text() const;

 private:
  std::string text_;
  std::size_t count_ = 0;
};

}  // namespace vond_junit
