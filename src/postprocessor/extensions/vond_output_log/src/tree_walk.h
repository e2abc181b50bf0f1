#pragma once

#include <string>

#include "definition_details.h"
#include "issue_summaries.h"
#include "vond/fwd.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/postprocessor/string_interface.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_output_log {

/// The walk through the framework-definition hierarchy, depth first. What it is made of must
/// outlive it. Its operations return 0, or 1 as soon as something fails; what is written by then
/// stays.
class TreeWalk {
 public:
  TreeWalk(const vond::postprocessor::PostprocessorExtensionData& data,
           vond::vocabulary::SeverityBandTable& bands,
           vond::postprocessor::StringInterface& strings, IssueSummaries& summaries)
      : data_(data), bands_(bands), strings_(strings), details_(data, bands, strings, summaries) {}

  /// Writes the section's heading and the tree of every root.
  int print_section();

  /// Writes one definition and everything below it. `inherited` is what its parent hands to its
  /// children, empty for a root; `last` tells that no sibling follows, and is set for every root.
  int print_tree(const vond::Fwd& fwd, const std::string& inherited, bool last);

 private:
  /// Writes the counts and the details of one definition.
  int print_blocks(const vond::Fwd& fwd, const std::string& child_prefix);
  int print_children(const vond::Fwd& fwd, const std::string& inherited);

  const vond::postprocessor::PostprocessorExtensionData& data_;
  const vond::vocabulary::SeverityBandTable& bands_;
  vond::postprocessor::StringInterface& strings_;
  DefinitionDetails details_;
};

}  // namespace vond_output_log
