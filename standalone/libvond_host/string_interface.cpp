#include "vond/postprocessor/string_interface.h"

#include <algorithm>
#include <string_view>

#include "standalone/nodes/node_folding.h"

namespace vond::postprocessor {

std::string StringInterface::get_node_string(std::vector<std::vector<std::string>>& node_lists) {
  return standalone::fold_node_names(node_lists);
}

std::string StringInterface::get_short_name(const std::string& name) const {
  const std::size_t end = name.find_last_not_of('/');
  if (end == std::string::npos) {
    return name;
  }
  const std::size_t slash = name.find_last_of('/', end);
  const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
  return name.substr(start, end + 1 - start);
}

std::string StringInterface::remove_endl(const std::string& text) const {
  if (text.find('\n') == std::string::npos && text.find('\r') == std::string::npos) {
    return text;
  }
  constexpr char LINE_ENDS[] = "\r\n";
  constexpr char WHITE_SPACE[] = " \t\r\n";
  std::string line;
  line.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t word = std::min(text.find_first_not_of(WHITE_SPACE, position), text.size());
    const std::string_view space(text.data() + position, word - position);
    if (space.find_first_of(LINE_ENDS) == std::string_view::npos) {
      line += space;
    } else if (position != 0 && word != text.size()) {
      line += ' ';
    }
    position = std::min(text.find_first_of(WHITE_SPACE, word), text.size());
    line.append(text, word, position - word);
  }
  return line;
}

}  // namespace vond::postprocessor
