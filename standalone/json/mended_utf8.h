#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vond::standalone {

/// JSON text in which each byte that is not UTF-8 is replaced by what a string has to hold for
/// `\xe9` to be read from it, so that one strange byte does not cost the whole text.
class MendedUtf8 {
 public:
  /// Takes `text` in place of what was there before. `padding` is how many bytes behind the result
  /// may be read, whatever they hold.
  void mend(std::string_view text, std::size_t padding);

  /// The text without such bytes. Valid until the next call of mend().
  std::string_view text() const noexcept {
    return std::string_view(padded_).substr(0, padded_.size() - padding_);
  }

  /// Returns where in the text that was given the byte stands that is at `offset` of text(); inside
  /// of a replacement that is the replaced byte.
  std::size_t original_offset(std::size_t offset) const;

  /// Returns where in the text that was given the first replaced byte stands; there must be one.
  std::size_t first_replaced() const { return replacements_.front(); }

 private:
  std::string padded_;
  std::size_t padding_ = 0;
  /// Where replacements start in text(), ascending.
  std::vector<std::size_t> replacements_;
};

}  // namespace vond::standalone
