#include "standalone/engine/json_values.h"

#include <algorithm>
#include <cstddef>

#include "standalone/engine/json_fault.h"
#include "standalone/engine/messages.h"

namespace vond::standalone {

namespace {

bool has_escapes(std::string_view source) {
  return source.find('\\') != std::string_view::npos;
}

/// The parser takes some lone surrogates for characters.
void check_escapes(std::string_view source) {
  if (find_json_fault(source, "string")) {
    throw BrokenJson{};
  }
}

/// Returns the source of the string that starts with the quote at `quote`; it has an end.
std::string_view source_of_string(const char* quote) {
  const char* end = quote + 1;
  while (*end != '"') {
    end += *end == '\\' ? 2 : 1;
  }
  return {quote, static_cast<std::size_t>(end + 1 - quote)};
}

/// When a string has not been read the parser skips it, and takes a colon behind it for good.
void consume_string(simdjson::ondemand::value& value) {
  (void)value.get_raw_json_string().value();
}

std::string_view without_quotes(std::string_view source) {
  return source.substr(1, source.size() - 2);
}

}  // namespace

std::string ValueName::text() const {
  return index == NO_INDEX ? std::string(key)
                           : std::string(key) + "[" + std::to_string(index) + "]";
}

std::string_view source_of(simdjson::ondemand::value& value) {
  std::string_view source = value.raw_json_token();
  while (source.size() > 1 && static_cast<unsigned char>(source.back()) <= ' ') {
    source.remove_suffix(1);
  }
  return source;
}

std::string describe_source(std::string_view source) {
  switch (source.front()) {
    case '[':
      return "an array";
    case '{':
      return "an object";
    case '"':
      return in_quotes(excerpt(without_quotes(source)));
    default:
      return excerpt(source);
  }
}

void refuse(std::string_view source, const ValueName& name, std::string_view expected,
            std::string_view suggestion) {
  throw ValueFault{source.data(), name.text()
                                      .append(" is ")
                                      .append(describe_source(source))
                                      .append(", expected ")
                                      .append(expected)
                                      .append(suggestion)};
}

void refuse_duplicate_key(std::string_view key, const char* where) {
  throw ValueFault{where, "found the key " + in_quotes(excerpt(key)) +
                              " a second time, expected each key once in an object"};
}

void refuse_missing_key(std::string_view key, const char* where, std::string_view expected_place,
                        std::string_view suggestion) {
  throw ValueFault{where, "the key " + in_quotes(key) + " is missing, expected it " +
                              std::string(expected_place).append(suggestion)};
}

std::string_view without_white_space(std::string_view text) {
  constexpr std::string_view WHITE_SPACE = " \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(WHITE_SPACE), text.size()));
  return text.substr(0, text.find_last_not_of(WHITE_SPACE) + 1);
}

simdjson::ondemand::array open_array(simdjson::ondemand::value& value, const ValueName& name,
                                     std::string_view expected) {
  const std::string_view source = source_of(value);
  if (source.front() != '[') {
    refuse(source, name, expected);
  }
  return value.get_array();
}

void check_unused(simdjson::ondemand::value& value) {
  std::string_view source = source_of(value);
  if (source.front() == '[') {
    source = value.get_array().value().raw_json();
  } else if (source.front() == '{') {
    source = value.get_object().value().raw_json();
  } else if (source.front() == '"') {
    consume_string(value);
  }
  if (find_json_fault(source, "value")) {
    throw BrokenJson{};
  }
}

void JsonStrings::begin(std::string_view source_text) {
  is_plain_ = is_printable_ascii(source_text) && !has_escapes(source_text);
  made_harmless_.clear();
}

std::string_view JsonStrings::key(simdjson::ondemand::field& field) const {
  const std::string_view source = source_of_string(field.key().raw() - 1);
  if (is_plain_ || !has_escapes(source)) {
    return without_quotes(source);
  }
  check_escapes(source);
  return field.unescaped_key();
}

std::string_view JsonStrings::read(simdjson::ondemand::value& value, const ValueName& name,
                                   std::string_view expected, LineEnds line_ends) {
  const std::string_view source = source_of(value);
  if (source.front() != '"') {
    refuse(source, name, expected);
  }
  if (is_plain_ || !has_escapes(source)) {
    consume_string(value);
    return made_harmless(without_quotes(source), line_ends);
  }
  check_escapes(source);
  return made_harmless(value.get_string(), line_ends);
}

std::string_view JsonStrings::read_not_empty(simdjson::ondemand::value& value,
                                             const ValueName& name) {
  const std::string_view source = source_of(value);
  const std::string_view text = read(value, name, "a string");
  if (text.empty()) {
    refuse(source, name, "a string that is not empty");
  }
  return text;
}

std::string_view JsonStrings::made_harmless(std::string_view text, LineEnds line_ends) {
  if (is_plain_ || is_harmless(text, line_ends)) {
    return text;
  }
  return made_harmless_.emplace_back(harmless(text, line_ends));
}

}  // namespace vond::standalone
