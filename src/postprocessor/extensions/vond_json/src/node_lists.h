#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "vond/extension/json_writer.h"
#include "vond/postprocessor/string_interface.h"

namespace vond_json {

/// Of longer lists of nodes the folded form has to do.
inline constexpr std::size_t MOST_LISTED_NODES = 100'000;

/// Writes the names, null when there are too many.
template <typename Names>
void write_names(vond::extension::JsonWriter& json, const Names& names) {
  if (names.size() > MOST_LISTED_NODES) {
    json.null();
  } else {
    json.array(names);
  }
}

/// Writes the names, as one folded text when there are too many.
inline void write_names_or_set(vond::extension::JsonWriter& json,
                               const std::vector<std::string>& names) {
  if (names.size() > MOST_LISTED_NODES) {
    std::vector<std::vector<std::string>> lists = {names};
    json.value(vond::postprocessor::StringInterface().get_node_string(lists));
  } else {
    json.array(names);
  }
}

}  // namespace vond_json
