#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vond::standalone {

/// How deep arrays and objects may be nested.
inline constexpr int MAX_JSON_DEPTH = 1024;

/// The first thing that keeps a text from being JSON.
struct JsonFault {
  /// Where it is, in bytes from 0; the text's length when the text ends too early.
  std::size_t offset;
  /// What was found and what was expected.
  std::string message;
};

/// Checks that `text` is one JSON value (RFC 8259), in UTF-8 without NUL bytes and lone surrogates,
/// nested at most MAX_JSON_DEPTH deep, with nothing but white space around it. `text_name` calls it
/// in messages: "line", "file"; `depth` is how many arrays and objects stand around it. A fast
/// parser tells that text is no JSON; this tells where and why.
std::optional<JsonFault> find_json_fault(std::string_view text, std::string_view text_name,
                                         int depth = 0);

}  // namespace vond::standalone
