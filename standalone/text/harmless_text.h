#pragma once

#include <string>
#include <string_view>

namespace vond::standalone {

/// What becomes of CR and LF, which would let a text forge a line of the report: they are shown as
/// control characters, or each run of them becomes one space.
enum class LineEnds { SHOWN, JOINED };

/// True when harmless() would return `text` as it is.
bool is_harmless(std::string_view text) noexcept;

/// Returns `text`, UTF-8, so that a terminal can show it without being steered by it: control
/// characters, format characters without width (bidirectional controls, joiners, tags, …), line and
/// paragraph separators, noncharacters and bytes that are not UTF-8 are shown as `\x1b`, `\u202e`,
/// `\U000e0001`; a tab becomes one space.
std::string harmless(std::string_view text, LineEnds line_ends = LineEnds::SHOWN);

/// Returns `text` made harmless, line ends shown, and cut to some 60 characters, `...` in place of
/// the rest: for error messages.
std::string excerpt(std::string_view text);

}  // namespace vond::standalone
