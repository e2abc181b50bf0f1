#pragma once

#include <string>

#include "vond/host_api.h"

/// Widths count terminal columns, are inclusive, and include the indent unless said otherwise; a
/// width of 0 or less means no wrapping. All of these depend on their arguments alone, never on the
/// locale.
namespace vond::str {

/// Wraps `text` line by line to `width`. Every line after the first begins with `indent`; a line's
/// start of blanks and tree-drawing characters is never broken. A final line end stays.
VOND_HOST_API std::string word_wrap(const std::string& text, int width, const std::string& indent);

/// Wraps labelled lines to `width`: what is broken off a line continues under the value behind the
/// first `column_character` that a blank follows, or at `indent` where there is none. The flag has
/// no effect.
VOND_HOST_API std::string column_wrap(const std::string& text, int width, const std::string& indent,
                                      char column_character, bool flag);

/// Wraps `text` at blanks alone; `width` does not include a line's start of blanks and tree-drawing
/// characters, nor the indent. All line ends at the end of the text are dropped.
VOND_HOST_API std::string space_wrap(const std::string& text, int width, const std::string& indent);

/// Returns `text` with its ASCII letters in upper case.
VOND_HOST_API std::string upper(std::string text);

/// Returns `text` without the bytes at its end that stand in `characters`.
VOND_HOST_API std::string rstrip(std::string text, std::string characters);

}  // namespace vond::str
