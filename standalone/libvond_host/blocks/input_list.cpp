#include "standalone/libvond_host/blocks/input_list.h"

#include <cstddef>

#include "standalone/libvond_host/blocks/ages.h"

namespace vond::standalone {
namespace {

/// Returns ", 2 minutes old"; nothing for an input without an age.
std::string age_behind_name(const ReportFacts::Input& input) {
  return input.age ? ", " + format_age(*input.age) : std::string();
}

}  // namespace

std::string limited_input_list(const ListLayout& layout,
                               const std::vector<ReportFacts::Input>& inputs) {
  const auto first_inputs = [&inputs](std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
      text.append(i == 0 ? "" : "; ").append(inputs[i].name).append(age_behind_name(inputs[i]));
    }
    return text;
  };
  const auto cut_first_name = [&inputs](std::size_t columns) {
    return cut_text(inputs[0].name, columns) + age_behind_name(inputs[0]);
  };
  return limited_list(layout, inputs.size(), first_inputs, cut_first_name);
}

}  // namespace vond::standalone
