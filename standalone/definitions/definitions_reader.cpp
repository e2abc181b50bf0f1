#include "standalone/definitions/definitions_reader.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "standalone/input/file_text.h"
#include "standalone/input/input_error.h"
#include "standalone/json/json_values.h"
#include "standalone/json/parsing_fault.h"
#include "standalone/json/unknown_keys.h"
#include "standalone/json/white_space.h"
#include "standalone/text/messages.h"

namespace vond::standalone {

namespace {

namespace ondemand = simdjson::ondemand;

static_assert(FileText::PADDING >= simdjson::SIMDJSON_PADDING);

constexpr std::string_view DEFINITIONS = "definitions";
constexpr std::string_view NAME = "name";
constexpr std::string_view SKIPPED = "skipped";
constexpr std::string_view CHILDREN = "children";

std::string expected_object() { return "an object with the key " + in_quotes(DEFINITIONS); }

/// Builds the definitions from a file's text.
class DefinitionsParser {
 public:
  /// Keeps a reference to `file`.
  explicit DefinitionsParser(FileText& file);

  /// Throws ValueFault, BrokenJson or simdjson::simdjson_error when the text cannot be used; when
  /// it is no JSON it may complain about a value.
  DefinitionsFile parse();

 private:
  using Value = ondemand::value;
  using Group = std::vector<DefinitionSpec>;

  template <typename ReadField>
  void read_object(ondemand::object object, const ReadField& read_field);
  std::vector<Group> read_children(Value& value, int depth);
  Group read_group(Value& value, const ValueName& name, int depth);
  DefinitionSpec read_definition(Value& value, const ValueName& name, int depth);
  bool read_field_of(DefinitionSpec& definition, std::string_view key, Value& value, int depth);
  std::string read_name(Value& value);
  void note_unknown_key(std::string_view key, const char* where);

  FileText& file_;
  ondemand::parser parser_;
  JsonStrings strings_;
  /// Where each name stands.
  std::unordered_map<std::string, const char*> names_;
  UnknownKeys unknown_keys_;
};

DefinitionsParser::DefinitionsParser(FileText& file)
    : file_(file), unknown_keys_({DEFINITIONS, NAME, SKIPPED, CHILDREN}) {}

DefinitionsFile DefinitionsParser::parse() {
  const std::string_view text = file_.text();
  const std::string_view value = without_white_space(text);
  if (value.empty()) {
    throw file_.error_at(text.data(), "the file is empty, expected " + expected_object());
  }
  if (value.front() != '{') {
    refuse(value, {"the file"}, expected_object());
  }
  strings_.begin(text);
  ondemand::document document =
      parser_.iterate(text.data(), text.size(), text.size() + FileText::PADDING);
  std::optional<Group> roots;
  read_object(document.get_object(), [&](std::string_view key, Value& field_value) {
    if (key != DEFINITIONS) {
      return false;
    }
    roots = read_group(field_value, {DEFINITIONS}, 1);
    return true;
  });
  if (document.current_location().error() != simdjson::OUT_OF_BOUNDS) {
    throw BrokenJson{};
  }
  if (!roots) {
    refuse_missing_key(DEFINITIONS, value.data(), "in a file of definitions");
  }
  return {std::move(*roots), unknown_keys_.warnings()};
}

/// Hands each key and its value to `read_field`, which returns false when it does not know the key.
template <typename ReadField>
void DefinitionsParser::read_object(ondemand::object object, const ReadField& read_field) {
  std::unordered_set<std::string_view> seen;
  for (ondemand::field field : object) {
    const char* const where = field.key().raw() - 1;
    const std::string_view key = strings_.key(field);
    if (!seen.insert(key).second) {
      refuse_duplicate_key(key, where);
    }
    if (!read_field(key, field.value())) {
      note_unknown_key(key, where);
      check_unused(field.value());
    }
  }
}

DefinitionsParser::Group DefinitionsParser::read_group(Value& value, const ValueName& name,
                                                       int depth) {
  Group group;
  const std::string group_name = name.text();
  for (Value element : open_array(value, name, "an array of definitions")) {
    group.push_back(read_definition(element, {group_name, group.size()}, depth));
  }
  return group;
}

std::vector<DefinitionsParser::Group> DefinitionsParser::read_children(Value& value, int depth) {
  std::vector<Group> groups;
  std::size_t index = 0;
  char first_bracket = '\0';
  for (Value element :
       open_array(value, {CHILDREN}, "an array of definitions or an array of such arrays")) {
    const ValueName name{CHILDREN, index++};
    const std::string_view source = source_of(element);
    const char bracket = source.front();
    if (bracket != '{' && bracket != '[') {
      refuse(source, name, "a definition or an array of definitions");
    }
    if (first_bracket != '\0' && bracket != first_bracket) {
      refuse(
          source, name,
          "an " + std::string(first_bracket == '[' ? "array" : "object") + " like those before it");
    }
    first_bracket = bracket;
    if (bracket == '[') {
      groups.push_back(read_group(element, name, depth));
      continue;
    }
    groups.resize(1);
    groups.front().push_back(read_definition(element, name, depth));
  }
  return groups;
}

DefinitionSpec DefinitionsParser::read_definition(Value& value, const ValueName& name, int depth) {
  const std::string_view source = source_of(value);
  if (source.front() != '{') {
    refuse(source, name, "a definition, which is an object");
  }
  if (depth > MAX_DEFINITION_DEPTH) {
    throw ValueFault{source.data(), "found a definition at depth " + std::to_string(depth) +
                                        ", expected at most " +
                                        std::to_string(MAX_DEFINITION_DEPTH)};
  }
  DefinitionSpec definition;
  read_object(value.get_object(), [&](std::string_view key, Value& field_value) {
    return read_field_of(definition, key, field_value, depth);
  });
  if (definition.name.empty()) {
    refuse_missing_key(NAME, source.data(), "in every definition");
  }
  return definition;
}

/// Returns false when no definition has a key of that name.
bool DefinitionsParser::read_field_of(DefinitionSpec& definition, std::string_view key,
                                      Value& value, int depth) {
  if (key == NAME) {
    definition.name = read_name(value);
    return true;
  }
  if (key != SKIPPED && key != CHILDREN) {
    return false;
  }
  if (is_null(value)) {
    return true;
  }
  if (key == SKIPPED) {
    definition.skipped = read_truth(value, {SKIPPED});
  } else {
    definition.child_groups = read_children(value, depth + 1);
  }
  return true;
}

std::string DefinitionsParser::read_name(Value& value) {
  const std::string_view source = source_of(value);
  std::string name(strings_.read_not_empty(value, {NAME}));
  const auto [first, is_new] = names_.emplace(name, source.data());
  if (!is_new) {
    const LineAndColumn place = file_.place_of(first->second);
    refuse(source, {NAME},
           "another name than the definition in line " + std::to_string(place.line) + ", column " +
               std::to_string(place.column) + " has");
  }
  return name;
}

void DefinitionsParser::note_unknown_key(std::string_view key, const char* where) {
  if (!is_private_key(key)) {
    const LineAndColumn place = file_.place_of(where);
    unknown_keys_.add(key, file_.name(), place.line, place.column);
  }
}

}  // namespace

DefinitionsFile read_definitions(const std::string& path) {
  FileText file(path, "a file of definitions");
  DefinitionsFile definitions;
  const std::optional<JsonFault> fault = find_parsing_fault(
      file.text(), "file", [&] { definitions = DefinitionsParser(file).parse(); });
  if (fault) {
    throw file.error_at(file.text().data() + fault->offset, fault->message);
  }
  return definitions;
}

}  // namespace vond::standalone
