#pragma once

#include <simdjson.h>

#include <ctime>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "standalone/acknowledged/acknowledgement.h"
#include "standalone/json/json_values.h"

namespace vond::standalone {

/// Which times an acknowledgement may end at.
struct LongestAcknowledgement {
  /// The report's time.
  std::time_t now = 0;
  /// How many days, of 24 hours each, lie at most between now and the time, or the day, that an
  /// entry names.
  int days = 90;
};

/// Reads one line after the other.
class AcknowledgementParser {
 public:
  explicit AcknowledgementParser(LongestAcknowledgement longest) : longest_(longest) {}

  /// Reads `line`, behind which LineReader::PADDING bytes may be read. Throws ValueFault,
  /// BrokenJson or simdjson::simdjson_error when it cannot be used; of one that is no JSON it may
  /// complain about a value.
  Acknowledgement parse(std::string_view line);

 private:
  using Value = simdjson::ondemand::value;

  void read_field(simdjson::ondemand::field& field, Acknowledgement& entry);
  bool read_value(std::string_view key, Value& value, Acknowledgement& entry);
  std::string read_reason(Value& value);
  void read_nodes(Value& value, Acknowledgement& entry);
  void add_nodes(Value& value, const ValueName& name, std::vector<std::string>& nodes);
  std::time_t read_until(Value& value);
  int read_band(Value& value);

  LongestAcknowledgement longest_;
  simdjson::ondemand::parser parser_;
  JsonStrings strings_;
  /// Those of the line.
  std::unordered_set<std::string> keys_;
};

}  // namespace vond::standalone
