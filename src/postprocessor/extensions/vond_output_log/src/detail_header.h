#pragma once

#include <string>

#include "vond/extension/issue_index.h"
#include "vond/extension/node_summaries.h"

namespace vond_output_log {

/// The first line of an issue in the tree section. What it is made of must outlive it.
class DetailHeader {
 public:
  DetailHeader(vond::extension::NodeSummaries& nodes, const std::string& prefix)
      : nodes_(nodes), prefix_(prefix) {}

  /// Sets `buffer` to the line, not wrapped. Returns 0, or 1 after a report in the error log.
  int format(std::string& buffer, int ordinal, const std::string& ordinal_pad,
             const vond::extension::Issue& issue) const;

 private:
  vond::extension::NodeSummaries& nodes_;
  const std::string& prefix_;
};

}  // namespace vond_output_log
