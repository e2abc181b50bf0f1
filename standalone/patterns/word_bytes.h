#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "standalone/text/ascii.h"

/// What the bytes of a text are to its words.
namespace vond::standalone::word_bytes {

enum ByteClass : std::uint8_t {
  /// Ends a word, but for a comma between two digits.
  SEPARATOR = 1,
  /// Belongs to no word at whose begin or end it stands, but for what begins_fraction().
  AT_NO_END = 2,
  LETTER = 4,
  /// Next to a name it makes another word of it.
  NAME_CHARACTER = 8,
  DIGIT = 16,
  /// Printable ASCII that goes into a word, and stands for itself in JSON.
  PLAIN = 32,
};

constexpr std::array<std::uint8_t, 256> classes() {
  std::array<std::uint8_t, 256> classes = {};
  const auto add = [&classes](std::string_view bytes, unsigned what) {
    for (const char byte : bytes) {
      std::uint8_t& known = classes[static_cast<unsigned char>(byte)];
      known = static_cast<std::uint8_t>(known | what);
    }
  };
  add(" \t\n\r()[]{}<>,;=\"'|@", SEPARATOR);
  add(".:!?", AT_NO_END);
  add("abcdefghijklmnopqrstuvwxyz", LETTER | NAME_CHARACTER);
  add("ABCDEFGHIJKLMNOPQRSTUVWXYZ", LETTER | NAME_CHARACTER);
  add("0123456789", NAME_CHARACTER | DIGIT);
  add("_", NAME_CHARACTER);
  for (unsigned byte = '!'; byte <= '~'; ++byte) {
    if ((classes[byte] & SEPARATOR) == 0 && byte != '\\') {
      classes[byte] = static_cast<std::uint8_t>(classes[byte] | PLAIN);
    }
  }
  return classes;
}

inline constexpr std::array<std::uint8_t, 256> CLASSES = classes();

inline std::uint8_t classes_of(char byte) { return CLASSES[static_cast<unsigned char>(byte)]; }

inline bool is_in(ByteClass byte_class, char byte) { return (classes_of(byte) & byte_class) != 0; }

/// Returns the classes that any byte of `text` is in.
inline unsigned classes_in(std::string_view text) {
  unsigned classes = 0;
  for (const char byte : text) {
    classes |= classes_of(byte);
  }
  return classes;
}

/// Whether the comma at `at` ends no word.
inline bool is_between_digits(std::string_view text, std::size_t at) {
  return at > 0 && at + 1 < text.size() && is_digit(text[at - 1]) && is_digit(text[at + 1]);
}

/// Whether the byte at `at` is the point of a number without a whole part, as in `.5`, where a word
/// may begin. Of several points it is none: they leave something out.
inline bool begins_fraction(std::string_view text, std::size_t at) {
  return text[at] == '.' && at + 1 < text.size() && is_digit(text[at + 1]) &&
         (at == 0 || text[at - 1] != '.');
}

}  // namespace vond::standalone::word_bytes
