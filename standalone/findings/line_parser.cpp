#include "standalone/findings/line_parser.h"

#include <simdjson.h>

#include <string>

#include "standalone/input/line_reader.h"
#include "standalone/json/parsing_fault.h"
#include "standalone/text/harmless_text.h"
#include "standalone/text/utf8.h"

namespace vond::standalone {

std::optional<JsonFault> LineParser::parse(std::string_view line) {
  is_mended_ = false;
  std::optional<JsonFault> fault = parse_text(line);
  // The parser refuses what is not UTF-8, so that only lines that it refuses need be looked at.
  if (fault && !simdjson::validate_utf8(line)) {
    fault = parse_mended(line);
  }
  if (fault && !parts_.label.empty()) {
    fault->message.insert(0, excerpt(parts_.label) + ": ");
  }
  return fault;
}

std::optional<JsonFault> LineParser::parse_mended(std::string_view line) {
  mended_.mend(line, LineReader::PADDING);
  is_mended_ = true;
  std::optional<JsonFault> fault = parse_text(mended_.text());
  if (!fault) {
    return fault;
  }
  fault->offset = mended_.original_offset(fault->offset);
  const std::string_view rest = line.substr(fault->offset);
  if (!rest.empty() && !first_character(rest).is_utf8) {
    // Outside of strings: what it was replaced by is nothing that the user knows.
    fault->message = find_json_fault(rest, "line")->message;
  }
  return fault;
}

/// Returns a fault whose offset counts from the start of `text`.
std::optional<JsonFault> LineParser::parse_text(std::string_view text) {
  text_ = text;
  parts_ = split_label(text);
  std::optional<JsonFault> fault = find_parsing_fault(
      parts_.object, "line", [this] { parser_.parse(parts_.object, parts_.label); });
  if (fault) {
    fault->offset += static_cast<std::size_t>(parts_.object.data() - text.data());
  }
  return fault;
}

std::size_t LineParser::offset_of(const char* where) const {
  const auto offset = static_cast<std::size_t>(where - text_.data());
  return is_mended_ ? mended_.original_offset(offset) : offset;
}

std::optional<std::size_t> LineParser::first_mended_byte() const {
  return is_mended_ ? std::optional(mended_.first_replaced()) : std::nullopt;
}

}  // namespace vond::standalone
