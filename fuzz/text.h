#pragma once

#include <string_view>
#include <vector>

namespace vond::fuzz {

/// Takes the first byte off `text`; 0 when there is none.
unsigned char take_byte(std::string_view& text);

/// Takes the first line and its end off `text`; returns it without its end.
std::string_view take_line(std::string_view& text);

/// Takes a width off `text`: mostly the byte itself, so that `P` is 80 and `(` is 40, and for the
/// largest bytes what nobody would ask for.
int take_width(std::string_view& text);

/// Splits at LF; a final LF starts an empty line.
std::vector<std::string_view> lines_of(std::string_view text);

/// Whether `text` is UTF-8 as Unicode's table 3-7 has it. Written for the fuzzers alone, so that
/// they do not ask the library that they test.
bool is_utf8(std::string_view text);

bool is_ascii(std::string_view text);

}  // namespace vond::fuzz
