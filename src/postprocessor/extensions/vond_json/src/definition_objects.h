#pragma once

#include "vond/extension/issue_numbers.h"
#include "vond/extension/json_writer.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_json {

/// Writes "counts": those of all issues.
void write_counts(vond::extension::JsonWriter& json,
                  const vond::postprocessor::PostprocessorExtensionData& data,
                  const vond::vocabulary::SeverityBandTable& bands);

/// Writes "definitions": the roots of the hierarchy, each with all that is below it.
void write_definitions(vond::extension::JsonWriter& json,
                       const vond::postprocessor::PostprocessorExtensionData& data,
                       const vond::vocabulary::SeverityBandTable& bands,
                       const vond::extension::IssueNumbers& numbers);

}  // namespace vond_json
