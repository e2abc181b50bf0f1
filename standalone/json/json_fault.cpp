#include "standalone/json/json_fault.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include "standalone/json/white_space.h"
#include "standalone/text/ascii.h"
#include "standalone/text/harmless_text.h"
#include "standalone/text/messages.h"
#include "standalone/text/suggestion.h"
#include "standalone/text/utf8.h"

namespace vond::standalone {

namespace {

constexpr std::string_view DIGITS = "0123456789";
constexpr std::string_view HEXADECIMAL_DIGITS = "0123456789abcdefABCDEF";
constexpr std::size_t UNICODE_ESCAPE_LENGTH = 6;

bool is_one_of(std::string_view set, char byte) { return set.find(byte) != std::string_view::npos; }

bool belongs_to_word(char byte) {
  return is_digit(byte) || is_ascii_letter(byte) || is_one_of("_+-.", byte);
}

/// Returns `value` in at least `digits` hexadecimal digits.
std::string hexadecimal(unsigned char value, int digits) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "%0*x", digits, unsigned{value});
  return text.data();
}

/// A recursive-descent check; the first fault is thrown.
class JsonCheck {
 public:
  JsonCheck(std::string_view text, std::string_view text_name, int depth)
      : text_(text), text_name_(text_name), depth_(depth) {}

  void run() {
    check_characters();
    skip_white_space();
    check_value();
    skip_white_space();
    if (at_ < text_.size()) {
      fail_here("after the value", "the end of the " + text_name_);
    }
  }

 private:
  [[noreturn]] static void fail(std::size_t offset, const std::string& message) {
    throw JsonFault{offset, message};
  }

  [[noreturn]] void fail_here(std::string_view context, std::string_view expected) const {
    std::string message = "found " + found();
    if (!context.empty()) {
      message.append(" ").append(context);
    }
    fail(at_, message.append(", expected ").append(expected));
  }

  /// Text that is not UTF-8, or holds NUL, is most likely no JSON at all: that is the first thing
  /// to tell.
  void check_characters() const {
    for (std::size_t at = 0; at < text_.size();) {
      const Character character = first_character(text_.substr(at));
      if (!character.is_utf8) {
        const auto byte = static_cast<unsigned char>(text_[at]);
        fail(at, "found the byte 0x" + hexadecimal(byte, 2) + ", expected text in UTF-8");
      }
      if (text_[at] == '\0') {
        fail(at, "found a NUL byte, expected text in UTF-8");
      }
      at += character.size;
    }
  }

  void check_value() {
    const char first = peek();
    if (first == '{') {
      check_object();
    } else if (first == '[') {
      check_array();
    } else if (first == '"') {
      check_string();
    } else if (first == '-' || is_digit(first)) {
      check_number();
    } else {
      check_literal();
    }
  }

  void check_object() {
    enter();
    if (!skip('}')) {
      check_member("a key in double quotes or \"}\"");
      while (!skip('}')) {
        expect(',', "", "\",\" or \"}\"");
        check_member("a key in double quotes");
      }
    }
    --depth_;
  }

  void check_member(std::string_view expected_key) {
    if (peek() != '"') {
      fail_here("", expected_key);
    }
    check_string();
    skip_white_space();
    expect(':', "after the key", "\":\"");
    check_value();
    skip_white_space();
  }

  void check_array() {
    enter();
    if (!skip(']')) {
      check_element();
      while (!skip(']')) {
        expect(',', "", "\",\" or \"]\"");
        check_element();
      }
    }
    --depth_;
  }

  void check_element() {
    check_value();
    skip_white_space();
  }

  void enter() {
    if (++depth_ > MAX_JSON_DEPTH) {
      fail(at_, "found arrays and objects within each other, expected at most " +
                    std::to_string(MAX_JSON_DEPTH) + " levels of them");
    }
    ++at_;
    skip_white_space();
  }

  void check_string() {
    const std::size_t start = at_++;
    while (at_ < text_.size() && text_[at_] != '"') {
      if (text_[at_] == '\\') {
        check_escape();
      } else {
        check_is_no_control_character();
        ++at_;
      }
    }
    if (at_ >= text_.size()) {
      fail(start, "found a string without end, expected a closing quote before the end of the " +
                      text_name_);
    }
    ++at_;
  }

  void check_is_no_control_character() const {
    const auto byte = static_cast<unsigned char>(text_[at_]);
    if (byte < ' ') {
      fail(at_, "found the control character \\x" + hexadecimal(byte, 2) +
                    " in a string, expected it written as \\u" + hexadecimal(byte, 4));
    }
  }

