#pragma once

#include <string>
#include <string_view>

/// Marked text: text in which single control characters stand for what is not said by bytes. The
/// same characters in the text itself stand behind ESCAPE, so that nothing can pass for a mark.
namespace vond::standalone::text_marks {

/// A word with a digit, whose value stands elsewhere.
inline constexpr char PLACE = '\x01';
/// The name of the finding's own node.
inline constexpr char NAME = '\x02';
/// The same up to its first dot.
inline constexpr char SHORT_NAME = '\x03';
/// Ends each of several texts.
inline constexpr char TEXT_END = '\x04';
/// The next byte is text.
inline constexpr char ESCAPE = '\x05';

inline bool is_mark(char byte) {
  return static_cast<unsigned char>(byte - PLACE) <= ESCAPE - PLACE;
}

/// True when a byte of `text` is one of the marks. Runs at memory speed.
bool holds_marks(std::string_view text);

/// True when a name mark stands in the marked text.
bool holds_name(std::string_view marked);

/// Returns the part of `name` before its first dot, all of it without a dot.
std::string_view short_form(std::string_view name);

/// Appends text as marked text without marks.
void append_marked(std::string& marked, std::string_view text);

/// Appends a value as marked text, the own node's name as `name` where it stands, or, if that is
/// empty, NAME for both of its forms.
void append_resolved(std::string& marked, std::string_view value, std::string_view name);

/// Appends the text that a value was made of, with `name` where the node's name stands.
void append_original(std::string& text, std::string_view value, std::string_view name);

/// Appends what people see of a value: `NODE` for the own node's name.
void append_shown(std::string& text, std::string_view value);

}  // namespace vond::standalone::text_marks
