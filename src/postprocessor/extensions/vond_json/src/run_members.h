#pragma once

#include "vond/extension/json_writer.h"
#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond_json {

/// Writes what the report tells of the run: from "format_version" to "nodes".
void write_run(vond::extension::JsonWriter& json,
               const vond::postprocessor::PostprocessorExtensionData& data);

/// Writes what the report tells of an earlier run and of acknowledgements: "since" and
/// "acknowledged".
void write_comparison(vond::extension::JsonWriter& json);

}  // namespace vond_json
