#include "vond_output_log.h"

#include <string>

#include "vond/log/output_log.h"
#include "vond/util/engine_helper.h"
#include "vond/vocabulary/month_names.h"

using vond::log::OutputLog;

namespace vond_output_log {
namespace {

/// Writes one statement; text that is empty reaches no destination.
void write(const std::string& text) {
  OutputLog(OutputLog::NONE) << text;
}

void write_rule() {
  write(std::string(80, '-') + "\n");
}

}  // namespace

VondOutputLog::VondOutputLog(vond::postprocessor::PostprocessorExtensionData& engine_data)
    : PostprocessorExtension(engine_data) {
  data = engine_data;
}

VondOutputLog::~VondOutputLog() = default;

int VondOutputLog::run() {
  write(vond::util::EngineHelper::format_header());
  write_rule();
  utilities_.print_validation(data);
  if (utilities_.Summarize(data) == 1) return 1;
  if (PrintSection(false) == 1) return 1;
  write_rule();
  if (PrintSection(true) == 1) return 1;
  write_rule();
  if (utilities_.print_full_tree(data) == 1) return 1;
  utilities_.PrintEnd(data);
  return 0;
}

int VondOutputLog::PrintSection(bool /*other*/) {
  return 0;
}

}  // namespace vond_output_log

vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data) {
  return new vond_output_log::VondOutputLog(data);
}
