#include "standalone/json/mended_utf8.h"

#include <algorithm>

#include "standalone/text/harmless_text.h"
#include "standalone/text/utf8.h"

namespace vond::standalone {
namespace {

// A backslash in front of what harmless() makes of one byte: `\\xe9`.
constexpr std::size_t REPLACEMENT_SIZE = 5;

}  // namespace

void MendedUtf8::mend(std::string_view text, std::size_t padding) {
  padded_.clear();
  replacements_.clear();
  while (!text.empty()) {
    const Character character = first_character(text);
    const std::string_view source = text.substr(0, character.size);
    if (character.is_utf8) {
      padded_ += source;
    } else {
      replacements_.push_back(padded_.size());
      padded_ += '\\';
      padded_ += harmless(source);
    }
    text.remove_prefix(character.size);
  }
  padding_ = padding;
  padded_.append(padding, ' ');
}

std::size_t MendedUtf8::original_offset(std::size_t offset) const {
  const auto next = std::upper_bound(replacements_.begin(), replacements_.end(), offset);
  if (next == replacements_.begin()) {
    return offset;
  }
  const auto replaced_before = static_cast<std::size_t>(next - replacements_.begin()) - 1;
  const std::size_t last_start = *(next - 1);
  const std::size_t behind_start = offset - last_start;
  const std::size_t grown = replaced_before * (REPLACEMENT_SIZE - 1);
  const std::size_t original_start = last_start - grown;
  return behind_start < REPLACEMENT_SIZE ? original_start
                                         : original_start + behind_start - (REPLACEMENT_SIZE - 1);
}

}  // namespace vond::standalone
