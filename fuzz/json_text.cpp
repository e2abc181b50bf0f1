#include "fuzz/json_text.h"

#include <charconv>
#include <cstddef>

#include "fuzz/oracle.h"
#include "fuzz/text.h"
#include "standalone/text/harmless_text.h"

namespace vond::fuzz {
namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

bool skip(std::string_view& text, std::string_view start) {
  const bool found = text.substr(0, start.size()) == start;
  if (found) {
    text.remove_prefix(start.size());
  }
  return found;
}

/// Takes a number of the form that messages use, from 1, off `text`; 0 when there is none.
std::size_t take_number(std::string_view& text) {
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) {
    return 0;
  }
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

}  // namespace

std::string json_string(std::string_view text) {
  static constexpr std::string_view HEX_DIGITS = "0123456789abcdef";
  std::string json = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < ' ') {
      json.append("\\u00").append(1, HEX_DIGITS[byte >> 4U]).append(1, HEX_DIGITS[byte & 0xFU]);
    } else {
      json.append(c == '"' || c == '\\' ? "\\" : "").append(1, c);
    }
  }
  return json + "\"";
}

std::string json_array(const std::vector<std::string>& values) {
  std::string json;
  for (const std::string& value : values) {
    json += (json.empty() ? "" : ",") + value;
  }
  return "[" + json + "]";
}

std::size_t expect_place(std::string_view message, const std::string& file,
                         std::string_view input) {
  expect(standalone::is_harmless(message), "a harmless message", message);
  std::string_view rest = message;
  expect(skip(rest, file + ":"), "a message that names the file first", message);
  const std::size_t line = take_number(rest);
  expect(skip(rest, ":"), "a message with a line and a column", message);
  const std::size_t column = take_number(rest);
  expect(skip(rest, ": ") && !rest.empty(), "a message that tells something", message);

  const std::vector<std::string_view> lines = lines_of(input);
  expect(line >= 1 && line <= lines.size(), "a line of the input", message);
  expect(column >= 1 && column <= lines[line - 1].size() + 1, "a column of its line", message);
  return line;
}

bool has_long_ranges(std::string_view input) {
  constexpr std::size_t LONG = 3;
  for (std::size_t at = input.find('-'); at != std::string_view::npos;
       at = input.find('-', at + 1)) {
    std::size_t end = at + 1;
    while (end < input.size() && is_digit(input[end])) {
      ++end;
    }
    if (at > 0 && is_digit(input[at - 1]) && end - at > LONG) {
      return true;
    }
  }
  return false;
}

}  // namespace vond::fuzz
