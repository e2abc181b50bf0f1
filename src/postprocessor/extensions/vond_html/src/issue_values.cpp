#include "issue_values.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>

#include "vond/extension/markup_text.h"
#include "wording.h"

namespace vond_html {

namespace facts = vond::facts;

using vond::extension::JsonWriter;

namespace {

/// How many bars a strip of values has.
constexpr std::size_t PARTS = 40;

/// Returns the number that a text begins with, "+1,024" for example; what stands behind it is its
/// unit. The minus sign may be that of typography.
std::optional<double> number_of(std::string text) {
  constexpr std::string_view MINUS = "\u2212";
  if (text.starts_with(MINUS)) {
    text.replace(0, MINUS.size(), "-");
  }
  text.erase(std::remove(text.begin(), text.end(), ','), text.end());
  const char* const begin = text.data() + (text.starts_with('+') ? 1 : 0);
  double number = 0;
  const auto read = std::from_chars(begin, text.data() + text.size(), number);
  return read.ec == std::errc() ? std::optional(number) : std::nullopt;
}

std::optional<std::vector<double>> numbers_of(const facts::Place& place) {
  std::vector<double> numbers;
  numbers.reserve(place.values.size());
  for (const facts::Value& value : place.values) {
    const auto number = number_of(value.value);
    if (!number) {
      return std::nullopt;
    }
    numbers.push_back(*number);
  }
  return numbers;
}

void write_value(JsonWriter& json, const facts::Value& value) {
  json.begin_array();
  json.value(shortened_name(value.value));
  // Where findings differ in the name of their node, it stands there already.
  if (!value.nodes.empty() && value.nodes != std::vector{value.value}) {
    json.value(vond::extension::shortened(folded(value.nodes), LONGEST_VALUE_NODES));
  }
  json.end_array();
}

void write_place(JsonWriter& json, const facts::Place& place) {
  const std::size_t count = place.values.size();
  const std::size_t left_out = count > 2 * MOST_VALUES ? count - 2 * MOST_VALUES : 0;
  json.begin_object();
  json.key("unit").value(vond::extension::shortened(place.unit, LONGEST_UNIT));
  json.key("left_out").value(left_out);
  json.key("values").begin_array();
  for (std::size_t i = 0; i < count; ++i) {
    if (left_out != 0 && i == MOST_VALUES) {
      i += left_out;
    }
    write_value(json, place.values[i]);
  }
  json.end_array();
  if (const auto spread = spread_of(place); !spread.empty()) {
    json.key("spread").array(spread);
  }
  json.end_object();
}

}  // namespace

std::vector<std::size_t> spread_of(const facts::Place& place) {
  const auto numbers = place.kind == "number" ? numbers_of(place) : std::nullopt;
  if (!numbers || numbers->empty()) {
    return {};
  }
  const auto [least, greatest] = std::minmax_element(numbers->begin(), numbers->end());
  // Halves, for the difference of the greatest numbers is none.
  const double width = *greatest / 2 - *least / 2;
  if (!(width > 0)) {
    return {};
  }
  std::vector<std::size_t> spread(PARTS);
  for (std::size_t i = 0; i < numbers->size(); ++i) {
    const double part = ((*numbers)[i] / 2 - *least / 2) / width * static_cast<double>(PARTS);
    const std::size_t index = std::min(static_cast<std::size_t>(part), PARTS - 1);
    spread[index] += std::max<std::size_t>(place.values[i].nodes.size(), 1);
  }
  return spread;
}

void write_places(JsonWriter& json, const std::vector<facts::Place>& places) {
  json.begin_array();
  for (const facts::Place& place : places) {
    write_place(json, place);
  }
  json.end_array();
}

}  // namespace vond_html
