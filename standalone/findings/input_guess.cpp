#include "standalone/findings/input_guess.h"

#include <algorithm>
#include <array>
#include <utility>

#include "standalone/input/byte_order_mark.h"
#include "standalone/input/input_file.h"
#include "standalone/json/json_fault.h"
#include "standalone/json/white_space.h"
#include "standalone/text/ascii.h"

namespace vond::standalone {
namespace {

using namespace std::string_view_literals;

struct Compression {
  std::string_view magic;
  std::string_view name;
  std::string_view tool;
};

constexpr std::array COMPRESSIONS = {
    Compression{"\x1F\x8B"sv, "gzip", "zcat"}, Compression{"\xFD\x37zXZ\0"sv, "xz", "xzcat"},
    Compression{"\x28\xB5\x2F\xFD"sv, "zstd", "zstdcat"}, Compression{"BZh"sv, "bzip2", "bzcat"}};

/// The name as a word of a command; empty for standard input, which the command reads anyway.
std::string word_of(const std::string& name) {
  constexpr std::string_view PLAIN = "._/-+=,@:%";
  if (name == InputFile::NAME_OF_STANDARD_INPUT) {
    return "";
  }
  const bool is_plain = std::all_of(name.begin(), name.end(), [PLAIN](char byte) {
    return is_digit(byte) || (ascii_lower(byte) >= 'a' && ascii_lower(byte) <= 'z') ||
           PLAIN.find(byte) != std::string_view::npos;
  });
  if (is_plain) {
    return " " + name;
  }
  std::string word = " '";
  for (const char byte : name) {
    word += byte == '\'' ? "'\\''" : std::string(1, byte);
  }
  return word + "'";
}

/// "it seems to be WHAT: TOOL FILE | vond-report"
std::string seems_to_be(std::string_view what, std::string_view tool, const std::string& name) {
  return std::string("it seems to be ")
      .append(what)
      .append(": ")
      .append(tool)
      .append(word_of(name))
      .append(" | vond-report");
}

/// Whether the beginning is two-byte characters of which the bytes at `zeros` are NUL: that is what
/// UTF-16 makes of ASCII.
bool is_wide_ascii(std::string_view beginning, std::size_t zeros) {
  constexpr std::size_t ENOUGH = 16;
  if (beginning.size() < 4) {
    return false;
  }
  for (std::size_t i = 0; i < std::min(beginning.size(), ENOUGH); ++i) {
    if ((beginning[i] == '\0') != (i % 2 == zeros)) {
      return false;
    }
  }
  return true;
}

std::string guess_utf_16(const std::string& name, std::string_view beginning) {
  const auto guess = [&name](std::string_view encoding) {
    return seems_to_be("UTF-16", std::string("iconv -t UTF-8 -f ").append(encoding), name);
  };
  if (beginning.starts_with("\xFF\xFE") || beginning.starts_with("\xFE\xFF")) {
    return guess("UTF-16");
  }
  if (is_wide_ascii(beginning, 1)) {
    return guess("UTF-16LE");
  }
  return is_wide_ascii(beginning, 0) ? guess("UTF-16BE") : "";
}

std::string guess_encoding(const std::string& name, std::string_view beginning) {
  for (const auto& [magic, what, tool] : COMPRESSIONS) {
    if (beginning.starts_with(magic)) {
      return seems_to_be(std::string("compressed with ").append(what), tool, name);
    }
  }
  return guess_utf_16(name, beginning);
}

/// Takes the first line off a text.
std::string_view take_line(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return without_white_space_at_end(line);
}

/// Skips a token of JSON with the white space before it; false when something else stands there.
bool skip_token(std::string_view& text, std::string_view token) {
  text.remove_prefix(std::min(text.find_first_not_of(JSON_WHITE_SPACE), text.size()));
  if (!text.starts_with(token)) {
    return false;
  }
  text.remove_prefix(token.size());
  return true;
}

bool is_definitions_file(std::string_view text) {
  return skip_token(text, "{") && skip_token(text, "\"definitions\"") && skip_token(text, ":") &&
         skip_token(text, "[") && (skip_token(text, "{") || skip_token(text, "]"));
}

/// Whether the text begins with a line that is the beginning of an object.
bool is_object_over_lines(std::string_view text) {
  if (!text.starts_with("{")) {
    return false;
  }
  const std::string_view line = take_line(text);
  const auto fault = find_json_fault(line, "line");
  return !without_white_space(text).empty() && fault && fault->offset == line.size();
}

bool is_csv(std::string_view text) {
  const std::string_view first = take_line(text);
  const std::string_view second = take_line(text);
  return std::any_of(std::begin(",;\t"), std::end(",;\t") - 1, [&](char separator) {
    const auto columns = std::count(first.begin(), first.end(), separator);
    return columns > 0 && std::count(second.begin(), second.end(), separator) == columns;
  });
}

std::string guess_format(const std::string& name, std::string_view text) {
  if (is_definitions_file(text)) {
    const std::string file = word_of(name);
    return "it seems to be a file of definitions: vond-report -d" +
           (file.empty() ? " FILE" : file) + " FINDINGS";
  }
  if (text.starts_with("[")) {
    return seems_to_be("a JSON array", "jq -c '.[]'", name);
  }
  if (is_object_over_lines(text)) {
    return seems_to_be("JSON over several lines", "jq -c .", name);
  }
  return is_csv(text) ? "it seems to be CSV, expected a JSON object a line" : "";
}

std::string guess(const std::string& name, std::string_view beginning) {
  const std::string encoding = guess_encoding(name, beginning);
  return encoding.empty()
             ? guess_format(name, without_white_space(without_byte_order_mark(beginning)))
             : encoding;
}

}  // namespace

std::string complaint_about_useless(const std::string& name, std::size_t lines,
                                    std::string_view beginning) {
  const std::string fault = lines == 1
                                ? "its one line cannot be used"
                                : "none of its " + std::to_string(lines) + " lines can be used";
  const std::string hint = guess(name, beginning);
  return name + ": " + fault + (hint.empty() ? "" : "; " + hint);
}

}  // namespace vond::standalone
