#include "vond/str/string_functions.h"

#include <algorithm>

#include "standalone/host/text_wrapping.h"

namespace vond::str {

std::string word_wrap(const std::string& text, int /*width*/, const std::string& /*indent*/) {
  return text;
}

std::string column_wrap(const std::string& text, int /*width*/, const std::string& /*indent*/,
                        char /*column_character*/, bool /*flag*/) {
  return text;
}

std::string space_wrap(const std::string& text, int /*width*/, const std::string& /*indent*/) {
  return text;
}

std::string upper(std::string text) {
  // Not std::toupper: what it does depends on the host's locale.
  std::transform(text.begin(), text.end(), text.begin(), [](char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                                : character;
  });
  return text;
}

std::string rstrip(std::string text, std::string characters) {
  text.erase(text.find_last_not_of(characters) + 1);
  return text;
}

}  // namespace vond::str
