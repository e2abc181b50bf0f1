// Any bytes made harmless must be text that no terminal is steered by.

#include "standalone/text/harmless_text.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "fuzz/oracle.h"
#include "fuzz/target.h"
#include "fuzz/text.h"
#include "standalone/text/printable_ascii.h"
#include "standalone/text/trimming.h"

namespace {

using namespace vond::fuzz;
using vond::standalone::excerpt;
using vond::standalone::harmless;
using vond::standalone::is_harmless;
using vond::standalone::is_printable_ascii;
using vond::standalone::LineEnds;
using vond::standalone::trimmed;

constexpr std::size_t LONGEST_EXCERPT = 60;

/// Characters that hide, reorder or break what stands around them, each as UTF-8.
constexpr std::array<std::string_view, 25> STEERING = {
    "\x7F",         "\xC2\x80",         "\xC2\x9B",     "\xC2\x9F",     "\xD8\x9C",
    "\xE2\x80\x8B", "\xE2\x80\x8D",     "\xE2\x80\x8E", "\xE2\x80\x8F", "\xE2\x80\xA8",
    "\xE2\x80\xA9", "\xE2\x80\xAA",     "\xE2\x80\xAB", "\xE2\x80\xAC", "\xE2\x80\xAD",
    "\xE2\x80\xAE", "\xE2\x81\xA6",     "\xE2\x81\xA9", "\xEF\xBB\xBF", "\xEF\xBF\xB9",
    "\xE2\x81\xA5", "\xF3\xA0\x80\x81", "\xEF\xBF\xBE", "\xEF\xBF\xBF", "\xEF\xB7\x90"};

void expect_text_without_steering(std::string_view text) {
  expect(is_utf8(text), "text in UTF-8", text);
  for (const char byte : text) {
    expect(static_cast<unsigned char>(byte) >= ' ', "no control characters", text);
  }
  for (const std::string_view character : STEERING) {
    expect(text.find(character) == std::string_view::npos, "nothing that steers a terminal", text);
  }
}

std::string with_blanks_for_tabs(std::string_view text) {
  std::string changed(text);
  std::replace(changed.begin(), changed.end(), '\t', ' ');
  return changed;
}

void check_harmless(std::string_view text, LineEnds line_ends) {
  const std::string result = harmless(text, line_ends);
  expect_same("a tab to become a blank", result, harmless(with_blanks_for_tabs(text), line_ends));
  expect_text_without_steering(result);
  expect(is_harmless(result), "harmless text to be known as such", result);
  expect_same("harmless text to stay as it is", harmless(result, line_ends), result);
  expect(is_harmless(text) == (result == text), "text to be harmless just when it is left as it is",
         text);
}

std::size_t count_characters(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char byte) { return (byte & '\xC0') != '\x80'; }));
}

void check_excerpt(std::string_view text) {
  const std::string shown = excerpt(text);
  const std::string whole = harmless(text);
  expect_text_without_steering(shown);
  expect(count_characters(shown) <= LONGEST_EXCERPT, "a short excerpt", shown);
  if (count_characters(whole) <= LONGEST_EXCERPT) {
    expect_same("short text to be its own excerpt", shown, whole);
  } else {
    expect(shown.substr(shown.size() - 3) == "...", "dots in place of the rest", shown);
    expect(whole.compare(0, shown.size() - 3, shown, 0, shown.size() - 3) == 0,
           "the start of the text", shown);
  }
}

void check_trimmed(std::string_view text) {
  const std::string_view content = trimmed(text);
  expect_same("trimmed text to stay as it is", std::string(trimmed(content)), std::string(content));
  expect(text.find(content) != std::string_view::npos, "a part of the text", text);
  constexpr std::string_view BLANKS = " \t\r\n";
  expect(content.empty() || (BLANKS.find(content.front()) == std::string_view::npos &&
                             BLANKS.find(content.back()) == std::string_view::npos),
         "no blank at the ends", text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = text_of(data, size);
  check_harmless(text, LineEnds::SHOWN);
  check_harmless(text, LineEnds::JOINED);
  if (text.find_first_of("\r\n") == std::string_view::npos) {
    expect_same("line ends to be all that makes a difference", harmless(text, LineEnds::JOINED),
                harmless(text));
  }
  check_trimmed(text);
  check_excerpt(text);
  const bool is_printable =
      std::all_of(text.begin(), text.end(), [](char byte) { return byte >= ' ' && byte <= '~'; });
  expect(is_printable_ascii(text) == is_printable, "printable ASCII to be told from other text",
         text);
  return 0;
}
