#pragma once

#include <simdjson.h>

#include <cstddef>
#include <ctime>
#include <deque>
#include <string>
#include <string_view>

#include "standalone/json/white_space.h"
#include "standalone/text/harmless_text.h"
#include "standalone/text/trimming.h"

namespace vond::standalone {

/// A value, or a key, that is JSON but not what was expected. `where` points into the source text.
struct ValueFault {
  const char* where;
  std::string message;
};

/// How messages call a value: by its key, or as an element of the array under that key.
struct ValueName {
  static constexpr std::size_t NO_INDEX = static_cast<std::size_t>(-1);

  std::string_view key;
  /// From 0.
  std::size_t index = NO_INDEX;

  /// Returns `nodes` or `nodes[2]`.
  std::string text() const;
};

/// Thrown where it is known that the source text is no JSON, but not yet where.
struct BrokenJson {};

/// Returns what `result` holds, in place, for a copy would cost more than reading it. Throws
/// simdjson::simdjson_error when it holds an error.
template <typename T>
T& checked(simdjson::simdjson_result<T>& result) {
  if (result.error() != simdjson::SUCCESS) {
    throw simdjson::simdjson_error(result.error());
  }
  return result.value_unsafe();
}

/// Returns the source text of a value without the white space behind it; of an array or object only
/// its bracket.
inline std::string_view source_of(simdjson::ondemand::value& value) {
  return without_white_space_at_end(value.raw_json_token());
}

/// Whether a value is `null`.
inline bool is_null(simdjson::ondemand::value& value) {
  // Most values are told by their first byte, which is quicker than taking the whole source.
  return value.raw_json_token().front() == 'n' && source_of(value) == "null";
}

/// Returns the text between the quotes of a string's source.
inline std::string_view without_quotes(std::string_view source) {
  return source.substr(1, source.size() - 2);
}

/// When a string has not been read the parser skips it, and takes a colon behind it for good.
inline void consume_string(simdjson::ondemand::value& value) { (void)value.get_raw_json_string(); }

/// Returns how messages show a value: `"text"`, `5`, `null`, `an array`, `an object`.
std::string describe_source(std::string_view source);

/// Throws a ValueFault: "NAME is VALUE, expected EXPECTED".
[[noreturn]] void refuse(std::string_view source, const ValueName& name, std::string_view expected,
                         std::string_view suggestion = "");

/// Throws a ValueFault: the key stands at `where` for the second time.
[[noreturn]] void refuse_duplicate_key(std::string_view key, const char* where);

/// Throws a ValueFault: the object at `where` lacks the key, which is expected at `expected_place`:
/// "in every finding".
[[noreturn]] void refuse_missing_key(std::string_view key, const char* where,
                                     std::string_view expected_place,
                                     std::string_view suggestion = "");

/// Returns the number of things that `value` tells, up to 2^53 - 1, which every reader of JSON can
/// hold; anything else is refused in the name of `name`.
std::uint64_t read_count(simdjson::ondemand::value& value, const ValueName& name);

/// Returns what `value` says, true or false; anything else is refused in the name of `name`.
bool read_truth(simdjson::ondemand::value& value, const ValueName& name);

/// Opens the array `value`; anything else is refused in the name of `name`.
simdjson::ondemand::array open_array(simdjson::ondemand::value& value, const ValueName& name,
                                     std::string_view expected);

/// Reads past a value that nobody asks for; throws BrokenJson or simdjson::simdjson_error when it
/// is no JSON.
void check_unused(simdjson::ondemand::value& value);

/// Hands out strings of JSON text made harmless, as views of the source text where that holds them
/// as they are.
class JsonStrings {
 public:
  /// Starts with a new source text; all views handed out before end.
  void begin(std::string_view source_text);

  /// Returns the key of `field`, as it stands, not made harmless.
  std::string_view key(simdjson::ondemand::field& field) const;

  /// Returns the text of the string `value` without white space at its ends; anything else is
  /// refused in the name of `name`.
  std::string_view read(simdjson::ondemand::value& value, const ValueName& name,
                        std::string_view expected, LineEnds line_ends = LineEnds::SHOWN) {
    const std::string_view source = source_of(value);
    if (source.front() != '"') {
      refuse(source, name, expected);
    }
    if (is_plain_) {
      consume_string(value);
      return trimmed(without_quotes(source));
    }
    return read_with_care(value, source, line_ends);
  }

  /// Like read(); a string of nothing but white space is refused too.
  std::string_view read_not_empty(simdjson::ondemand::value& value, const ValueName& name) {
    const std::string_view source = source_of(value);
    const std::string_view text = read(value, name, "a string");
    if (text.empty()) {
      refuse(source, name, "a string that is not empty");
    }
    return text;
  }

  /// Returns the time that the string `value` says; anything but a time in the form of
  /// parse_utc_time() is refused in the name of `name`.
  std::time_t read_time(simdjson::ondemand::value& value, const ValueName& name);

 private:
  std::string_view read_with_care(simdjson::ondemand::value& value, std::string_view source,
                                  LineEnds line_ends);
  std::string_view made_harmless(std::string_view text, LineEnds line_ends);

  /// Whether no string of the source text needs to be looked at: all printable ASCII, no escapes.
  bool is_plain_ = false;
  /// Addresses of elements stay.
  std::deque<std::string> made_harmless_;
};

}  // namespace vond::standalone
