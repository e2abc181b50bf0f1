#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "vond/extension/json_writer.h"
#include "vond/postprocessor/string_interface.h"

namespace vond_json {

/// Of longer lists the folded form has to do.
constexpr std::size_t MOST_LISTED_NODES = 100'000;

/// Writes a list of the names, one folded text where they are too many.
inline void write_names_or_text(vond::extension::JsonWriter& json,
                                const std::vector<std::string>& names) {
  if (names.size() > MOST_LISTED_NODES) {
    std::vector<std::vector<std::string>> lists = {names};
    json.value(vond::postprocessor::StringInterface().get_node_string(lists));
  } else {
    json.array(names);
  }
}

}  // namespace vond_json
