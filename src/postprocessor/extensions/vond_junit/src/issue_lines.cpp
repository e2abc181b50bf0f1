#include "issue_lines.h"

#include "vond/extension/words.h"
#include "vond/str/string_functions.h"
#include "xml_text.h"

namespace vond_junit {
std::string IssueLine::format(const vond::postprocessor::CollapsedAnalysisOutput& issue,
                              std::string_view band, vond::postprocessor::TypeCode type) {
  std::string line = vond::str::upper(std::string(band));
  line += ' ';
  line += vond::extension::type_word(type);
  line += ' ' + strings_.remove_endl(shortened(issue.get_id(), LONGEST_TEXT)) + nodes_of(issue);
  if (!issue.outputs.empty() && !issue.outputs[0]->message.empty()) {
    line += ": " + strings_.remove_endl(shortened(issue.outputs[0]->message, LONGEST_TEXT));
  }
  return line;
}

std::string IssueLine::nodes_of(const vond::postprocessor::CollapsedAnalysisOutput& issue) {
  const std::size_t count = nodes_.count(issue);
  if (count == 0) {
    return "";
  }
  return " (" + std::to_string(count) + (count == 1 ? " node: " : " nodes: ") +
         shortened(nodes_.text(issue, strings_), LONGEST_TEXT) + ")";
}

void Lines::add(std::string_view line) {
  if (has_room()) {
    text_ += line;
    text_ += '\n';
  }
  ++count_;
}

std::string Lines::text() const {
  return count_ <= MOST_LINES ? text_
                              : text_ + "and " + std::to_string(count_ - MOST_LINES) + " more\n";
}

}  // namespace vond_junit
