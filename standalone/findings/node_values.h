#pragma once

#include <simdjson.h>

#include <string>
#include <string_view>
#include <vector>

#include "standalone/json/json_values.h"

namespace vond::standalone {

/// Reads values that name nodes: a name, a set of nodes, or an array of those. Keeps the names that
/// sets stand for; views handed out live until the next line.
class NodeValues {
 public:
  /// Keeps a reference to `strings`.
  explicit NodeValues(JsonStrings& strings) : strings_(strings) {}

  /// Starts with a new line.
  void clear() { expanded_.clear(); }

  /// Appends the names that `value` gives to `nodes`. Throws ValueFault, in the name of `key`, when
  /// it names no nodes or more than MAX_NODE_SET_SIZE together with those before.
  void read(simdjson::ondemand::value& value, std::string_view key,
            std::vector<std::string_view>& nodes);

 private:
  void read_one(simdjson::ondemand::value& value, const ValueName& name,
                std::vector<std::string_view>& nodes);
  void expand(std::string_view source, std::string_view text, const ValueName& name,
              std::vector<std::string_view>& nodes);

  JsonStrings& strings_;
  std::vector<std::vector<std::string>> expanded_;
};

}  // namespace vond::standalone
