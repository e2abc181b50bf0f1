#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "standalone/model/run_marks.h"

namespace vond::standalone {

/// What one input tells of itself where it holds findings that were collapsed before.
class CollectedParts {
 public:
  void begin(const RunBegin& run);
  void end(const RunEnd& run);
  /// Lines stand for `count` more findings.
  void add_findings(std::uint64_t count) { findings_ += count; }

  /// Whether something of it is missing: a beginning or an end, a finding, or what an end says was
  /// missing before. An input without beginnings and ends is not checked.
  bool is_cut_off() const;

  /// Names of the parts that it has, in reading order; one that was put in twice stands twice.
  const std::vector<std::string>& parts() const { return parts_; }

  /// When the oldest of its findings were collected, nothing where nothing tells.
  std::optional<std::time_t> oldest() const { return oldest_; }

  /// How many lines could not be used when its findings were collapsed.
  std::uint64_t lines_rejected() const { return lines_rejected_; }

 private:
  std::size_t begins_ = 0;
  std::size_t ends_ = 0;
  std::uint64_t findings_ = 0;
  std::uint64_t findings_of_ends_ = 0;
  std::uint64_t lines_rejected_ = 0;
  bool has_incomplete_end_ = false;
  std::vector<std::string> parts_;
  std::optional<std::time_t> oldest_;
};

}  // namespace vond::standalone