  void check_escape() {
    const std::string_view escape = text_.substr(at_, 2);
    if (escape == "\\u") {
      check_unicode_escape();
    } else if (escape.size() == 2 && is_one_of("\"\\/bfnrt", escape[1])) {
      at_ += escape.size();
    } else if (escape.size() < 2) {
      ++at_;
    } else {
      const std::size_t length = 1 + first_character(text_.substr(at_ + 1)).size;
      fail(at_, "found " + excerpt(text_.substr(at_, length)) +
                    " in a string, expected a backslash before one of \" \\ / b f n r t u");
    }
  }

  void check_unicode_escape() {
    const unsigned unit = read_unicode_escape(at_);
    const bool is_high = unit >= 0xD800 && unit <= 0xDBFF;
    const bool is_low = unit >= 0xDC00 && unit <= 0xDFFF;
    std::size_t length = UNICODE_ESCAPE_LENGTH;
    if (is_high && text_.substr(at_ + length, 2) == "\\u") {
      const unsigned second = read_unicode_escape(at_ + length);
      if (second >= 0xDC00 && second <= 0xDFFF) {
        at_ += 2 * length;
        return;
      }
    }
    if (is_high || is_low) {
      fail(at_, "found the lone surrogate " + std::string(text_.substr(at_, length)) +
                    ", expected a pair such as \\ud83d\\ude00");
    }
    at_ += length;
  }

  unsigned read_unicode_escape(std::size_t at) const {
    const std::string_view digits = text_.substr(at + 2, UNICODE_ESCAPE_LENGTH - 2);
    const std::size_t good = std::min(digits.find_first_not_of(HEXADECIMAL_DIGITS), digits.size());
    if (good < UNICODE_ESCAPE_LENGTH - 2) {
      fail(at, "found " + std::string(text_.substr(at, 2 + good)) +
                   " in a string, expected \\u and four hexadecimal digits");
    }
    return static_cast<unsigned>(std::stoul(std::string(digits), nullptr, 16));
  }

  void check_number() {
    const std::size_t start = at_;
    skip('-');
    bool good = skip('0') || skip_digits();
    if (good && skip('.')) {
      good = skip_digits();
    }
    if (good && (skip('e') || skip('E'))) {
      if (!skip('+')) {
        skip('-');
      }
      good = skip_digits();
    }
    if (!good || belongs_to_word(peek())) {
      at_ = start;
      fail_here("", "a number such as 7, -1, 0.5 or 1e6");
    }
  }

  void check_literal() {
    const std::vector<std::string_view> literals = {"true", "false", "null"};
    const std::string_view found_word = word();
    if (std::find(literals.begin(), literals.end(), found_word) != literals.end()) {
      at_ += found_word.size();
      return;
    }
    fail(at_,
         "found " + found() + ", expected a JSON value" + suggestion_for(found_word, literals));
  }

  void expect(char byte, std::string_view context, std::string_view expected) {
    if (!skip(byte)) {
      fail_here(context, expected);
    }
    skip_white_space();
  }

  bool skip(char byte) {
    if (at_ >= text_.size() || text_[at_] != byte) {
      return false;
    }
    ++at_;
    return true;
  }

  bool skip_digits() {
    const std::size_t start = at_;
    at_ = std::min(text_.find_first_not_of(DIGITS, at_), text_.size());
    return at_ > start;
  }

  void skip_white_space() {
    at_ = std::min(text_.find_first_not_of(JSON_WHITE_SPACE, at_), text_.size());
  }

  /// NUL, which the text does not hold, at its end.
  char peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }

  std::string_view word() const {
    std::size_t end = at_;
    while (end < text_.size() && belongs_to_word(text_[end])) {
      ++end;
    }
    return text_.substr(at_, end - at_);
  }

  /// What stands here, for messages.
  std::string found() const {
    if (at_ >= text_.size()) {
      return "the end of the " + text_name_;
    }
    if (text_[at_] == '"') {
      return "a string";
    }
    const std::string_view found_word = word();
    return in_quotes(
        excerpt(found_word.empty() ? first_characters(text_.substr(at_), 1) : found_word));
  }

  std::string_view text_;
  std::string text_name_;
  std::size_t at_ = 0;
  int depth_;
};

}  // namespace

std::optional<JsonFault> find_json_fault(std::string_view text, std::string_view text_name,
                                         int depth) {
  try {
    JsonCheck(text, text_name, depth).run();
  } catch (const JsonFault& fault) {
    return fault;
  }
  return std::nullopt;
}

}  // namespace vond::standalone
