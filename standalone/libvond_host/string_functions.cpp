#include "vond/str/string_functions.h"

#include <utility>

#include "standalone/text/ascii.h"
#include "standalone/text/text_wrapping.h"

namespace vond::str {

std::string word_wrap(const std::string& text, int width, const std::string& indent) {
  return standalone::wrap_text(text, {.width = width, .indent = indent});
}

std::string column_wrap(const std::string& text, int width, const std::string& indent,
                        char column_character, bool /*flag*/) {
  return standalone::wrap_text(
      text,
      {.width = width, .indent = indent, .indents_lines = false, .label_end = column_character});
}

std::string space_wrap(const std::string& text, int width, const std::string& indent) {
  return standalone::wrap_text(text, {.width = width,
                                      .indent = indent,
                                      .counts_lead = false,
                                      .splits_words = false,
                                      .keeps_final_line_ends = false});
}

std::string upper(std::string text) { return standalone::upper_ascii(std::move(text)); }

std::string rstrip(std::string text, std::string characters) {
  text.erase(text.find_last_not_of(characters) + 1);
  return text;
}

}  // namespace vond::str
