#include "standalone/report/node_list_file.h"

#include "standalone/input/input_error.h"
#include "standalone/nodes/node_set.h"
#include "standalone/report/node_set_lines.h"

namespace vond::standalone {

std::vector<std::string> read_node_list(const std::string& path) {
  constexpr const char* EXPECTATION = "a file of node sets";
  InputFile file(path, EXPECTATION);
  std::vector<std::string> names;
  for_each_node_set_line(file, [&file, &names](const LinePart& set) {
    const std::vector<std::string> more = names_of_set(file, set);
    names.insert(names.end(), more.begin(), more.end());
    if (names.size() > MAX_NODE_SET_SIZE) {
      const std::string most = std::to_string(MAX_NODE_SET_SIZE);
      throw InputError(
          file.name(), set.line, set.column,
          "more than " + most + " names up to this line's end, expected at most " + most);
    }
  });
  if (names.empty()) {
    throw InputError(file.name() + ": names no node, expected " + EXPECTATION);
  }
  return names;
}

}  // namespace vond::standalone
