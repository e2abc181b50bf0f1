// The whole way from bytes to the report. The first line of the input holds a byte for the width
// and letters for the options, the second the definitions, the others the findings:
//
//     Pi     width 80, collapsed by id
//     {"definitions": []}
//     {"id": "load", "severity": "high"}

#include <algorithm>
#include <array>
#include <cstddef>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/json_text.h"
#include "fuzz/memory_file.h"
#include "fuzz/oracle.h"
#include "fuzz/target.h"
#include "fuzz/text.h"
#include "standalone/definitions/definitions_reader.h"
#include "standalone/findings/findings_reader.h"
#include "standalone/libvond_host/current_facts.h"
#include "standalone/report/collapser.h"
#include "standalone/report/examination.h"
#include "standalone/report/report_record.h"
#include "standalone/text/harmless_text.h"
#include "vond/log/output_log.h"
#include "vond_output_log.h"

namespace {

using namespace vond::fuzz;
using namespace vond::standalone;
using vond::log::OutputLog;

/// What the first two lines of an input ask for.
struct Options {
  CollapseBy collapse_by = CollapseBy::TEXT;
  RecordOptions record;
  bool colored = false;
};

bool has(std::string_view letters, char letter) {
  return letters.find(letter) != std::string_view::npos;
}

std::optional<std::vector<DefinitionSpec>> read_definition_specs(std::string_view text) {
  static MemoryFile file;
  try {
    return read_definitions(file.holding(text)).roots;
  } catch (const InputError&) {
    // Then the tree is the one that the findings spell.
    return std::nullopt;
  }
}

Options take_options(std::string_view& input) {
  Options options;
  options.record.line_width = take_width(input);
  const std::string_view letters = take_line(input);
  if (has(letters, 'i')) {
    options.collapse_by = CollapseBy::ID;
  } else if (has(letters, 'p')) {
    options.collapse_by = CollapseBy::PATTERN;
  }
  options.record.fail_threshold = has(letters, 'a') ? 0 : has(letters, 't') ? 25 : 75;
  options.record.log_level = has(letters, 'r') ? "info" : "warning";
  options.record.definitions = read_definition_specs(take_line(input));
  options.colored = has(letters, 'c');
  return options;
}

class Input : public FindingsSink {
 public:
  Input(std::string_view text, bool definitions_are_paths, CollapseBy collapse_by)
      : collapser_(collapse_by) {
    static MemoryFile file;
    FindingsReader reader(*this, {.definitions_are_paths = definitions_are_paths});
    reader.read(file.holding(text));
    lines_rejected_ = reader.rejected().count;
  }

  void finding(const Finding& finding) override { collapser_.add(finding); }

  void examined(const std::vector<std::string_view>& nodes) override {
    examination_.set_known();
    for (const std::string_view node : nodes) {
      examination_.add_examined(node);
      examination_.add_expected(std::string(node) + "-standby");
    }
  }

  Collapser& collapser() { return collapser_; }

  void fill(ReportFacts& facts) const {
    facts.findings_read = collapser_.findings();
    facts.lines_rejected = lines_rejected_;
    facts.nodes_seen = collapser_.node_names().size();
    if (examination_.expected() != 0) {
      const std::vector<std::string> seen = examination_.seen(collapser_.node_names());
      facts.expectation = {examination_.expected(),
                           examination_.expected_and_not_in(seen),
                           examination_.not_expected_of(seen),
                           {}};
    }
    if (examination_.is_known()) {
      facts.examination = {examination_.examined(),
                           examination_.not_examined(collapser_.node_names())};
    }
  }

 private:
  Collapser collapser_;
  Examination examination_;
  std::size_t lines_rejected_ = 0;
};

/// While it lives, what is written to the output log and to standard error goes to texts.
class CapturedOutput {
 public:
  explicit CapturedOutput(bool colored) : standard_error_(std::cerr.rdbuf(errors_.rdbuf())) {
    OutputLog::singleton_obj = std::make_unique<OutputLog::OutputLogStream>();
    OutputLog::singleton_obj->streams.push_back({&report_, colored});
  }
  ~CapturedOutput() {
    OutputLog::singleton_obj.reset();
    std::cerr.rdbuf(standard_error_);
  }
  CapturedOutput(const CapturedOutput&) = delete;
  CapturedOutput& operator=(const CapturedOutput&) = delete;

  std::string report() const { return report_.str(); }
  std::string errors() const { return errors_.str(); }

