#include "vond_json.h"

#include "definition_objects.h"
#include "issue_objects.h"
#include "run_members.h"
#include "vond/extension/issue_numbers.h"
#include "vond/extension/json_writer.h"
// The copy of the band table that all of the report reads; the other files are handed it.
#include "vond/vocabulary/severity_bands.h"

namespace vond_json {

using vond::extension::IssueNumbers;
using vond::extension::JsonWriter;
using vond::extension::StatementWriter;
using vond::vocabulary::SEVERITY_BANDS;

VondJson::VondJson(vond::postprocessor::PostprocessorExtensionData& engine_data)
    : PostprocessorExtension(engine_data) {
  data = engine_data;
}

VondJson::~VondJson() = default;

int VondJson::run() {
  const IssueNumbers numbers(data, SEVERITY_BANDS);
  StatementWriter output;
  JsonWriter json(output);
  json.begin_object();
  write_run(json, data);
  write_counts(json, data, SEVERITY_BANDS);
  write_issues(json, data, SEVERITY_BANDS, numbers);
  write_definitions(json, data, SEVERITY_BANDS, numbers);
  write_comparison(json);
  // Last of all: whoever finds it has the whole report.
  json.break_line();
  json.key("complete").value(true);
  json.end_object();
  output << "\n";
  output.finish();
  return 0;
}

}  // namespace vond_json

vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data) {
  return new vond_json::VondJson(data);
}
