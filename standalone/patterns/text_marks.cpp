#include "standalone/patterns/text_marks.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vond::standalone::text_marks {
namespace {

constexpr std::string_view SHOWN_NAME = "NODE";

/// Appends a value, with the two texts for its two name marks.
void append_with_names(std::string& text, std::string_view value, std::string_view full_name,
                       std::string_view short_name) {
  if (!holds_marks(value)) {
    text += value;
    return;
  }
  for (std::size_t at = 0; at < value.size(); ++at) {
    if (value[at] == NAME) {
      text += full_name;
    } else if (value[at] == SHORT_NAME) {
      text += short_name;
    } else {
      at += value[at] == ESCAPE ? 1 : 0;
      text += value[at];
    }
  }
}

bool holds_marks_singly(std::string_view text) {
  return std::any_of(text.begin(), text.end(), is_mark);
}

/// Whether one of eight bytes is at most the last mark.
bool holds_low_byte(const char* bytes) {
  constexpr std::uint64_t ONES = 0x0101010101010101;
  std::uint64_t word = 0;
  std::memcpy(&word, bytes, sizeof word);
  // What is less than the byte behind the marks borrows from above, and has no highest bit itself.
  return ((word - ONES * (ESCAPE + 1)) & ~word & (ONES * 0x80)) != 0;
}

}  // namespace

bool holds_marks(std::string_view text) {
  constexpr std::size_t BLOCK_SIZE = sizeof(std::uint64_t);
  while (text.size() >= BLOCK_SIZE) {
    if (holds_low_byte(text.data()) && holds_marks_singly(text.substr(0, BLOCK_SIZE))) {
      return true;
    }
    text.remove_prefix(BLOCK_SIZE);
  }
  return holds_marks_singly(text);
}

bool holds_name(std::string_view marked) {
  if (marked.find(NAME) == std::string_view::npos &&
      marked.find(SHORT_NAME) == std::string_view::npos) {
    return false;
  }
  for (std::size_t at = 0; at < marked.size(); ++at) {
    if (marked[at] == NAME || marked[at] == SHORT_NAME) {
      return true;
    }
    at += marked[at] == ESCAPE ? 1 : 0;
  }
  return false;
}

std::string_view short_form(std::string_view name) { return name.substr(0, name.find('.')); }

void append_marked(std::string& marked, std::string_view text) {
  if (!holds_marks(text)) {
    marked += text;
    return;
  }
  for (const char byte : text) {
    if (is_mark(byte)) {
      marked += ESCAPE;
    }
    marked += byte;
  }
}

void append_resolved(std::string& marked, std::string_view value, std::string_view name) {
  if (!name.empty()) {
    std::string text;
    append_original(text, value, name);
    append_marked(marked, text);
    return;
  }
  for (std::size_t at = 0; at < value.size(); ++at) {
    if (value[at] == ESCAPE) {
      marked += value[at++];
      marked += value[at];
    } else {
      marked += value[at] == SHORT_NAME ? NAME : value[at];
    }
  }
}

void append_original(std::string& text, std::string_view value, std::string_view name) {
  append_with_names(text, value, name, short_form(name));
}

void append_shown(std::string& text, std::string_view value) {
  append_with_names(text, value, SHOWN_NAME, SHOWN_NAME);
}

}  // namespace vond::standalone::text_marks
