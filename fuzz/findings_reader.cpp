// Bytes read as a file of findings: every line gives either a finding that keeps its promises or an
// error at a place of the line, and what was read reads the same when it is written down again.
// What a line tells does not depend on how often it comes.

#include "standalone/findings/findings_reader.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "fuzz/json_text.h"
#include "fuzz/memory_file.h"
#include "fuzz/oracle.h"
#include "fuzz/target.h"
#include "fuzz/text.h"
#include "standalone/definitions/definition_names.h"
#include "standalone/findings/line_label.h"
#include "standalone/input/byte_order_mark.h"
#include "standalone/json/json_fault.h"
#include "standalone/json/white_space.h"
#include "standalone/model/definition_spec.h"
#include "standalone/model/severity_scale.h"
#include "standalone/model/type_names.h"
#include "standalone/nodes/node_folding.h"
#include "standalone/text/harmless_text.h"

namespace {

using namespace vond::fuzz;
using namespace vond::standalone;

// Small, so that inputs of a fuzzer's size have lines that are too long.
constexpr std::size_t SHORT_LIMIT = 100;

void expect_harmless(std::string_view text) {
  expect(is_utf8(text), "text in UTF-8", text);
  expect(is_harmless(text), "harmless text", text);
}

void expect_names(const std::vector<std::string_view>& names) {
  for (const std::string_view name : names) {
    expect_harmless(name);
    expect(!name.empty(), "a name that is not empty", name);
  }
}

void check_finding(const Finding& finding) {
  const auto& [type, id, severity, texts, definitions, based_on] = finding.wording;
  const auto& [message, remedy, category] = texts;
  expect(type_of_name(type_name(type)) == type, "a type with a name", id);
  expect_names({id});
  expect_harmless(category);
  expect_harmless(message);
  expect_harmless(remedy);
  expect_names(definitions);
  expect_names(based_on);
  for (const std::string_view node : finding.nodes) {
    expect_harmless(node);
  }
  expect(severity >= LOWEST_SEVERITY && severity <= HIGHEST_SEVERITY, "a severity on the scale",
         id);
}

std::string member(const std::string& key, const std::string& json) {
  return ",\"" + key + "\":" + json;
}

std::string json_strings(const std::vector<std::string_view>& texts) {
  std::vector<std::string> values;
  values.reserve(texts.size());
  for (const std::string_view text : texts) {
    values.push_back(json_string(text));
  }
  return json_array(values);
}

/// Writes nodes so that no name is taken for a set.
std::string json_nodes(const std::vector<std::string_view>& nodes) {
  std::vector<std::string> values;
  for (const std::string_view node : nodes) {
    const bool is_taken_for_a_set = node.find_first_of("[],") != node.npos;
    values.push_back(json_string(is_taken_for_a_set ? fold_node_names({{std::string(node)}})
                                                    : std::string(node)));
  }
  return json_array(values);
}

std::string json_line(const Finding& finding) {
  std::vector<std::string> row_ids;
  for (const int id : finding.row_ids) {
    row_ids.push_back(std::to_string(id));
  }
  const auto& [type, id, severity, texts, definitions, based_on] = finding.wording;
  const auto& [message, remedy, category] = texts;
  return "{\"type\":" + json_string(type_name(type)) + member("id", json_string(id)) +
         member("severity", std::to_string(severity)) + member("category", json_string(category)) +
         member("message", json_string(message)) + member("remedy", json_string(remedy)) +
         member("nodes", json_nodes(finding.nodes)) + member("row_ids", json_array(row_ids)) +
         member("definitions", json_strings(definitions)) +
         member("based_on", json_strings(based_on)) +
         member("count", std::to_string(finding.count)) + "}";
}

/// Writes down what is read, a line of findings for every usable line of input.
class Notes : public FindingsSink {
 public:
  explicit Notes(bool definitions_are_paths) : definitions_are_paths_(definitions_are_paths) {}

  void finding(const Finding& finding) override {
    check_finding(finding);
    for (const std::string_view name : finding.wording.definitions) {
      expect(!definitions_are_paths_ || spelled_depth(name) <= MAX_DEFINITION_DEPTH,
             "definitions that the tree can hold", name);
    }
    lines.push_back(json_line(finding));
  }

  void examined(const std::vector<std::string_view>& nodes) override {
    for (const std::string_view node : nodes) {
      expect_harmless(node);
    }
    lines.push_back("{\"examined\":" + json_nodes(nodes) + "}");
  }

  std::vector<std::string> lines;

 private:
  bool definitions_are_paths_;
};

/// What a reader makes of an input.
struct Reading {
  std::vector<std::string> lines;
  std::vector<std::string> warnings;
  std::vector<std::string> errors;
  std::size_t rejected = 0;
  bool ended_early = false;

