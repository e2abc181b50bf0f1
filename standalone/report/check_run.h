#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "standalone/findings/findings_reader.h"
#include "standalone/report/collapser.h"
#include "standalone/report/examination.h"

namespace vond::standalone {

/// What to read of a run, and how.
struct RunSources {
  /// Paths of files of findings, in reading order; "-" is standard input.
  std::vector<std::string> findings = {};
  /// A line that cannot be used is left out, in place of ending the reading.
  bool keep_going = false;
  /// Names of definitions are paths; see ReadingOptions.
  bool definitions_are_paths = false;
  CollapseBy collapse_by = CollapseBy::PATTERN;
  /// Names of nodes that were looked at. Lines of the findings may name more.
  std::vector<std::string> examined = {};
  /// Names of nodes that should have been looked at.
  std::vector<std::string> expected = {};
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

  /// The inputs as messages and reports call them, in reading order.
  const std::vector<std::string>& input_names() const { return input_names_; }

  Collapser& collapser() { return collapser_; }
  const Collapser& collapser() const { return collapser_; }

  const Examination& examination() const { return examination_; }

  /// One message per unknown key, for the user to see: "FILE:LINE:COLUMN: unknown key …".
  const std::vector<std::string>& warnings() const { return warnings_; }

  /// What was left out; nothing unless the sources say to keep going.
  const RejectedLines& rejected_lines() const { return rejected_lines_; }

 private:
  std::vector<std::string> input_names_;
  Collapser collapser_;
  Examination examination_;
  std::vector<std::string> warnings_;
  RejectedLines rejected_lines_;
};

}  // namespace vond::standalone
