#include "standalone/report/node_list_file.h"

#include <cstddef>
#include <string_view>

#include "standalone/input/input_error.h"
#include "standalone/input/input_file.h"
#include "standalone/input/line_reader.h"
#include "standalone/nodes/group_hint.h"
#include "standalone/nodes/node_set.h"
#include "standalone/text/harmless_text.h"

namespace vond::standalone {
namespace {

constexpr const char* EXPECTATION = "a file of node sets";

std::string_view without_comment(std::string_view line) {
  bool is_quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '\\' && !is_quoted) {
      ++i;  // A quote in a quoted name is written as '\''.
    } else if (line[i] == '\'') {
      is_quoted = !is_quoted;
    } else if (line[i] == '#' && !is_quoted) {
      return line.substr(0, i);
    }
  }
  return line;
}

/// A part of a line, and its first byte's column.
struct Text {
  std::string_view text;
  std::size_t column;
};

/// Returns the node set of a line, empty where there is none.
Text find_set(const LineReader::Line& line) {
  static constexpr std::string_view BLANKS = " \t";
  const std::string_view text = without_comment(line.text);
  const std::size_t begin = text.find_first_not_of(BLANKS);
  if (begin == std::string_view::npos) {
    return {{}, line.column};
  }
  const std::size_t end = text.find_last_not_of(BLANKS) + 1;
  return {text.substr(begin, end - begin), line.column + begin};
}

void add_names(const std::string& file, const LineReader::Line& line,
               std::vector<std::string>& names) {
  const auto [set, column] = find_set(line);
  if (set.empty()) {
    return;
  }
  try {
    for (const std::string& name : expand_node_set(set, Blanks::SEPARATORS)) {
      names.push_back(harmless(name));
    }
  } catch (const NodeSetError& error) {
    throw InputError(file, line.number, column + error.offset,
                     error.what() + group_hint(set, error.offset));
  }
  if (names.size() > MAX_NODE_SET_SIZE) {
    const std::string most = std::to_string(MAX_NODE_SET_SIZE);
    throw InputError(
        file, line.number, column,
        "more than " + most + " names up to this line's end, expected at most " + most);
  }
}

}  // namespace

std::vector<std::string> read_node_list(const std::string& path) {
  InputFile file(path, EXPECTATION);
  LineReader reader(file);
  std::vector<std::string> names;
  for (LineReader::Line line; reader.next(line);) {
    if (line.is_too_long) {
      throw InputError(file.name(), line.number, 1,
                       "more than " + std::to_string(LONGEST_LINE) + " bytes, expected a node set");
    }
    add_names(file.name(), line, names);
  }
  if (names.empty()) {
    throw InputError(file.name() + ": names no node, expected " + EXPECTATION);
  }
  return names;
}

}  // namespace vond::standalone
