#include "standalone/report/node_set_lines.h"

#include "standalone/input/input_error.h"
#include "standalone/input/line_reader.h"
#include "standalone/nodes/group_hint.h"
#include "standalone/nodes/node_set.h"
#include "standalone/text/harmless_text.h"

namespace vond::standalone {
namespace {

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

}  // namespace

LinePart without_blanks(LinePart part) {
  static constexpr std::string_view BLANKS = " \t";
  const std::size_t begin = part.text.find_first_not_of(BLANKS);
  if (begin == std::string_view::npos) {
    return {{}, part.line, part.column};
  }
  part = part.behind(begin);
  part.text = part.text.substr(0, part.text.find_last_not_of(BLANKS) + 1);
  return part;
}

void for_each_node_set_line(InputFile& file, const std::function<void(const LinePart&)>& visit) {
  LineReader reader(file);
  for (LineReader::Line line; reader.next(line);) {
    if (line.is_too_long) {
      throw InputError(file.name(), line.number, 1,
                       "more than " + std::to_string(LONGEST_LINE) + " bytes, expected a node set");
    }
    const LinePart part = without_blanks({without_comment(line.text), line.number, line.column});
    if (!part.text.empty()) {
      visit(part);
    }
  }
}

std::vector<std::string> names_of_set(const InputFile& file, const LinePart& set) {
  std::vector<std::string> names;
  try {
    for (const std::string& name : expand_node_set(set.text, Blanks::SEPARATORS)) {
      names.push_back(harmless(name));
    }
  } catch (const NodeSetError& error) {
    throw InputError(file.name(), set.line, set.column + error.offset,
                     error.what() + group_hint(set.text, error.offset));
  }
  return names;
}

}  // namespace vond::standalone
