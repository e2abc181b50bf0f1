#include "standalone/findings/finding_parser.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <new>
#include <optional>
#include <utility>

#include "standalone/definitions/definition_tree.h"
#include "standalone/definitions/definitions_reader.h"
#include "standalone/findings/finding_keys.h"
#include "standalone/input/line_reader.h"
#include "standalone/model/severity_scale.h"
#include "standalone/nodes/node_set.h"
#include "standalone/text/messages.h"
#include "standalone/text/suggestion.h"

namespace vond::standalone {

static_assert(LineReader::PADDING >= simdjson::SIMDJSON_PADDING);
static_assert(LineReader::PADDING >= finding_keys::KEY_WIDTH);

namespace {

namespace ondemand = simdjson::ondemand;
using finding_keys::KEY_NAMES;
using enum finding_keys::Key;

constexpr std::array<std::pair<std::string_view, postprocessor::TypeCode>, 3> TYPES = {
    {{"diagnosis", postprocessor::DIAGNOSES},
     {"observation", postprocessor::OBSERVATIONS},
     {"missing_data", postprocessor::MISSING_DATA}}};

constexpr unsigned bit(std::size_t key) { return 1U << key; }

bool is_node_set(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char letter) { return letter == '[' || letter == ']' || letter == ','; });
}

bool is_too_deep(std::string_view path) {
  // Most names are too short to be that deep, and need not be looked at.
  return path.size() > std::size_t{2} * MAX_DEFINITION_DEPTH &&
         spelled_depth(path) > MAX_DEFINITION_DEPTH;
}

std::vector<std::string_view> type_names() {
  std::vector<std::string_view> names;
  names.reserve(TYPES.size());
  for (const auto& [name, type] : TYPES) {
    names.push_back(name);
  }
  return names;
}

}  // namespace

FindingParser::FindingParser(bool definitions_are_paths)
    : definitions_are_paths_(definitions_are_paths) {}

// Flattened, a parser's value stays in registers on its way to the function that reads it; that
// takes a tenth off the time to read a file.
[[gnu::flatten]] void FindingParser::parse(std::string_view line) {
  begin(line);
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
  finish(value.data());
}

void FindingParser::begin(std::string_view line) {
  strings_.begin(line);
  finding_.type = postprocessor::OBSERVATIONS;
  finding_.category = finding_.message = finding_.remedy = {};
  finding_.nodes.clear();
  finding_.row_ids.clear();
  finding_.definitions.clear();
  finding_.based_on.clear();
  examined_.clear();
  expanded_.clear();
  unknown_keys_.clear();
  if (!unlisted_keys_.empty()) {
    // Not cleared: its table would stay as large as the line with the most keys made it.
    unlisted_keys_ = {};
  }
  seen_ = 0;
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
  const char* const source = field.key().raw();
  const std::size_t key = finding_keys::find_in_source(source);
  if (key != UNKNOWN_KEY) {
    note_key(key, source - 1);
    read_value(key, field.value());
  } else {
    read_unlisted_field(field, source - 1);
  }
}

/// Reads a field with an unknown key, or with a known one that is written with escapes.
void FindingParser::read_unlisted_field(ondemand::field& field, const char* where) {
  const std::string_view name = strings_.key(field);
  const std::size_t key = finding_keys::find(name);
  if (key != UNKNOWN_KEY) {
    note_key(key, where);
    read_value(key, field.value());
  } else {
    note_unknown_key(name, where);
    check_unused(field.value());
  }
}

void FindingParser::note_key(std::size_t key, const char* where) {
  const bool fits_in = (seen_ & bit(EXAMINED)) == 0 && (key != EXAMINED || seen_ == 0);
  if ((seen_ & bit(key)) != 0 || !fits_in) {
    refuse_key(key, where);
  }
  seen_ |= bit(key);
}

/// Refuses a key that must not stand beside those before it.
void FindingParser::refuse_key(std::size_t key, const char* where) const {
  if ((seen_ & bit(key)) != 0) {
    refuse_duplicate_key(KEY_NAMES[key], where);
  }
  throw ValueFault{where, "found the key " + in_quotes(KEY_NAMES[key]) +
                              " in one object with others, expected a line of its own for " +
                              in_quotes(KEY_NAMES[EXAMINED])};
}

void FindingParser::note_unknown_key(std::string_view name, const char* where) {
  if (!unlisted_keys_.insert(name).second) {
    refuse_duplicate_key(name, where);
  }
  if (!is_private_key(name)) {
    unknown_keys_.push_back({name, where});
  }
}

void FindingParser::read_value(std::size_t key, ondemand::value& value) {
  switch (key) {
    case ID:
      finding_.id = strings_.read_not_empty(value, {KEY_NAMES[key]});
      break;
    case SEVERITY:
      read_severity(value);
      break;
    case TYPE:
      read_type(value);
      break;
    case CATEGORY:
      finding_.category = strings_.read(value, {KEY_NAMES[key]}, "a string");
      break;
    case MESSAGE:
      finding_.message = strings_.read(value, {KEY_NAMES[key]}, "a string", LineEnds::KEPT);
      break;
    case REMEDY:
      finding_.remedy = strings_.read(value, {KEY_NAMES[key]}, "a string", LineEnds::KEPT);
      break;
    case NODES:
      read_nodes(value, KEY_NAMES[key], finding_.nodes);
      break;
    case ROW_IDS:
      read_row_ids(value);
      break;
    case DEFINITIONS:
      read_definitions(value);
      break;
    case BASED_ON:
      read_based_on(value);
      break;
    default:
      read_nodes(value, KEY_NAMES[key], examined_);
  }
}

