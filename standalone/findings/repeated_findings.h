#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "standalone/findings/remembered_line.h"
#include "standalone/model/finding.h"

namespace vond::standalone {

class FindingParser;

/// Recognises a line that equals an earlier one but for its node, its row id and the values in its
/// texts: a check says the same of node after node, and such a line need not be parsed. Remembers a
/// fixed number of lines, which it finds by how they begin, whatever node is named there.
class RepeatedFindings {
 public:
  RepeatedFindings();
  RepeatedFindings(const RepeatedFindings&) = delete;
  RepeatedFindings& operator=(const RepeatedFindings&) = delete;

  /// Returns what `line` tells, null when it has to be parsed. The finding lives until the next
  /// call or until the line's text goes.
  const Finding* find(std::string_view line);

  /// Remembers `line`, which `parser` has just read a finding from, when a line that begins like it
  /// has been learned before.
  void learn(std::string_view line, const FindingParser& parser);

 private:
  struct Slot {
    /// How the last line began that was parsed.
    std::uint64_t beginning = 0;
    std::unique_ptr<RememberedLine> remembered;
    /// How many lines in a row were not like the remembered one, and how many it takes for another
    /// to be remembered: lines that never repeat are not worth many copies.
    unsigned misses = 0;
    unsigned patience = 1;
  };

  std::optional<std::uint64_t> hash_of_beginning(std::string_view line) const;
  Slot& slot_of(std::uint64_t beginning);

  std::vector<Slot> slots_;
  /// Whether a line had its node where lines begin. Most inputs have none, and are not searched.
  bool nodes_come_early_ = false;
  std::uint64_t last_number_ = Finding::UNKNOWN_WORDING;
};

}  // namespace vond::standalone
