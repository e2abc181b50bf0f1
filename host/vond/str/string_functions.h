#pragma once

#include <string>

#include "vond/host_api.h"

/// Widths count terminal columns, are inclusive, and include the indent unless said otherwise; a
/// width of 0 or less means no wrapping. A line's lead, its start of blanks and tree-drawing
/// characters, is never broken, and beside it there is always room for 16 columns: at smaller
/// widths lines are wider than asked. Grapheme clusters stay whole, and bytes that are not UTF-8
/// are passed through as one column each. All of these depend on their arguments alone, never on
/// the locale.
namespace vond::str {

/// Wraps `text` line by line to `width`. Every line after the first begins with `indent`. A line
/// that fits keeps its runs of blanks; words that are too long are split, best behind commas
/// outside square brackets, else behind commas and slashes. A final line end stays, and none is
/// added.
VOND_HOST_API std::string word_wrap(const std::string& text, int width, const std::string& indent);

/// Wraps labelled lines like word_wrap, but what is broken off a line continues under its value:
/// the text behind the first `column_character` that a blank follows, searched after `indent`. A
/// line without one continues at `indent`, and so does a line whose value begins beyond the width.
/// The lines of the text get no indent. The flag has no effect.
VOND_HOST_API std::string column_wrap(const std::string& text, int width, const std::string& indent,
                                      char column_character, bool flag);

/// Wraps `text` like word_wrap, but at blanks alone, so that long words stand out; `width` does not
/// include a line's lead, nor the indent. All line ends at the end of the text are dropped.
VOND_HOST_API std::string space_wrap(const std::string& text, int width, const std::string& indent);

/// Returns `text` with its ASCII letters in upper case.
VOND_HOST_API std::string upper(std::string text);

/// Returns `text` without the bytes at its end that stand in `characters`.
VOND_HOST_API std::string rstrip(std::string text, std::string characters);

}  // namespace vond::str
