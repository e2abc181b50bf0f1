#pragma once

#include <simdjson.h>

#include <cstddef>
#include <string_view>
#include <vector>

#include "standalone/findings/finding_keys.h"
#include "standalone/findings/line_keys.h"
#include "standalone/findings/node_values.h"
#include "standalone/findings/run_mark_values.h"
#include "standalone/json/json_values.h"
#include "standalone/json/unknown_keys.h"
#include "standalone/model/finding.h"

namespace vond::standalone {

/// Reads one line of JSON after the other. What it hands out lives until the next line is parsed or
/// the line's text goes.
class FindingParser {
 public:
  enum class Kind { FINDING, EXAMINED, BEGIN, END };

  /// With `definitions_are_paths` a definition's name is a path of at most MAX_DEFINITION_DEPTH
  /// parts.
  explicit FindingParser(bool definitions_are_paths);
  FindingParser(const FindingParser&) = delete;
  FindingParser& operator=(const FindingParser&) = delete;

  /// Reads `line`, behind which LineReader::PADDING bytes may be read. `label` is what stood before
  /// it, a node set, or empty; it must live as long as the line. Throws ValueFault, BrokenJson or
  /// simdjson::simdjson_error when the line cannot be used; of one that is no JSON it may complain
  /// about a value.
  void parse(std::string_view line, std::string_view label = {});

  Kind kind() const noexcept { return kind_; }
  /// What the last line told, when it was a finding.
  const Finding& finding() const noexcept { return finding_; }
  /// The nodes that the last line named, when it was of the kind EXAMINED.
  const std::vector<std::string_view>& examined() const noexcept { return examined_; }
  /// What the last line told, when it was of the kind BEGIN.
  const RunBegin& begin() const noexcept { return begin_; }
  /// What the last line told, when it was of the kind END.
  const RunEnd& end() const noexcept { return end_; }
  /// Where the last line's last row id stands, when it has any.
  std::string_view row_id_source() const noexcept { return row_id_source_; }
  /// The last line's unknown keys.
  const std::vector<UnknownKey>& unknown_keys() const noexcept { return keys_.unknown(); }

 private:
  using Value = simdjson::ondemand::value;

  void start_line(std::string_view line, std::string_view label);
  void reserve(std::size_t size);
  void read_field(simdjson::ondemand::field& field);
  void read_value(FindingKey key, Value& value);
  void read_mark(FindingKey key, Value& value);
  void read_severity(Value& value);
  void read_type(Value& value);
  std::string_view read_lines(Value& value, FindingKey key);
  void read_row_ids(Value& value);
  void read_definitions(Value& value);
  void read_based_on(Value& value);
  void read_examined(Value& value);
  void complete_finding(const char* object);

  bool definitions_are_paths_;
  simdjson::ondemand::parser parser_;
  JsonStrings strings_;
  NodeValues nodes_{strings_};
  RunMarkValues marks_{strings_};
  LineKeys keys_;
  std::string_view label_;
  Kind kind_ = Kind::FINDING;
  Finding finding_;
  RunBegin begin_;
  RunEnd end_;
  std::vector<std::string_view> examined_;
  std::string_view row_id_source_;
};

}  // namespace vond::standalone
