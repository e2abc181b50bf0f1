#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
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
  /// Lines tell of `count` more nodes, or of nodes that others tell of, too, that they were
  /// examined.
  void add_examined(std::uint64_t count) { examined_ += count; }

  /// Whether something of it is missing: a beginning or an end, a finding, an examined node, or
  /// what an end says was missing before. An input without beginnings and ends is not checked.
  bool is_cut_off() const;

  /// The beginnings that it has, in reading order.
  const std::vector<RunBegin>& begins() const { return begins_; }

  /// When the oldest of its findings were collected, nothing where nothing tells.
  std::optional<std::time_t> oldest() const;

  /// How many lines could not be used when its findings were collapsed.
  std::uint64_t lines_rejected() const { return lines_rejected_; }

 private:
  std::vector<RunBegin> begins_;
  std::size_t ends_ = 0;
  std::uint64_t findings_ = 0;
  std::uint64_t findings_of_ends_ = 0;
  std::uint64_t examined_ = 0;
  std::uint64_t examined_of_ends_ = 0;
  std::uint64_t lines_rejected_ = 0;
  bool has_incomplete_end_ = false;
};

}  // namespace vond::standalone
