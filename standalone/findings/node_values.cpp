#include "standalone/findings/node_values.h"

#include <algorithm>
#include <cstddef>

#include "standalone/nodes/node_set.h"

namespace vond::standalone {

namespace ondemand = simdjson::ondemand;

namespace {

bool is_node_set(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char letter) { return letter == '[' || letter == ']' || letter == ','; });
}

}  // namespace

void NodeValues::read(ondemand::value& value, std::string_view key,
                      std::vector<std::string_view>& nodes) {
  if (source_of(value).front() == '"') {
    read_one(value, {key}, nodes);
    return;
  }
  std::size_t index = 0;
  for (auto result :
       open_array(value, {key}, "the name of a node, a set of nodes or an array of those")) {
    read_one(checked(result), {key, index++}, nodes);
  }
}

void NodeValues::read_one(ondemand::value& value, const ValueName& name,
                          std::vector<std::string_view>& nodes) {
  const std::string_view source = source_of(value);
  const std::string_view text = strings_.read(value, name, "the name of a node or a set of nodes");
  if (text.empty()) {
    refuse(source, name, "the name of a node");
  }
  if (is_node_set(text)) {
    expand(source, text, name, nodes);
  } else {
    nodes.push_back(text);
  }
}

void NodeValues::expand(std::string_view source, std::string_view text, const ValueName& name,
                        std::vector<std::string_view>& nodes) {
  try {
    const auto& names = expanded_.emplace_back(expand_node_set(text));
    if (std::find(names.begin(), names.end(), std::string()) != names.end()) {
      refuse(source, name, "names of nodes that are not empty");
    }
    nodes.insert(nodes.end(), names.begin(), names.end());
  } catch (const NodeSetError& error) {
    // Where the text is not the source's own, places in it are none of the source.
    const bool is_source = text.data() == source.data() + 1;
    throw ValueFault{is_source ? text.data() + error.offset : source.data(),
                     name.text() + ": " + error.what()};
  }
  if (nodes.size() > MAX_NODE_SET_SIZE) {
    refuse(source, name, "no more than " + std::to_string(MAX_NODE_SET_SIZE) + " names in a line");
  }
}

}  // namespace vond::standalone
