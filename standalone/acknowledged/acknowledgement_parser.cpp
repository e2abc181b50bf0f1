#include "standalone/acknowledged/acknowledgement_parser.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

#include "standalone/input/line_reader.h"
#include "standalone/json/unknown_keys.h"
#include "standalone/json/white_space.h"
#include "standalone/nodes/group_hint.h"
#include "standalone/nodes/node_set.h"
#include "standalone/text/messages.h"
#include "standalone/text/suggestion.h"
#include "standalone/text/utc_time.h"
#include "standalone/text/views.h"

namespace vond::standalone {

static_assert(LineReader::PADDING >= simdjson::SIMDJSON_PADDING);

namespace {

namespace ondemand = simdjson::ondemand;

constexpr std::string_view ID = "id";
constexpr std::string_view NODES = "nodes";
constexpr std::string_view UNTIL = "until";
constexpr std::string_view REASON = "reason";
constexpr std::string_view BY = "by";
constexpr std::string_view UP_TO = "up_to";
constexpr std::string_view WITH_OBSERVATIONS = "with_observations";

constexpr std::array REQUIRED_KEYS = {ID, NODES, UNTIL, REASON};

constexpr std::string_view EVERYWHERE = "*";

/// What is not known might be a limit that is misspelt, and the entry cover more than was meant.
[[noreturn]] void refuse_unknown_key(std::string_view key, const char* where) {
  static const std::vector<std::string_view> known = {
      ID, NODES, UNTIL, REASON, BY, UP_TO, WITH_OBSERVATIONS};
  throw ValueFault{where, "unknown key " + in_quotes(excerpt(key)) + ", expected " + one_of(known) +
                              suggestion_for(key, known)};
}

}  // namespace

Acknowledgement AcknowledgementParser::parse(std::string_view line) {
  Acknowledgement entry;
  keys_.clear();
  strings_.begin(line);
  const std::string_view value = without_white_space(line);
  if (value.substr(0, 1) != "{") {
    refuse(value, {"the line"}, "an object with the keys of an acknowledgement");
  }
  ondemand::document document =
      parser_.iterate(line.data(), line.size(), line.size() + LineReader::PADDING);
  for (auto field : document.get_object()) {
    read_field(checked(field), entry);
  }
  if (document.current_location().error() != simdjson::OUT_OF_BOUNDS) {
    throw BrokenJson{};
  }
  for (const std::string_view key : REQUIRED_KEYS) {
    if (!keys_.contains(std::string(key))) {
      refuse_missing_key(key, value.data(), "in every acknowledgement");
    }
  }
  return entry;
}

void AcknowledgementParser::read_field(ondemand::field& field, Acknowledgement& entry) {
  const char* const where = field.key().raw() - 1;
  const std::string key(strings_.key(field));
  if (!keys_.insert(key).second) {
    refuse_duplicate_key(key, where);
  }
  if (read_value(key, field.value(), entry)) {
    return;
  }
  if (!is_private_key(key)) {
    refuse_unknown_key(key, where);
  }
  check_unused(field.value());
}

/// Returns false for a key that no acknowledgement has.
bool AcknowledgementParser::read_value(std::string_view key, Value& value, Acknowledgement& entry) {
  if (key == ID) {
    entry.id = strings_.read_not_empty(value, {key});
  } else if (key == NODES) {
    read_nodes(value, entry);
  } else if (key == UNTIL) {
    entry.until = read_until(value);
  } else if (key == REASON) {
    entry.reason = read_reason(value);
  } else if (key != BY && key != UP_TO && key != WITH_OBSERVATIONS) {
    return false;
  } else if (is_null(value)) {
    // As if the key were not there.
  } else if (key == BY) {
    entry.by = strings_.read_not_empty(value, {key});
  } else if (key == UP_TO) {
    entry.up_to = read_band(value);
  } else {
    entry.with_observations = read_truth(value, {key});
  }
  return true;
}

std::string AcknowledgementParser::read_reason(Value& value) {
  constexpr std::string_view EXPECTATION = "a string that is not empty";
  const std::string_view source = source_of(value);
  const std::string_view text = strings_.read(value, {REASON}, EXPECTATION, LineEnds::JOINED);
  if (text.empty()) {
    refuse(source, {REASON}, EXPECTATION);
  }
  return std::string(text);
}

void AcknowledgementParser::read_nodes(Value& value, Acknowledgement& entry) {
  const std::string_view source = source_of(value);
  if (source == in_quotes(EVERYWHERE)) {
    consume_string(value);
    entry.is_everywhere = true;
    return;
  }
  if (source.front() == '"') {
    add_nodes(value, {NODES}, entry.nodes);
  } else {
    std::size_t index = 0;
    for (auto element :
         open_array(value, {NODES}, "a set of nodes, an array of these, or \"*\" for every node")) {
      add_nodes(checked(element), {NODES, index++}, entry.nodes);
    }
  }
  if (entry.nodes.empty()) {
    refuse(source, {NODES}, "at least one node, or \"*\" for every node");
  }
  std::sort(entry.nodes.begin(), entry.nodes.end());
  entry.nodes.erase(std::unique(entry.nodes.begin(), entry.nodes.end()), entry.nodes.end());
}

/// Adds the nodes of a set.
void AcknowledgementParser::add_nodes(Value& value, const ValueName& name,
                                      std::vector<std::string>& nodes) {
  const std::string_view source = source_of(value);
  const std::string_view text =
      strings_.read(value, name, "the name of a node or a set of nodes", LineEnds::JOINED);
  if (text.find(EVERYWHERE) != std::string_view::npos) {
    refuse(source, name, "names in full; \"*\" alone stands for every node");
  }
  if (text.empty()) {
    refuse(source, name, "at least one node, or \"*\" for every node");
  }
  try {
    std::vector<std::string> names = expand_node_set(text, Blanks::SEPARATORS);
    nodes.insert(nodes.end(), std::make_move_iterator(names.begin()),
                 std::make_move_iterator(names.end()));
  } catch (const NodeSetError& error) {
    // Where the text is not the source's own, places in it are none of the source.
    throw ValueFault{is_view_into(text, source) ? text.data() + error.offset : source.data(),
                     name.text() + ": " + error.what() + group_hint(text, error.offset)};
  }
  if (nodes.size() > MAX_NODE_SET_SIZE) {
    refuse(source, name, "no more than " + std::to_string(MAX_NODE_SET_SIZE) + " names in a line");
  }
}

/// Returns the last second of what the value names.
std::time_t AcknowledgementParser::read_until(Value& value) {
  constexpr std::time_t DAY = std::time_t{24} * 60 * 60;
  constexpr std::string_view EXPECTATION =
      "a day such as \"2026-01-31\" or a time such as \"2026-01-31T12:00:00Z\"";
  const std::string_view source = source_of(value);
  const std::string_view text = strings_.read(value, {UNTIL}, EXPECTATION);
  const std::optional<std::time_t> day = parse_utc_date(text);
  const std::optional<std::time_t> time = day ? day : parse_instant(text);
  // No acknowledgement is that old: the year has a typing error.
  if (!time || *time < 0) {
    refuse(source, {UNTIL}, EXPECTATION);
  }
  if (*time - longest_.days * DAY > longest_.now) {
    refuse(source, {UNTIL},
           "at most " + count_of(static_cast<std::size_t>(longest_.days), "day", "days") +
               " ahead of the report's time");
  }
  return day ? *day + DAY - 1 : *time;
}

/// Returns the upper bound of the band that the value names.
int AcknowledgementParser::read_band(Value& value) {
  static const std::string expectation = one_of(band_names());
  const std::string_view source = source_of(value);
  const std::string_view text = strings_.read(value, {UP_TO}, expectation);
  const std::optional<int> bound = severity_of_band(text);
  if (!bound) {
    refuse(source, {UP_TO}, expectation, suggestion_for(text, band_names()));
  }
  return *bound;
}

}  // namespace vond::standalone
