#include "vond/postprocessor/utility_functions.h"

namespace vond::postprocessor {

void UtilityFunctions::print_validation(const PostprocessorExtensionData& /*data*/) {}
int UtilityFunctions::Summarize(const PostprocessorExtensionData& /*data*/) {
  return 0;
}
int UtilityFunctions::PrintEnd(const PostprocessorExtensionData& /*data*/) {
  return 0;
}

int UtilityFunctions::GetDigits(int count) const {
  int digits = 1;
  for (; count > 9; count /= 10) ++digits;
  return digits;
}

std::string UtilityFunctions::get_usable_id(const std::string& id) {
  constexpr char BLANKS[] = " \t";
  const std::size_t qualifier = id.find('#');
  const std::size_t start = id.find_first_not_of(BLANKS);
  if (start >= qualifier || start == std::string::npos) return id;
  const std::size_t last =
      id.find_last_not_of(BLANKS, qualifier == std::string::npos ? qualifier : qualifier - 1);
  return id.substr(start, last + 1 - start);
}

}  // namespace vond::postprocessor
