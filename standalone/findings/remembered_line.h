#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "standalone/model/finding.h"

namespace vond::standalone {

class FindingParser;

/// A line with gaps where its node and its row id stood, and the finding that it told. A line that
/// fills the gaps with a plain name and a plain number tells the same of another node.
class RememberedLine {
 public:
  RememberedLine() = default;
  // The finding's texts are views of this object.
  RememberedLine(const RememberedLine&) = delete;
  RememberedLine& operator=(const RememberedLine&) = delete;

  /// Whether lines like `line`, which `parser` has just read, can differ from it in a node and a
  /// row id alone.
  static bool can_remember(std::string_view line, const FindingParser& parser);

  /// Remembers `line`, which `parser` has just read and which can be remembered, in place of what
  /// was remembered before. Its findings get `wording_number`.
  void remember(std::string_view line, const FindingParser& parser, std::uint64_t wording_number);

  /// Returns the finding of `line`, not empty, null when it is not like the remembered line. It
  /// lives until the next call or until the line's text goes.
  const Finding* read(std::string_view line);

 private:
  enum class Gap { NODE, ROW_ID };

  bool read_node(std::string_view& line);
  bool read_row_id(std::string_view& line);
  void cut_gaps(std::string_view line, const FindingParser& parser);
  void keep(const Finding& finding);

  /// Each gap with the text before it.
  std::vector<std::pair<std::string, Gap>> gaps_;
  std::string text_behind_gaps_;
  /// What the views of `finding_` look into, but for those of its node.
  std::string texts_;
  Finding finding_;
};

}  // namespace vond::standalone
