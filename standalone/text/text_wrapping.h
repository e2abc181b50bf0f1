#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vond::standalone {

/// How wrap_text() lays out a text. The defaults are those of running text under an indent.
struct WrapOptions {
  /// Inclusive, in terminal columns; 0 or less means that nothing is broken.
  int width = 0;
  /// What every line made by a break begins with.
  std::string_view indent = {};
  /// Whether lines of the text after its first get the indent, unless they begin with it.
  bool indents_lines = true;
  /// Whether the width counts the lead of a line (its indent, blanks and drawing characters) too.
  bool counts_lead = true;
  /// Whether a word that is too long is split, or stands out.
  bool splits_words = true;
  /// Whether the line ends at the end of the text stay.
  bool keeps_final_line_ends = true;
  /// Ends a label when a blank follows; what is broken off such a line goes under its value.
  std::optional<char> label_end = std::nullopt;
};

/// Returns `text` wrapped line by line. Beside its lead a line always has room for 16 columns, so
/// absurd widths give lines that are wider than asked, and readable. Nothing but blanks at breaks
/// is lost, no grapheme cluster is split, and wrapping twice is wrapping once. Takes linear time.
std::string wrap_text(std::string_view text, const WrapOptions& options);

}  // namespace vond::standalone
