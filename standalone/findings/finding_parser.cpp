#include "standalone/findings/finding_parser.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <optional>
#include <string>

#include "standalone/definitions/definition_names.h"
#include "standalone/input/line_reader.h"
#include "standalone/json/white_space.h"
#include "standalone/model/definition_spec.h"
#include "standalone/model/severity_scale.h"
#include "standalone/model/type_names.h"
#include "standalone/text/messages.h"
#include "standalone/text/suggestion.h"

namespace vond::standalone {

static_assert(LineReader::PADDING >= simdjson::SIMDJSON_PADDING);

namespace {

namespace ondemand = simdjson::ondemand;

const Finding EMPTY_FINDING;

bool is_too_deep(std::string_view path) {
  // Most names are too short to be that deep, and need not be looked at.
  return path.size() > std::size_t{2} * MAX_DEFINITION_DEPTH &&
         spelled_depth(path) > MAX_DEFINITION_DEPTH;
}

}  // namespace

FindingParser::FindingParser(bool definitions_are_paths)
    : definitions_are_paths_(definitions_are_paths) {}

void FindingParser::parse(std::string_view line, std::string_view label) {
  start_line(line, label);
  const std::string_view value = without_white_space(line);
  if (value.substr(0, 1) != "{") {
    refuse(value, {"the line"}, "an object with the keys of a finding");
  }
  ondemand::document document =
      parser_.iterate(line.data(), line.size(), line.size() + LineReader::PADDING);
  for (auto field : document.get_object()) {
    read_field(checked(field));
  }
  if (document.current_location().error() != simdjson::OUT_OF_BOUNDS) {
    throw BrokenJson{};
  }
  if (kind() == Kind::FINDING) {
    complete_finding(value.data());
  }
}

/// Gives the finding whose object starts at `object` what it has from elsewhere.
void FindingParser::complete_finding(const char* object) {
  keys_.require_those_of_a_finding(object);
  // What stands for several findings comes from no node.
  if (!label_.empty() && !keys_.has(FindingKey::NODES) && !keys_.has(FindingKey::COUNT)) {
    nodes_.read_label(label_, finding_.nodes);
  }
}

void FindingParser::start_line(std::string_view line, std::string_view label) {
  label_ = label;
  strings_.begin(line);
  // A copy, in which lists keep their memory.
  finding_ = EMPTY_FINDING;
  kind_ = Kind::FINDING;
  examined_.clear();
  nodes_.clear();
  keys_.clear();
  reserve(line.size());
}

/// Left alone, the parser would allocate anew for each line that is a little longer than all
/// before.
void FindingParser::reserve(std::size_t size) {
  constexpr std::size_t FIRST_CAPACITY = std::size_t{4} << 10;
  constexpr std::size_t LAST_DOUBLING = std::size_t{1} << 20;
  if (size <= parser_.capacity()) {
    return;
  }
  const std::size_t doubled = std::clamp(2 * parser_.capacity(), FIRST_CAPACITY, LAST_DOUBLING);
  const simdjson::error_code error = parser_.allocate(std::max(size, doubled));
  if (error == simdjson::MEMALLOC) {
    throw std::bad_alloc();
  }
}

void FindingParser::read_field(ondemand::field& field) {
  const char* const where = field.key().raw() - 1;
  const std::string_view name = strings_.key(field);
  if (const std::optional<FindingKey> key = find_key(name)) {
    if (is_optional(*key) && is_null(field.value())) {
      keys_.add_null(*key, where);
    } else {
      keys_.add(*key, where);
      read_value(*key, field.value());
    }
  } else {
    keys_.add_unknown(name, where);
    check_unused(field.value());
  }
}

void FindingParser::read_value(FindingKey key, ondemand::value& value) {
  switch (key) {
    case FindingKey::ID:
      finding_.wording.id = strings_.read_not_empty(value, {name_of(key)});
      return;
    case FindingKey::SEVERITY:
      return read_severity(value);
    case FindingKey::TYPE:
      return read_type(value);
    case FindingKey::CATEGORY:
      finding_.wording.texts.category = strings_.read(value, {name_of(key)}, "a string");
      return;
    case FindingKey::MESSAGE:
      finding_.wording.texts.message = read_lines(value, key);
      return;
    case FindingKey::REMEDY:
      finding_.wording.texts.remedy = read_lines(value, key);
      return;
    case FindingKey::NODES:
      return nodes_.read(value, name_of(key), finding_.nodes);
    case FindingKey::ROW_IDS:
      return read_row_ids(value);
    case FindingKey::DEFINITIONS:
      return read_definitions(value);
    case FindingKey::BASED_ON:
      return read_based_on(value);
    case FindingKey::COUNT:
      finding_.count = read_count(value, {name_of(key)});
      return;
    case FindingKey::FIRST_SEEN:
      finding_.first_seen = strings_.read_time(value, {name_of(key)});
      return;
    case FindingKey::BEGIN:
    case FindingKey::END:
    case FindingKey::EXAMINED:
      return read_mark(key, value);
  }
}

/// Reads the value of a key that needs a line of its own.
void FindingParser::read_mark(FindingKey key, ondemand::value& value) {
  if (key == FindingKey::BEGIN) {
    kind_ = Kind::BEGIN;
    begin_ = marks_.read_begin(value);
  } else if (key == FindingKey::END) {
    kind_ = Kind::END;
    end_ = marks_.read_end(value);
  } else {
    kind_ = Kind::EXAMINED;
    read_examined(value);
  }
}

/// Reads a text that may have several lines.
std::string_view FindingParser::read_lines(ondemand::value& value, FindingKey key) {
  return strings_.read(value, {name_of(key)}, "a string", LineEnds::JOINED);
}

void FindingParser::read_severity(ondemand::value& value) {
  const std::string_view source = source_of(value);
  const ValueName name{name_of(FindingKey::SEVERITY)};
  if (source.front() == '"') {
    const std::string_view text = strings_.read(value, name, "");
    const std::optional<int> severity = severity_of_band(text);
    if (!severity) {
      refuse(source, name, severity_expectation(), suggestion_for(text, band_names()));
    }
    finding_.wording.severity = *severity;
    return;
  }
  std::int64_t number = 0;
  if (value.get_int64().get(number) != simdjson::SUCCESS || number < LOWEST_SEVERITY ||
      number > HIGHEST_SEVERITY) {
    refuse(source, name, severity_expectation());
  }
  finding_.wording.severity = static_cast<int>(number);
}

void FindingParser::read_type(ondemand::value& value) {
  static const std::string expectation = one_of(type_names());
  const std::string_view source = source_of(value);
  const ValueName name{name_of(FindingKey::TYPE)};
  const std::string_view text = strings_.read(value, name, expectation);
  const std::optional<postprocessor::TypeCode> type = type_of_name(text);
  if (!type) {
    refuse(source, name, expectation, suggestion_for(text, type_names()));
  }
  finding_.wording.type = *type;
}

void FindingParser::read_row_ids(ondemand::value& value) {
  using Limits = std::numeric_limits<int>;
  const std::string_view key = name_of(FindingKey::ROW_IDS);
  std::size_t index = 0;
  for (auto result : open_array(value, {key}, "an array of whole numbers")) {
    ondemand::value& element = checked(result);
    const std::string_view source = source_of(element);
    std::int64_t row_id = 0;
    if (element.get_int64().get(row_id) != simdjson::SUCCESS || row_id < Limits::min() ||
        row_id > Limits::max()) {
      refuse(source, {key, index},
             "a whole number from " + std::to_string(Limits::min()) + " to " +
                 std::to_string(Limits::max()));
    }
    finding_.row_ids.push_back(static_cast<int>(row_id));
    row_id_source_ = source;
    ++index;
  }
}

void FindingParser::read_definitions(ondemand::value& value) {
  const std::string_view key = name_of(FindingKey::DEFINITIONS);
  for (auto result : open_array(value, {key}, "an array of strings")) {
    ondemand::value& element = checked(result);
    const ValueName name{key, finding_.wording.definitions.size()};
    const std::string_view source = source_of(element);
    finding_.wording.definitions.push_back(strings_.read_not_empty(element, name));
    if (definitions_are_paths_ && is_too_deep(finding_.wording.definitions.back())) {
      refuse(source, name, "a path of at most " + std::to_string(MAX_DEFINITION_DEPTH) + " parts");
    }
  }
}

void FindingParser::read_based_on(ondemand::value& value) {
  const std::string_view key = name_of(FindingKey::BASED_ON);
  for (auto result : open_array(value, {key}, "an array of strings")) {
    const ValueName name{key, finding_.wording.based_on.size()};
    finding_.wording.based_on.push_back(strings_.read_not_empty(checked(result), name));
  }
}

/// Behind a label a check need not know where it is.
void FindingParser::read_examined(ondemand::value& value) {
  if (!label_.empty() && source_of(value) == "true") {
    nodes_.read_label(label_, examined_);
  } else {
    nodes_.read(value, name_of(FindingKey::EXAMINED), examined_);
  }
}

}  // namespace vond::standalone
