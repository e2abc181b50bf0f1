#include "vond/postprocessor/utility_functions.h"

#include <string_view>

#include "standalone/libvond_host/blocks/summary.h"
#include "standalone/libvond_host/blocks/validation.h"
#include "standalone/libvond_host/current_facts.h"

namespace vond::postprocessor {
using standalone::report_facts;

void UtilityFunctions::print_validation(const PostprocessorExtensionData& data) {
  standalone::write_validation(report_facts(), data);
}

int UtilityFunctions::Summarize(const PostprocessorExtensionData& data) {
  standalone::write_summary(report_facts(), data);
  return 0;
}

int UtilityFunctions::PrintEnd(const PostprocessorExtensionData& data) {
  standalone::write_end(report_facts(), data);
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
