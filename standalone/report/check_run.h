#pragma once

#include <cstddef>
#include <ctime>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "standalone/acknowledged/acknowledgement.h"
#include "standalone/findings/findings_reader.h"
#include "standalone/report/acknowledged_findings.h"
#include "standalone/report/collapser.h"
#include "standalone/report/collected_parts.h"
#include "standalone/report/examination.h"
#include "standalone/report/run_input.h"

namespace vond::standalone {

/// What to read of a run, and how.
struct RunSources {
  /// Paths of files of findings, in reading order; "-" is standard input.
  std::vector<std::string> findings = {};
  /// A line that cannot be used ends the reading, in place of being left out.
  bool is_strict = false;
  /// Names of definitions are paths; see ReadingOptions.
  bool definitions_are_paths = false;
  CollapseBy collapse_by = CollapseBy::PATTERN;
  /// Whether what all findings said is kept; see Collapser.
  bool keeps_findings = false;
  /// Names of nodes that were looked at. Lines of the findings may name more.
  std::vector<std::string> examined = {};
  /// Names of nodes that should have been looked at.
  std::vector<std::string> expected = {};
  /// Names of parts of the cluster whose findings should be there.
  std::vector<std::string> expected_parts = {};
  /// The part of the cluster that this run is about, "" when nobody named it.
  std::string own_part = {};
  /// What is taken out of the findings where it holds at `time`; without a value, nothing may be.
  std::optional<std::vector<Acknowledgement>> acknowledged = std::nullopt;
  /// When the report was begun. Findings are taken out while they are read, so that no later time
  /// can decide what is acknowledged.
  std::time_t time = 0;
};

/// Is told how far the reading of a run has come.
class ReadingProgress {
 public:
  virtual ~ReadingProgress() = default;
  /// Is called after every finding, so it has to be quick. Both numbers count from the start.
  virtual void advance(std::size_t bytes_read, std::size_t findings) = 0;
};

/// What all the inputs of one run of the checks tell together. Several runs may be held at once;
/// they share nothing.
class CheckRun {
 public:
  /// Reads all inputs and tells `progress`, which is not kept. Throws InputError.
  CheckRun(const RunSources& sources, ReadingProgress& progress);

  /// In reading order.
  const std::vector<RunInput>& inputs() const { return inputs_; }

  /// The findings, without what is acknowledged.
  Collapser& collapser() { return collapser_; }
  const Collapser& collapser() const { return collapser_; }

  /// What is acknowledged; null when nothing may be.
  const AcknowledgedFindings* acknowledged() const { return acknowledged_.get(); }

  /// All findings, by pattern, where they are kept and are more than those of collapser(); else
  /// null.
  Collapser* everything() { return everything_.get(); }

  /// The nodes of all findings, where these are kept.
  const StringInterner& names_of_kept() const {
    return (everything_ ? *everything_ : collapser_).node_names();
  }

  /// How many findings were read, whatever became of them.
  std::size_t findings_read() const { return findings_read_; }

  /// Number of findings that name no definition, without what is acknowledged.
  std::size_t findings_without_definition() const { return findings_without_definition_; }

  const Examination& examination() const { return examination_; }

  /// What was odd about lines that were read, for the user to see: "FILE:LINE:COLUMN: …". See
  /// FindingsReader::warnings().
  const std::vector<std::string>& warnings() const { return warnings_; }

  /// What was left out; nothing in strict reading.
  const RejectedLines& rejected_lines() const { return rejected_lines_; }

  /// What each input tells of itself, in reading order.
  const std::vector<CollectedParts>& collected() const { return collected_; }

  /// When the report was begun.
  std::time_t begun_at() const { return begun_at_; }

  const std::string& own_part() const { return own_part_; }

  /// The parts that should be there.
  const std::set<std::string>& expected_parts() const { return expected_parts_; }

  /// What is to be told about each input of which not one line could be used, in reading order;
  /// empty texts for the others. See FileOutcome.
  const std::vector<std::string>& complaints() const { return complaints_; }

  /// How many lines of each input could be used, in reading order.
  const std::vector<std::size_t>& usable_lines() const { return usable_lines_; }

  /// Whether there are lines, of which not one could be used.
  bool is_useless() const;

 private:
  void read(const RunSources& sources, ReadingProgress& progress);

  std::vector<RunInput> inputs_;
  std::unique_ptr<AcknowledgedFindings> acknowledged_;
  std::unique_ptr<Collapser> everything_;
  Collapser collapser_;
  std::size_t findings_read_ = 0;
  std::size_t findings_without_definition_ = 0;
  Examination examination_;
  std::vector<std::string> warnings_;
  RejectedLines rejected_lines_;
  std::vector<CollectedParts> collected_;
  std::set<std::string> expected_parts_;
  std::string own_part_;
  std::time_t begun_at_ = 0;
  std::vector<std::string> complaints_;
  std::vector<std::size_t> usable_lines_;
};

}  // namespace vond::standalone