 private:
  std::ostringstream report_;
  std::ostringstream errors_;
  std::streambuf* standard_error_;
};

/// Runs the extension once and returns its text.
std::string run_extension(ReportRecord& record, bool colored) {
  int result = -1;
  std::string text;
  std::string errors;
  {
    const CapturedOutput output(colored);
    const std::unique_ptr<vond::postprocessor::PostprocessorExtension> extension(
        create(record.data()));
    result = extension->run();
    text = output.report();
    errors = output.errors();
  }
  expect(result == 0, "a report to be written to its end", text);
  expect_same("nothing on standard error", errors, "");
  return text;
}

/// A report and the number of issues that it is to hold.
struct WrittenReport {
  std::string text;
  int issues = 0;
};

int count_issues(ReportRecord& record) {
  int issues = 0;
  for (const auto& [mask, count] : record.data().counts_by_mask) {
    issues += count;
  }
  return issues;
}

/// Returns the report of an input; a record gives the same one however often it is asked.
WrittenReport write_report(std::string_view findings, const Options& options) {
  Input input(findings, !options.record.definitions.has_value(), options.collapse_by);
  ReportRecord record(input.collapser(), options.record);
  ReportFacts& facts = report_facts();
  facts = ReportFacts();
  facts.inputs = {{"fuzz", {}, false}};
  facts.line_width = options.record.line_width;
  facts.unknown_definitions = record.unknown_definitions();
  facts.unknown_based_on = record.unknown_based_on();
  facts.failed = record.has_failed();
  input.fill(facts);
  std::string text = run_extension(record, options.colored);
  expect_same("the same record to give the same report", run_extension(record, options.colored),
              text);
  return {std::move(text), count_issues(record)};
}

std::string without_colors(std::string text) {
  for (const std::string code : {"\033[0;31m", "\033[0;33m", "\033[0;32m", "\033[0m"}) {
    for (std::size_t at = text.find(code); at != std::string::npos; at = text.find(code, at)) {
      text.erase(at, code.size());
    }
  }
  return text;
}

bool starts_with(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

/// Whether the line begins with an issue's number. An id that is too wide leaves that alone.
bool is_issue_header(std::string_view line) {
  const std::size_t digits = line.find_first_not_of("0123456789");
  if (digits == 0 || digits == std::string_view::npos) {
    return false;
  }
  const std::string_view rest = line.substr(digits);
  return rest == "." || starts_with(rest, ". ");
}

/// Whether the report itself begins a line of an issue section so; whatever findings tell stands
/// further right.
bool may_stand_at_left(std::string_view line) {
  static constexpr std::array<std::string_view, 8> LINES = {
      "Issues contributing to FAIL",
      "Other issues (not contributing to FAIL)",
      "No issues detected.",
      "Diagnoses",
      "Observations",
      "CRITICAL:",
      "WARNING:",
      "INFORMATIONAL:"};
  return std::find(LINES.begin(), LINES.end(), line) != LINES.end() || is_issue_header(line);
}

/// Returns how many columns a line of ASCII may have: the width or, where its start leaves less
/// than 16, that start and 16.
std::size_t widest_line(std::string_view line, int width) {
  const std::size_t start_end = std::min(line.find_first_not_of(" |`-"), line.size());
  const std::size_t lead = line.substr(0, start_end).rfind(' ') + 1;
  return std::max(static_cast<std::size_t>(width), lead + 16);
}

/// Judges the two sections of issues, from the first heading to the second rule behind it.
void check_issue_sections(std::string_view report, int width, int issues) {
  constexpr std::string_view FIRST_HEADING = "Issues contributing to FAIL";
  const std::string rule(80, '-');
  int rules = -1;
  int headers = 0;
  for (const std::string_view line : lines_of(report)) {
    if (rules < 0 && line == FIRST_HEADING) {
      rules = 0;
    }
    if (rules >= 0 && line == rule) {
      ++rules;
    }
    if (rules < 0 || rules > 1 || line.empty() || line == rule) {
      continue;
    }
    expect(line.front() == ' ' || may_stand_at_left(line), "no line of an issue at the left", line);
    expect(width <= 0 || !is_ascii(line) || line.size() <= widest_line(line, width),
           "no line that is wider than asked", line);
    if (is_issue_header(line)) {
      ++headers;
    }
  }
  expect(rules >= 2, "both sections of issues", report);
  expect(headers == issues, "every issue once", report);
}

void check_text(const WrittenReport& written, int width) {
  const std::string report = without_colors(written.text);
  expect(is_utf8(report), "a report in UTF-8", report);
  const std::vector<std::string_view> lines = lines_of(report);
  for (const std::string_view line : lines) {
    expect(is_harmless(line), "no control character but line ends", line);
  }
  expect(lines.back().empty(), "a line end at the end", report);
  expect(starts_with(report, "Cluster health report: "), "the header first", report);
  // Headings are wrapped too.
  constexpr int WIDEST_HEADING = 39;
  if (width <= 0 || width >= WIDEST_HEADING) {
    check_issue_sections(report, width, written.issues);
  }
}

/// Returns the lines in reverse order.
std::string reversed_lines(std::string_view findings) {
  std::vector<std::string_view> lines = lines_of(findings);
  std::string text;
  for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
    text.append(*line).append("\n");
  }
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view input = text_of(data, size);
  if (has_long_ranges(input)) {
    return 0;
  }
  const Options options = take_options(input);
  const WrittenReport report = write_report(input, options);
  check_text(report, options.record.line_width);
  // A byte order mark means something in the first line alone.
  if (starts_with(input, "\xEF\xBB\xBF") || starts_with(reversed_lines(input), "\xEF\xBB\xBF")) {
    return 0;
  }
  expect_same("the order of the findings not to count",
              write_report(reversed_lines(input), options).text, report.text);
  return 0;
}
