#pragma once

#include <simdjson.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "standalone/json/json_values.h"
#include "standalone/json/unknown_keys.h"
#include "standalone/model/finding.h"

namespace vond::standalone {

/// Reads one line of JSON after the other. What it hands out lives until the next line is parsed or
/// the line's text goes.
class FindingParser {
 public:
  enum class Kind { FINDING, EXAMINED };

  /// With `definitions_are_paths` a definition's name is a path of at most MAX_DEFINITION_DEPTH
  /// parts.
  explicit FindingParser(bool definitions_are_paths);

  /// Reads `line`, behind which LineReader::PADDING bytes may be read. Throws ValueFault,
  /// BrokenJson or simdjson::simdjson_error when it cannot be used; of a line that is no JSON it
  /// may complain about a value.
  void parse(std::string_view line);

  Kind kind() const noexcept { return kind_; }
  /// What the last line told, when it was a finding.
  const Finding& finding() const noexcept { return finding_; }
  /// The nodes that the last line named, when it was of the kind EXAMINED.
  const std::vector<std::string_view>& examined() const noexcept { return examined_; }
  /// Where the last line's last row id stands, when it has any.
  std::string_view row_id_source() const noexcept { return row_id_source_; }
  /// The last line's unknown keys.
  const std::vector<UnknownKey>& unknown_keys() const noexcept { return unknown_keys_; }

 private:
  using Value = simdjson::ondemand::value;

  void begin(std::string_view line);
  void reserve(std::size_t size);
  void read_field(simdjson::ondemand::field& field);
  void read_unlisted_field(simdjson::ondemand::field& field, const char* where);
  void note_key(std::size_t key, const char* where);
  [[noreturn]] void refuse_key(std::size_t key, const char* where) const;
  void note_unknown_key(std::string_view name, const char* where);
  void read_value(std::size_t key, Value& value);
  void read_severity(Value& value);
  void read_type(Value& value);
  void read_row_ids(Value& value);
  void read_definitions(Value& value);
  void read_based_on(Value& value);
  void read_nodes(Value& value, std::string_view key, std::vector<std::string_view>& nodes);
  void read_node(Value& value, const ValueName& name, std::vector<std::string_view>& nodes);
  void expand_nodes(std::string_view source, std::string_view text, const ValueName& name,
                    std::vector<std::string_view>& nodes);
  void finish(const char* object);
  std::string hint_at(std::size_t key) const;

  bool definitions_are_paths_;
  Kind kind_ = Kind::FINDING;
  simdjson::ondemand::parser parser_;
  JsonStrings strings_;
  Finding finding_;
  std::vector<std::string_view> examined_;
  /// What node sets stand for; the views of a line point here.
  std::vector<std::vector<std::string>> expanded_;
  std::string_view row_id_source_;
  std::vector<UnknownKey> unknown_keys_;
  std::unordered_set<std::string_view> unlisted_keys_;
  /// A bit per key that the line has.
  unsigned seen_ = 0;
};

}  // namespace vond::standalone
