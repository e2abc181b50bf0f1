#include "vond_output_log.h"

#include <string>

#include "issue_summaries.h"
#include "statement.h"
#include "vond/util/engine_helper.h"
#include "vond/vocabulary/month_names.h"
// The copy of the band table that the issue sections read; they are handed it.
#include "vond/vocabulary/severity_bands.h"

namespace vond_output_log {

using vond::vocabulary::SEVERITY_BANDS;

namespace {

void write_rule() { write(std::string(80, '-') + "\n"); }

}  // namespace

VondOutputLog::VondOutputLog(vond::postprocessor::PostprocessorExtensionData& engine_data)
    : PostprocessorExtension(engine_data) {
  data = engine_data;
}

VondOutputLog::~VondOutputLog() = default;

// Of the results 1 alone is a failure, of these steps and of all others of the report; that is
// wanted.
int VondOutputLog::run() {
  IssueSummaries summaries;
  IssueSections sections = make_sections(summaries);
  // As it is: a header that does not end its last line runs into the rule; that is wanted.
  write(vond::util::EngineHelper::format_header());
  write_rule();
  utilities_.print_validation(data);
  if (utilities_.Summarize(data) == 1) {
    return 1;
  }
  if (sections.print(false) == 1) {
    return 1;
  }
  write_rule();
  if (sections.print(true) == 1) {
    return 1;
  }
  write_rule();
  if (utilities_.make_walk(data, summaries).print_section() == 1) {
    return 1;
  }
  // What it returns does not count; that is wanted.
  utilities_.PrintEnd(data);
  return 0;
}

int VondOutputLog::PrintSection(bool other) {
  IssueSummaries summaries;
  return make_sections(summaries).print(other);
}

IssueSections VondOutputLog::make_sections(IssueSummaries& summaries) {
  return IssueSections(data, SEVERITY_BANDS, utilities_, static_cast<IssuePrinting&>(utilities_),
                       summaries);
}

}  // namespace vond_output_log

vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data) {
  return new vond_output_log::VondOutputLog(data);
}
