#pragma once

#include <string>

#include "issue_summaries.h"
#include "vond/extension/issues_by_definition.h"
#include "vond/fwd.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/postprocessor/string_interface.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_output_log {

/// The details of definitions' issues, band by band. Sorts the record's issues by definition once,
/// when the first definition is printed. What it is made of must outlive it.
class DefinitionDetails {
 public:
  DefinitionDetails(const vond::postprocessor::PostprocessorExtensionData& data,
                    vond::vocabulary::SeverityBandTable& bands,
                    vond::postprocessor::StringInterface& strings, IssueSummaries& summaries)
      : data_(data), bands_(bands), strings_(strings), summaries_(summaries), issues_(data) {}

  /// Writes the details of one definition's issues. Every line begins with `child_prefix`; `text`
  /// is scratch. Returns 0, or 1 as soon as something fails; what is written by then stays.
  int print(const vond::Fwd& fwd, const std::string& child_prefix, int width, std::string& text);

 private:
  const vond::postprocessor::PostprocessorExtensionData& data_;
  vond::vocabulary::SeverityBandTable& bands_;
  vond::postprocessor::StringInterface& strings_;
  IssueSummaries& summaries_;
  vond::extension::IssuesByDefinition issues_;
};

}  // namespace vond_output_log
