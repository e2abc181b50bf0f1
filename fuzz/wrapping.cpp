// Text wrapped in each of the three ways. The input is a byte for the width, a byte for the label's
// end, the rest of the first line for the indent, and the text.

#include <array>
#include <string>

#include "fuzz/oracle.h"
#include "fuzz/target.h"
#include "fuzz/text.h"
#include "fuzz/wrapping_oracle.h"
#include "vond/str/string_functions.h"

namespace {

using namespace vond::fuzz;

/// One of the host's operations.
struct Wrapping {
  std::string name;
  WrapRules rules;
  bool indents_lines;
  bool keeps_final_line_ends;

  std::string operator()(const std::string& text) const {
    if (rules.at_blanks_only) {
      return vond::str::space_wrap(text, rules.width, rules.indent);
    }
    if (!rules.label_end) {
      return vond::str::word_wrap(text, rules.width, rules.indent);
    }
    return vond::str::column_wrap(text, rules.width, rules.indent, *rules.label_end, false);
  }
};

/// Returns the lines of `text` as they are wrapped, each with its indent.
std::vector<std::string> prepared_lines(const Wrapping& wrapping, std::string_view text) {
  const std::string& indent = wrapping.rules.indent;
  std::vector<std::string> lines;
  for (const std::string_view line : lines_of(text)) {
    const bool has_indent = line.substr(0, indent.size()) == indent;
    const bool gets_indent = wrapping.indents_lines && !lines.empty() && !has_indent;
    lines.emplace_back(gets_indent ? indent : "").append(line);
  }
  return lines;
}

/// Checks a line by itself and returns what it became.
std::string wrap_line(const Wrapping& wrapping, const std::string& line) {
  std::string wrapped = wrapping(line);
  const WrappingOracle oracle(wrapping.rules, line);
  const std::string complaint = oracle.complaint(lines_of(wrapped));
  if (!complaint.empty()) {
    expect_same(wrapping.name + " by the rules, and not " + complaint, line, wrapped);
  }
  return wrapped;
}

void check(const Wrapping& wrapping, std::string_view text) {
  std::string_view end;
  if (wrapping.keeps_final_line_ends) {
    if (!text.empty() && text.back() == '\n') {
      end = text.substr(text.size() - 1);
    }
    text.remove_suffix(end.size());
  } else {
    text = text.substr(0, text.find_last_not_of('\n') + 1);
  }
  std::string expected;
  for (const std::string& line : prepared_lines(wrapping, text)) {
    expected += wrap_line(wrapping, line) + "\n";
  }
  expected.pop_back();
  expected += end;

  const std::string wrapped = wrapping(std::string(text).append(end));
  expect_same(wrapping.name + " to treat a line as if it were alone", wrapped, expected);
  expect_same(wrapping.name + " twice to be the same as once", wrapping(wrapped), wrapped);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text = text_of(data, size);
  const int width = take_width(text);
  const char label_end = static_cast<char>(take_byte(text));
  const std::string indent(take_line(text));
  if (label_end == '\n') {
    return 0;
  }
  const std::array<Wrapping, 3> wrappings = {
      {{"word_wrap", {width, indent, std::nullopt, false}, true, true},
       {"column_wrap", {width, indent, label_end, false}, false, true},
       {"space_wrap", {width, indent, std::nullopt, true}, true, false}}};
  for (const Wrapping& wrapping : wrappings) {
    check(wrapping, text);
  }
  return 0;
}
