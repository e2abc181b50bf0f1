#include "vond/postprocessor/utility_functions.h"

#include <cstddef>
#include <string_view>

#include "standalone/libvond_host/end_block.h"
#include "standalone/libvond_host/report_block.h"
#include "standalone/libvond_host/report_facts.h"
#include "standalone/libvond_host/summary_block.h"
#include "standalone/libvond_host/validation_block.h"
#include "vond/log/output_log.h"

namespace vond::postprocessor {
namespace {

using standalone::report_facts;

void write(const standalone::ReportBlock& block) {
  for (const auto& piece : block.pieces()) {
    log::OutputLog(piece.color) << piece.text;
  }
}

}  // namespace

void UtilityFunctions::print_validation(const PostprocessorExtensionData& data) {
  write(standalone::validation_block(report_facts(), data.line_width));
}

int UtilityFunctions::Summarize(const PostprocessorExtensionData& data) {
  write(standalone::summary_block(report_facts(), data));
  return 0;
}

int UtilityFunctions::PrintEnd(const PostprocessorExtensionData& data) {
  write(standalone::end_block(report_facts(), data));
  return 0;
}

int UtilityFunctions::GetDigits(int count) const {
  int digits = 1;
  for (; count > 9; count /= 10) {
    ++digits;
  }
  return digits;
}

std::string UtilityFunctions::get_usable_id(const std::string& id) {
  constexpr char BLANKS[] = " ";
  const std::string_view name = std::string_view(id).substr(0, id.find('#'));
  const std::size_t start = name.find_first_not_of(BLANKS);
  if (start == std::string_view::npos) {
    return id;
  }
  return std::string(name.substr(start, name.find_last_not_of(BLANKS) + 1 - start));
}

}  // namespace vond::postprocessor
