#include "standalone/report/check_run.h"

#include <string_view>
#include <utility>

namespace vond::standalone {
namespace {

/// The reader of a run's findings, and where their lines go.
class CheckRunReading : private FindingsSink {
 public:
  /// Keeps references to the last three.
  CheckRunReading(const ReadingOptions& options, Collapser& collapser, Examination& examination,
                  ReadingProgress& progress)
      : collapser_(collapser),
        examination_(examination),
        progress_(progress),
        reader_(*this, options) {}

  FindingsReader& reader() { return reader_; }

  /// Starts with the next input and returns what the last one told of itself.
  CollectedParts take_collected() { return std::exchange(collected_, {}); }

  std::size_t findings_without_definition() const { return findings_without_definition_; }

 private:
  void finding(const Finding& finding) override {
    collapser_.add(finding);
    collected_.add_findings(finding.count);
    findings_without_definition_ += finding.wording.definitions.empty() ? finding.count : 0;
    progress_.advance(reader_.bytes_read(), collapser_.findings());
  }

  void examined(const std::vector<std::string_view>& nodes) override {
    examination_.set_known();
    for (const std::string_view node : nodes) {
      examination_.add_examined(node);
    }
  }

  void begin(const RunBegin& run) override { collected_.begin(run); }
  void end(const RunEnd& run) override { collected_.end(run); }

  Collapser& collapser_;
  Examination& examination_;
  ReadingProgress& progress_;
  FindingsReader reader_;
  CollectedParts collected_;
  std::size_t findings_without_definition_ = 0;
};

}  // namespace

CheckRun::CheckRun(const RunSources& sources, ReadingProgress& progress)
    : collapser_(sources.collapse_by, sources.keeps_findings),
      expected_parts_(sources.expected_parts.begin(), sources.expected_parts.end()),
      own_part_(sources.own_part) {
  for (const std::string& node : sources.examined) {
    examination_.add_examined(node);
  }
  for (const std::string& node : sources.expected) {
    examination_.add_expected(node);
  }
  CheckRunReading reading(
      {.is_strict = sources.is_strict, .definitions_are_paths = sources.definitions_are_paths},
      collapser_, examination_, progress);
  for (const std::string& path : sources.findings) {
    inputs_.push_back(describe_input(path));
    FileOutcome outcome = reading.reader().read(path);
    usable_lines_ += outcome.usable_lines;
    complaints_.push_back(std::move(outcome.complaint));
    collected_.push_back(reading.take_collected());
  }
  findings_without_definition_ = reading.findings_without_definition();
  warnings_ = reading.reader().warnings();
  rejected_lines_ = reading.reader().rejected();
}

}  // namespace vond::standalone
