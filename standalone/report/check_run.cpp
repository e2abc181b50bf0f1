#include "standalone/report/check_run.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "standalone/report/acknowledgement_filter.h"

namespace vond::standalone {
namespace {

/// Where the findings of a run go.
struct Destinations {
  /// Those that the report is about.
  Collapser& collapser;
  /// Those that are acknowledged, null when nothing may be.
  AcknowledgedFindings* acknowledged;
  /// All of them; null when nobody asks for more than the others have.
  Collapser* everything;
};

/// The reader of a run's findings, and where their lines go.
class CheckRunReading : private FindingsSink {
 public:
  /// Keeps references to the examination and the progress.
  CheckRunReading(const RunSources& sources, const Destinations& destinations,
                  Examination& examination, ReadingProgress& progress)
      : destinations_(destinations),
        examination_(examination),
        progress_(progress),
        reader_(*this, {.is_strict = sources.is_strict,
                        .definitions_are_paths = sources.definitions_are_paths}) {
    if (destinations.acknowledged != nullptr) {
      filter_.emplace(*destinations.acknowledged,
                      [this](const Finding& finding) { take(finding); });
    }
  }

  FindingsReader& reader() { return reader_; }

  /// Starts with the next input and returns what the last one told of itself.
  CollectedParts take_collected() { return std::exchange(collected_, {}); }

  /// All inputs were read.
  void finish() {
    if (filter_) {
      filter_->finish();
      destinations_.acknowledged->finish();
    }
  }

  std::size_t findings_read() const { return findings_read_; }
  std::size_t findings_without_definition() const { return findings_without_definition_; }

 private:
  void finding(const Finding& finding) override {
    collected_.add_findings(finding.count);
    findings_read_ += finding.count;
    if (destinations_.everything != nullptr) {
      destinations_.everything->add(finding);
    }
    if (filter_) {
      filter_->add(finding);
    } else {
      take(finding);
    }
    progress_.advance(reader_.bytes_read(), findings_read_);
  }

  /// Takes a finding that the report is about.
  void take(const Finding& finding) {
    destinations_.collapser.add(finding);
    findings_without_definition_ += finding.wording.definitions.empty() ? finding.count : 0;
  }

  void examined(const std::vector<std::string_view>& nodes) override {
    examination_.set_known();
    collected_.add_examined(nodes.size());
    for (const std::string_view node : nodes) {
      examination_.add_examined(node);
    }
  }

  void begin(const RunBegin& run) override { collected_.begin(run); }
  void end(const RunEnd& run) override { collected_.end(run); }

  Destinations destinations_;
  Examination& examination_;
  ReadingProgress& progress_;
  FindingsReader reader_;
  std::optional<AcknowledgementFilter> filter_;
  CollectedParts collected_;
  std::size_t findings_read_ = 0;
  std::size_t findings_without_definition_ = 0;
};

/// Whether the findings of the report and those that are read may not be the same.
bool may_take_out(const RunSources& sources) {
  return sources.acknowledged && !sources.acknowledged->empty();
}

}  // namespace

CheckRun::CheckRun(const RunSources& sources, ReadingProgress& progress)
    : collapser_(sources.collapse_by, sources.keeps_findings && !may_take_out(sources)),
      expected_parts_(sources.expected_parts.begin(), sources.expected_parts.end()),
      own_part_(sources.own_part),
      begun_at_(sources.time) {
  if (sources.acknowledged) {
    acknowledged_ = std::make_unique<AcknowledgedFindings>(*sources.acknowledged, sources.time,
                                                           sources.collapse_by);
  }
  if (sources.keeps_findings && may_take_out(sources)) {
    everything_ = std::make_unique<Collapser>(CollapseBy::PATTERN);
  }
  for (const std::string& node : sources.examined) {
    examination_.add_examined(node);
  }
  for (const std::string& node : sources.expected) {
    examination_.add_expected(node);
  }
  read(sources, progress);
}

bool CheckRun::is_useless() const {
  const bool has_no_usable_line = std::all_of(usable_lines_.begin(), usable_lines_.end(),
                                              [](std::size_t count) { return count == 0; });
  return has_no_usable_line && rejected_lines_.count != 0;
}

void CheckRun::read(const RunSources& sources, ReadingProgress& progress) {
  CheckRunReading reading(sources, {collapser_, acknowledged_.get(), everything_.get()},
                          examination_, progress);
  for (const std::string& path : sources.findings) {
    inputs_.push_back(describe_input(path));
    FileOutcome outcome = reading.reader().read(path);
    usable_lines_.push_back(outcome.usable_lines);
    complaints_.push_back(std::move(outcome.complaint));
    collected_.push_back(reading.take_collected());
  }
  reading.finish();
  findings_read_ = reading.findings_read();
  findings_without_definition_ = reading.findings_without_definition();
  warnings_ = reading.reader().warnings();
  rejected_lines_ = reading.reader().rejected();
}

}  // namespace vond::standalone