void FindingParser::read_severity(ondemand::value& value) {
  const std::string_view source = source_of(value);
  const ValueName name{KEY_NAMES[SEVERITY]};
  if (source.front() == '"') {
    const std::string_view text = strings_.read(value, name, "");
    const std::optional<int> severity = severity_of_band(text);
    if (!severity) {
      refuse(source, name, severity_expectation(), suggestion_for(text, band_names()));
    }
    finding_.severity = *severity;
    return;
  }
  std::int64_t number = 0;
  if (value.get_int64().get(number) != simdjson::SUCCESS || number < LOWEST_SEVERITY ||
      number > HIGHEST_SEVERITY) {
    refuse(source, name, severity_expectation());
  }
  finding_.severity = static_cast<int>(number);
}

void FindingParser::read_type(ondemand::value& value) {
  static const std::vector<std::string_view> names = type_names();
  static const std::string expectation = one_of(names);
  const std::string_view source = source_of(value);
  const ValueName name{KEY_NAMES[TYPE]};
  const std::string_view text = strings_.read(value, name, expectation);
  const auto* const type = std::find_if(TYPES.begin(), TYPES.end(),
                                        [text](const auto& row) { return row.first == text; });
  if (type == TYPES.end()) {
    refuse(source, name, expectation, suggestion_for(text, names));
  }
  finding_.type = type->second;
}

void FindingParser::read_row_ids(ondemand::value& value) {
  using Limits = std::numeric_limits<int>;
  const std::string_view key = KEY_NAMES[ROW_IDS];
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
  const std::string_view key = KEY_NAMES[DEFINITIONS];
  for (auto result : open_array(value, {key}, "an array of strings")) {
    ondemand::value& element = checked(result);
    const ValueName name{key, finding_.definitions.size()};
    const std::string_view source = source_of(element);
    finding_.definitions.push_back(strings_.read_not_empty(element, name));
    if (definitions_are_paths_ && is_too_deep(finding_.definitions.back())) {
      refuse(source, name, "a path of at most " + std::to_string(MAX_DEFINITION_DEPTH) + " parts");
    }
  }
}

void FindingParser::read_based_on(ondemand::value& value) {
  const std::string_view key = KEY_NAMES[BASED_ON];
  for (auto result : open_array(value, {key}, "an array of strings")) {
    const ValueName name{key, finding_.based_on.size()};
    finding_.based_on.push_back(strings_.read_not_empty(checked(result), name));
  }
}

void FindingParser::read_nodes(ondemand::value& value, std::string_view key,
                               std::vector<std::string_view>& nodes) {
  if (source_of(value).front() == '"') {
    read_node(value, {key}, nodes);
    return;
  }
  std::size_t index = 0;
  for (auto result :
       open_array(value, {key}, "the name of a node, a set of nodes or an array of those")) {
    read_node(checked(result), {key, index++}, nodes);
  }
}

void FindingParser::read_node(ondemand::value& value, const ValueName& name,
                              std::vector<std::string_view>& nodes) {
  const std::string_view source = source_of(value);
  const std::string_view text = strings_.read(value, name, "the name of a node or a set of nodes");
  if (text.empty()) {
    refuse(source, name, "the name of a node");
  }
  if (is_node_set(text)) {
    expand_nodes(source, text, name, nodes);
  } else {
    nodes.push_back(text);
  }
}

void FindingParser::expand_nodes(std::string_view source, std::string_view text,
                                 const ValueName& name, std::vector<std::string_view>& nodes) {
  try {
    const auto& names = expanded_.emplace_back(expand_node_set(text));
    if (std::find(names.begin(), names.end(), std::string()) != names.end()) {
      refuse(source, name, "names of nodes that are not empty");
    }
    nodes.insert(nodes.end(), names.begin(), names.end());
  } catch (const NodeSetError& error) {
    // Where the text is not the source's own, places in it are none of the source.
    const bool is_source = text.data() == source.data() + 1;
    throw ValueFault{is_source ? text.data() + error.offset : source.data(),
                     name.text() + ": " + error.what()};
  }
  if (nodes.size() > MAX_NODE_SET_SIZE) {
    refuse(source, name, "no more than " + std::to_string(MAX_NODE_SET_SIZE) + " names in a line");
  }
}

void FindingParser::finish(const char* object) {
  kind_ = (seen_ & bit(EXAMINED)) != 0 ? Kind::EXAMINED : Kind::FINDING;
  if (kind_ == Kind::EXAMINED) {
    return;
  }
  for (const auto key : {ID, SEVERITY}) {
    if ((seen_ & bit(key)) == 0) {
      refuse_missing_key(KEY_NAMES[key], object, "in every finding", hint_at(key));
    }
  }
}

/// Names the unknown key that was most likely meant to be `key`.
std::string FindingParser::hint_at(std::size_t key) const {
  for (const UnknownKey& unknown : unknown_keys_) {
    if (nearest_candidate(unknown.key, finding_keys::all_names()) == KEY_NAMES[key]) {
      return "; did you mean it by " + in_quotes(excerpt(unknown.key)) + "?";
    }
  }
  return "";
}

}  // namespace vond::standalone
