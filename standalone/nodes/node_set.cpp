#include "standalone/nodes/node_set.h"

#include <cstdint>
#include <iterator>
#include <utility>

#include "standalone/nodes/digits.h"
#include "standalone/nodes/node_set_parser.h"

namespace vond::standalone {

namespace {

std::vector<std::string> expand_ranges(const std::vector<NumberRange>& ranges) {
  std::vector<std::string> texts;
  for (const NumberRange& range : ranges) {
    std::string digits(range.first);
    for (std::uint64_t i = 1; i < range.count; ++i) {
      texts.push_back(digits);
      add_to_digits(range.step, digits);
    }
    texts.push_back(std::move(digits));
  }
  return texts;
}

/// Returns each of the names with each text of `part` behind it.
std::vector<std::string> with_part(std::vector<std::string> names, const NamePart& part) {
  if (part.ranges.empty()) {
    for (std::string& name : names) {
      name += part.text;
    }
    return names;
  }
  const std::vector<std::string> numbers = expand_ranges(part.ranges);
  std::vector<std::string> longer;
  longer.reserve(names.size() * numbers.size());
  for (const std::string& name : names) {
    for (const std::string& number : numbers) {
      longer.push_back(name + number);
    }
  }
  return longer;
}

}  // namespace

std::vector<std::string> expand_node_set(std::string_view text, Blanks blanks) {
  std::vector<std::string> names;
  for (const NodeSetTerm& term : parse_node_set(text, blanks)) {
    std::vector<std::string> term_names(1);
    for (const NamePart& part : term) {
      term_names = with_part(std::move(term_names), part);
    }
    std::move(term_names.begin(), term_names.end(), std::back_inserter(names));
  }
  return names;
}

bool is_node_set(std::string_view text) {
  try {
    parse_node_set(text, Blanks::REFUSED);
    return true;
  } catch (const NodeSetError&) {
    return false;
  }
}

}  // namespace vond::standalone