  std::size_t usable_and_rejected() const { return lines.size() + rejected; }
};

void check_outcome(const FileOutcome& outcome, const FindingsReader& reader) {
  expect(outcome.rejected_lines == reader.rejected().count, "rejected lines to be counted",
         outcome.complaint);
  const bool is_useless = outcome.usable_lines == 0 && outcome.rejected_lines != 0;
  expect(outcome.complaint.empty() != is_useless, "a complaint about a useless file alone",
         outcome.complaint);
  expect_harmless(outcome.complaint);
}

Reading read(std::string_view input, const ReadingOptions& options) {
  static MemoryFile file;
  const std::string& path = file.holding(input);
  Notes notes(options.definitions_are_paths);
  FindingsReader reader(notes, options);
  Reading reading;
  try {
    check_outcome(reader.read(path), reader);
    expect(reader.bytes_read() == input.size(), "all of the input to be read", input);
  } catch (const InputError& error) {
    reading.ended_early = true;
    reading.errors.emplace_back(error.what());
  }
  for (const InputError& error : reader.rejected().errors) {
    reading.errors.emplace_back(error.what());
  }
  for (const std::string& error : reading.errors) {
    expect_place(error, path, input);
  }
  reading.warnings = reader.warnings();
  for (const std::string& warning : reading.warnings) {
    expect_harmless(warning);
  }
  reading.rejected = reader.rejected().count;
  reading.lines = std::move(notes.lines);
  return reading;
}

/// One line of the input as the reader should see it.
std::string_view text_of_line(std::string_view line, bool is_first) {
  if (is_first) {
    line = without_byte_order_mark(line);
  }
  if (!line.empty() && line.back() == '\r') {
    line.remove_suffix(1);
  }
  return line;
}

/// The lines of the input that count, by their kind.
struct LineCounts {
  std::size_t not_blank = 0;
  std::size_t broken = 0;
  std::size_t too_long = 0;
};

/// Bytes that are not UTF-8 and labels are no reason to refuse a line.
bool is_broken(std::string_view line) {
  return is_utf8(line) && find_json_fault(split_label(line).object, "line");
}

LineCounts count_lines(std::string_view input) {
  LineCounts counts;
  bool is_first = true;
  for (const std::string_view raw_line : lines_of(input)) {
    const std::string_view line = text_of_line(raw_line, std::exchange(is_first, false));
    const bool is_too_long = line.size() > SHORT_LIMIT;
    const bool is_blank = without_white_space(line).empty();
    if (is_too_long) {
      ++counts.too_long;
    }
    if (!is_blank) {
      ++counts.not_blank;
    }
    if (!is_blank && is_broken(line)) {
      ++counts.broken;
    }
  }
  return counts;
}

/// A reader that ends at the first bad line has found the same up to there.
void check_early_end(std::string_view input, const Reading& all) {
  const Reading start = read(input, {.is_strict = true});
  expect(start.ended_early == (all.rejected != 0), "a bad line to end the reading", input);
  expect(start.lines.size() <= all.lines.size() &&
             std::equal(start.lines.begin(), start.lines.end(), all.lines.begin()),
         "the same findings up to the first bad line", input);
  if (start.ended_early) {
    expect_same("the first error to be told", start.errors.front(), all.errors.front());
  } else {
    expect_same("all findings to be read", start.lines, all.lines);
    expect_same("the same warnings", start.warnings, all.warnings);
  }
}

void check_short_limit(std::string_view input, const LineCounts& counts) {
  const Reading reading = read(input, {.longest_line = SHORT_LIMIT});
  expect(reading.rejected >= counts.too_long, "lines that are too long to be left out", input);
}

/// What was read, written down and read again, is the same.
void check_second_reading(const Reading& first) {
  std::string text;
  for (const std::string& line : first.lines) {
    text += line + "\n";
  }
  const Reading second = read(text, {.is_strict = true});
  if (second.ended_early) {
    fail(second.errors.front(), text);
  }
  expect(second.warnings.empty(), "no warnings about what was written", text);
  expect_same("what was read to be what is read again", second.lines, first.lines);
}

/// A line that repeats an earlier one tells the same.
void check_repetition(std::string_view input, const Reading& first) {
  // A byte order mark in the middle is none, and neither is half a line end.
  if (input != text_of_line(input, true)) {
    return;
  }
  const std::string line_end = "\n";
  std::string text;
  std::vector<std::string> lines;
  for (int time = 0; time < 3; ++time) {
    text.append(input).append(line_end);
    lines.insert(lines.end(), first.lines.begin(), first.lines.end());
  }
  const Reading all = read(text, {});
  expect_same("repeated lines to tell the same", all.lines, lines);
  expect(all.rejected == 3 * first.rejected, "repeated lines to be rejected as often", input);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = text_of(data, size);
  if (has_long_ranges(input)) {
    return 0;
  }
  const LineCounts counts = count_lines(input);
  const Reading all = read(input, {});
  expect(!all.ended_early, "the reader to keep going", input);
  expect(all.usable_and_rejected() == counts.not_blank,
         "a finding or an error for every line that is not blank", input);
  expect(all.rejected >= counts.broken, "lines that are no JSON to be left out", input);
  check_early_end(input, all);
  check_short_limit(input, counts);
  check_second_reading(all);
  check_repetition(input, all);
  read(input, {.definitions_are_paths = true});
  return 0;
}
