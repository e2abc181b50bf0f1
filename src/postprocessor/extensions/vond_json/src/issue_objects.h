#pragma once

#include "vond/extension/issue_numbers.h"
#include "vond/extension/json_writer.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_json {

/// Writes "issues": an object for each, in the order of the report.
void write_issues(vond::extension::JsonWriter& json,
                  const vond::postprocessor::PostprocessorExtensionData& data,
                  const vond::vocabulary::SeverityBandTable& bands,
                  const vond::extension::IssueNumbers& numbers);

}  // namespace vond_json
