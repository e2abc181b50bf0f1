#pragma once

#include <simdjson.h>

#include <string>
#include <string_view>
#include <vector>

#include "standalone/json/json_values.h"
#include "standalone/nodes/node_set.h"

namespace vond::standalone {

/// Reads values that name nodes: a name, a set of nodes, or an array of those. In a text that is no
/// element of an array blanks separate names as commas do. Keeps the names that sets stand for;
/// views handed out live until the next line.
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

  /// Appends the names that `label`, a node set, stands for. The label must live as long as the
  /// line.
  void read_label(std::string_view label, std::vector<std::string_view>& nodes);

 private:
  /// One text, which is all there is or an element of an array.
  struct Source {
    simdjson::ondemand::value& value;
    ValueName name;
    /// Whether blanks separate names, or belong to one.
    Blanks blanks;
  };

  void read_one(const Source& source, std::vector<std::string_view>& nodes);
  void expand(const Source& source, std::string_view json, std::string_view text,
              std::vector<std::string_view>& nodes);

  JsonStrings& strings_;
  std::vector<std::vector<std::string>> expanded_;
};

}  // namespace vond::standalone
