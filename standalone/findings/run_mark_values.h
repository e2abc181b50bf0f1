#pragma once

#include <simdjson.h>

#include "standalone/json/json_values.h"
#include "standalone/model/run_marks.h"

namespace vond::standalone {

/// Reads what the keys `begin` and `end` of a line hold.
class RunMarkValues {
 public:
  /// Keeps a reference to `strings`.
  explicit RunMarkValues(JsonStrings& strings) : strings_(strings) {}

  /// Both throw ValueFault for what is no such value, naming its keys `begin.format` and so on.
  /// Keys that are unknown are ignored: a later version of the format may have more.
  RunBegin read_begin(simdjson::ondemand::value& value);
  RunEnd read_end(simdjson::ondemand::value& value);

 private:
  using Value = simdjson::ondemand::value;

  /// Calls `read(name, value)` for each key of the object `value`, which returns false for a key
  /// that it does not know.
  template <typename Read>
  void read_object(Value& value, std::string_view key, Read read);
  void read_parts(Value& value, std::vector<std::string>& parts);

  JsonStrings& strings_;
};

}  // namespace vond::standalone
