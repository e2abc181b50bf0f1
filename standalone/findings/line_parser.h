#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "standalone/findings/finding_parser.h"
#include "standalone/findings/line_label.h"
#include "standalone/json/json_fault.h"
#include "standalone/json/mended_utf8.h"

namespace vond::standalone {

/// Reads one line of input after the other: takes a label off, and mends bytes that are not UTF-8.
class LineParser {
 public:
  /// See FindingParser.
  explicit LineParser(bool definitions_are_paths) : parser_(definitions_are_paths) {}

  /// Reads `line`, behind which LineReader::PADDING bytes may be read. Returns what keeps it from
  /// being used, nothing when it was read.
  std::optional<JsonFault> parse(std::string_view line);

  /// What the last line told; lives until the next line or until the line's text goes.
  const FindingParser& result() const noexcept { return parser_; }

  /// Returns where in the last line something stands that result() points to.
  std::size_t offset_of(const char* where) const;

  /// Whether lines like the last one are what they seem: nothing was taken off or mended.
  bool is_as_it_stands() const noexcept { return !is_mended_ && parts_.label.empty(); }

  /// Returns where in the last line the first byte stands that is not UTF-8, nothing when there is
  /// none.
  std::optional<std::size_t> first_mended_byte() const;

 private:
  std::optional<JsonFault> parse_text(std::string_view text);
  std::optional<JsonFault> parse_mended(std::string_view line);

  FindingParser parser_;
  MendedUtf8 mended_;
  /// The last line, mended if need be, and its parts.
  std::string_view text_;
  LabelledLine parts_;
  bool is_mended_ = false;
};

}  // namespace vond::standalone
