#include "standalone/json/json_values.h"

#include <algorithm>
#include <cstddef>

#include "standalone/json/json_fault.h"
#include "standalone/text/messages.h"
#include "standalone/text/utc_time.h"

namespace vond::standalone {

namespace {

bool has_escapes(std::string_view source) { return source.find('\\') != std::string_view::npos; }

/// True when the strings of JSON text are harmless as they stand: all ASCII, nothing escaped. That
/// no control characters are in them is what the parser sees to.
bool is_plain_source(std::string_view source) {
  constexpr unsigned char DELETE_CHARACTER = 0x7F;
  unsigned char highest = 0;
  unsigned char nearest_to_backslash = DELETE_CHARACTER;
  // Without a way out in its middle, and with nothing but minima and maxima, this loop becomes
  // vector instructions.
  for (const char character : source) {
    const auto byte = static_cast<unsigned char>(character);
    highest = std::max(highest, byte);
    nearest_to_backslash = std::min(nearest_to_backslash, static_cast<unsigned char>(byte ^ '\\'));
  }
  return highest < DELETE_CHARACTER && nearest_to_backslash > 0;
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

}  // namespace

std::string ValueName::text() const {
  return index == NO_INDEX ? std::string(key)
                           : std::string(key) + "[" + std::to_string(index) + "]";
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

std::uint64_t read_count(simdjson::ondemand::value& value, const ValueName& name) {
  constexpr std::uint64_t MOST = 9'007'199'254'740'991;
  const std::string_view source = source_of(value);
  std::uint64_t count = 0;
  if (value.get_uint64().get(count) != simdjson::SUCCESS || count > MOST) {
    refuse(source, name, "a whole number from 0 to " + std::to_string(MOST));
  }
  return count;
}

bool read_truth(simdjson::ondemand::value& value, const ValueName& name) {
  const std::string_view source = source_of(value);
  bool truth = false;
  if (value.get_bool().get(truth) != simdjson::SUCCESS) {
    refuse(source, name, "true or false");
  }
  return truth;
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
  const int depth_around = value.current_depth() - 1;
  if (source.front() == '[') {
    source = value.get_array().value().raw_json();
  } else if (source.front() == '{') {
    source = value.get_object().value().raw_json();
  } else if (source.front() == '"') {
    consume_string(value);
  }
  if (find_json_fault(source, "value", depth_around)) {
    throw BrokenJson{};
  }
}

void JsonStrings::begin(std::string_view source_text) {
  is_plain_ = is_plain_source(source_text);
  if (!made_harmless_.empty()) {
    made_harmless_.clear();
  }
}

std::string_view JsonStrings::key(simdjson::ondemand::field& field) const {
  const std::string_view source = source_of_string(field.key().raw() - 1);
  if (is_plain_ || !has_escapes(source)) {
    return without_quotes(source);
  }
  check_escapes(source);
  return field.unescaped_key();
}

std::time_t JsonStrings::read_time(simdjson::ondemand::value& value, const ValueName& name) {
  const std::string expectation = "a time such as \"2025-11-21T04:30:00Z\"";
  const std::string_view source = source_of(value);
  const auto time = parse_utc_time(read(value, name, expectation));
  if (!time) {
    refuse(source, name, expectation);
  }
  return *time;
}

std::string_view JsonStrings::read_with_care(simdjson::ondemand::value& value,
                                             std::string_view source, LineEnds line_ends) {
  if (has_escapes(source)) {
    check_escapes(source);
    return made_harmless(value.get_string(), line_ends);
  }
  consume_string(value);
  return made_harmless(without_quotes(source), line_ends);
}

std::string_view JsonStrings::made_harmless(std::string_view text, LineEnds line_ends) {
  const std::string_view content = trimmed(text);
  if (is_harmless(content)) {
    return content;
  }
  return made_harmless_.emplace_back(harmless(content, line_ends));
}

}  // namespace vond::standalone
