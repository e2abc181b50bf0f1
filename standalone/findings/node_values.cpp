#include "standalone/findings/node_values.h"

#include <algorithm>
#include <cstddef>

#include "standalone/text/trimming.h"
#include "standalone/text/views.h"

namespace vond::standalone {

namespace ondemand = simdjson::ondemand;

namespace {

bool stands_for_a_set(std::string_view text, Blanks blanks) {
  const std::string_view marks = blanks == Blanks::SEPARATORS ? "[], " : "[],";
  return text.find_first_of(marks) != std::string_view::npos;
}

}  // namespace

void NodeValues::read(ondemand::value& value, std::string_view key,
                      std::vector<std::string_view>& nodes) {
  if (source_of(value).front() == '"') {
    read_one({value, {key}, Blanks::SEPARATORS}, nodes);
    return;
  }
  std::size_t index = 0;
  for (auto result :
       open_array(value, {key}, "the name of a node, a set of nodes or an array of those")) {
    read_one({checked(result), {key, index++}, Blanks::REFUSED}, nodes);
  }
}

void NodeValues::read_label(std::string_view label, std::vector<std::string_view>& nodes) {
  if (!stands_for_a_set(label, Blanks::REFUSED)) {
    nodes.push_back(label);
    return;
  }
  const auto& names = expanded_.emplace_back(expand_node_set(label));
  nodes.insert(nodes.end(), names.begin(), names.end());
}

void NodeValues::read_one(const Source& source, std::vector<std::string_view>& nodes) {
  const std::string_view json = source_of(source.value);
  const LineEnds line_ends =
      source.blanks == Blanks::SEPARATORS ? LineEnds::JOINED : LineEnds::SHOWN;
  const std::string_view text =
      strings_.read(source.value, source.name, "the name of a node or a set of nodes", line_ends);
  if (text.empty()) {
    refuse(json, source.name, "the name of a node");
  }
  if (stands_for_a_set(text, source.blanks)) {
    expand(source, json, text, nodes);
  } else {
    nodes.push_back(text);
  }
}

void NodeValues::expand(const Source& source, std::string_view json, std::string_view text,
                        std::vector<std::string_view>& nodes) {
  try {
    for (const std::string& name : expanded_.emplace_back(expand_node_set(text, source.blanks))) {
      nodes.push_back(trimmed(name));
      if (nodes.back().empty()) {
        refuse(json, source.name, "names of nodes that are not empty");
      }
    }
  } catch (const NodeSetError& error) {
    // Where the text is not the source's own, places in it are none of the source.
    throw ValueFault{is_view_into(text, json) ? text.data() + error.offset : json.data(),
                     source.name.text() + ": " + error.what()};
  }
  if (nodes.size() > MAX_NODE_SET_SIZE) {
    refuse(json, source.name,
           "no more than " + std::to_string(MAX_NODE_SET_SIZE) + " names in a line");
  }
}

}  // namespace vond::standalone
