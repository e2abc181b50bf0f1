#include "finding_lines.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

#include "vond/extension/json_text.h"
#include "vond/extension/utc_time.h"
#include "vond/postprocessor/string_interface.h"

namespace vond_findings {

using vond::extension::json_quote;
using vond::extension::StatementWriter;
using vond::extension::utc_time;
using vond::facts::Finding;

namespace {

// A line may name 1,048,576 nodes and have 32 MiB; these stay below both.
constexpr std::size_t MOST_NODES = 100'000;
constexpr std::size_t MOST_ROW_IDS = 1'000'000;
/// Of the names of one line.
constexpr std::size_t MOST_BYTES = std::size_t{4} << 20U;

/// Whether a name means itself wherever it stands in a folded set, which quotes one that begins
/// with a hyphen.
bool is_plain(std::string_view name) {
  return !name.starts_with('-') && std::all_of(name.begin(), name.end(), [](char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= '0' && byte <= '9') || byte == '-' || byte == '_' || byte == '.';
  });
}

std::string folded(const std::vector<std::string>& names) {
  std::vector<std::vector<std::string>> lists = {names};
  return vond::postprocessor::StringInterface().get_node_string(lists);
}

/// Returns the nodes as one folded text or, where a name would not mean itself there, as an array
/// of one such text and those names.
std::string json_nodes(const std::vector<std::string>& nodes) {
  std::vector<std::string> plain;
  std::string others;
  for (const std::string& node : nodes) {
    if (is_plain(node)) {
      plain.push_back(node);
      continue;
    }
    // In an array only these make a set of a text.
    const bool is_taken_for_a_set = node.find_first_of("[],") != std::string::npos;
    others += (others.empty() ? "" : ", ") + json_quote(is_taken_for_a_set ? folded({node}) : node);
  }
  if (others.empty()) {
    return plain.empty() ? "[]" : json_quote(folded(plain));
  }
  return "[" + (plain.empty() ? "" : json_quote(folded(plain)) + ", ") + others + "]";
}

std::string json_texts(const std::vector<std::string>& texts) {
  std::string json;
  for (const std::string& text : texts) {
    json += (json.empty() ? "" : ", ") + json_quote(text);
  }
  return "[" + json + "]";
}

std::string json_numbers(const std::vector<int>& numbers) {
  std::string json;
  for (const int number : numbers) {
    json += (json.empty() ? "" : ", ") + std::to_string(number);
  }
  return "[" + json + "]";
}

/// Takes items from the front of a list.
template <typename Item>
std::vector<Item> take_first(std::vector<Item>& items, std::size_t count) {
  const auto end = items.begin() + static_cast<std::ptrdiff_t>(std::min(items.size(), count));
  std::vector<Item> first(std::make_move_iterator(items.begin()), std::make_move_iterator(end));
  items.erase(items.begin(), end);
  return first;
}

/// Takes as many nodes from the front as a line may have.
std::vector<std::string> take_nodes(std::vector<std::string>& nodes) {
  std::size_t count = 0;
  std::size_t bytes = 0;
  while (count < std::min(nodes.size(), MOST_NODES) &&
         (count == 0 || bytes + nodes[count].size() <= MOST_BYTES)) {
    bytes += nodes[count++].size();
  }
  if (nodes.size() == count + 1 && count > 1) {
    // One node alone on its line would be taken for the one that a text names.
    --count;
  }
  return take_first(nodes, count);
}

std::string member(std::string_view key, const std::string& json) {
  return ", \"" + std::string(key) + "\": " + json;
}

std::string member_unless_empty(std::string_view key, const std::string& text) {
  return text.empty() ? "" : member(key, json_quote(text));
}

std::string member_unless_empty(std::string_view key, const std::vector<std::string>& texts) {
  return texts.empty() ? "" : member(key, json_texts(texts));
}

/// What all lines of a finding share.
std::string common_members(const Finding& finding) {
  return "{\"id\": " + json_quote(finding.id) +
         member("severity", std::to_string(finding.severity)) +
         member("type", json_quote(finding.type)) +
         member_unless_empty("category", finding.category) +
         member_unless_empty("message", finding.message) +
         member_unless_empty("remedy", finding.remedy) +
         member_unless_empty("definitions", finding.definitions) +
         member_unless_empty("based_on", finding.based_on) +
         (finding.first_seen ? member("first_seen", json_quote(utc_time(*finding.first_seen)))
                             : "");
}

}  // namespace

void write_finding(StatementWriter& output, const Finding& finding) {
  const std::string common = common_members(finding);
  std::vector<std::string> nodes = finding.nodes;
  std::vector<int> row_ids = finding.row_ids;
  std::string count = std::to_string(finding.count);
  do {
    output << common << member("nodes", json_nodes(take_nodes(nodes)));
    if (!row_ids.empty()) {
      output << member("row_ids", json_numbers(take_first(row_ids, MOST_ROW_IDS)));
    }
    output << member("count", count) << "}\n";
    count = "0";
  } while (!nodes.empty() || !row_ids.empty());
}

void write_examined(StatementWriter& output, const std::vector<std::string>& nodes) {
  std::vector<std::string> rest = nodes;
  do {
    output << "{\"examined\": " << json_nodes(take_nodes(rest)) << "}\n";
  } while (!rest.empty());
}

}  // namespace vond_findings
