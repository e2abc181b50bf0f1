#include "standalone/patterns/place_summary.h"

#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>

#include "standalone/nodes/node_folding.h"
#include "standalone/nodes/number_sorting.h"
#include "standalone/patterns/natural_order.h"
#include "standalone/patterns/standing_out.h"
#include "standalone/patterns/value_kind.h"

namespace vond::standalone {
namespace {

using Numbers = std::vector<std::uint32_t>;

constexpr std::size_t MOST_SHOWN = 8;
constexpr std::size_t FIRST_OF_MANY = 2;
constexpr std::size_t MOST_NAMED_NODES = 3;
constexpr std::size_t MOST_STANDING_OUT = 3;

/// A value and what it is read as.
template <typename Meaning>
struct ReadValue {
  Meaning meaning;
  PlaceValue value;
};

/// Reads all values and sorts them by what they mean; nothing when one cannot be read or compared.
template <typename Meaning>
std::optional<std::vector<ReadValue<Meaning>>> read_all(
    const std::vector<PlaceValue>& values, std::optional<Meaning> (*read)(std::string_view)) {
  std::vector<ReadValue<Meaning>> all;
  all.reserve(values.size());
  for (const PlaceValue& value : values) {
    auto meaning = read(value.text);
    if (!meaning || (!all.empty() && !meaning->is_like(all.front().meaning))) {
      return std::nullopt;
    }
    all.push_back({std::move(*meaning), value});
  }
  std::sort(all.begin(), all.end(), [](const auto& left, const auto& right) {
    const auto left_key = left.meaning.key();
    const auto right_key = right.meaning.key();
    return left_key != right_key ? left_key < right_key : left.value.text < right.value.text;
  });
  return all;
}

template <typename Meaning>
std::vector<PlaceValue> values_of(const std::vector<ReadValue<Meaning>>& all) {
  std::vector<PlaceValue> values;
  values.reserve(all.size());
  for (const auto& read : all) {
    values.push_back(read.value);
  }
  return values;
}

void sort_naturally(std::vector<PlaceValue>& values, std::size_t needed) {
  const auto end = static_cast<std::ptrdiff_t>(std::min(needed, values.size()));
  std::partial_sort(values.begin(), values.begin() + end, values.end(),
                    [](const PlaceValue& left, const PlaceValue& right) {
                      return stands_naturally_before(left.text, right.text);
                    });
}

Numbers each_once(std::span<const std::uint32_t> nodes) {
  Numbers distinct(nodes.begin(), nodes.end());
  sort_unique(distinct);
  return distinct;
}

/// Returns the nodes, each once, when these are few enough to be named; else nothing. Most values
/// are on many nodes, of which it looks at the first few.
Numbers few_nodes(std::span<const std::uint32_t> nodes) {
  Numbers distinct;
  for (const std::uint32_t node : nodes) {
    if (std::find(distinct.begin(), distinct.end(), node) != distinct.end()) {
      continue;
    }
    if (distinct.size() == MOST_NAMED_NODES) {
      return {};
    }
    distinct.push_back(node);
  }
  return distinct;
}

/// Writes what a place becomes.
class PlaceWriter {
 public:
  PlaceWriter(const NodeNames& node_names, bool has_several_nodes)
      : node_names_(node_names), has_several_nodes_(has_several_nodes) {}

  /// `13, 31 [cn009] or 79`.
  std::string all_of(const std::vector<PlaceValue>& values) const {
    std::string text;
    for (std::size_t i = 0; i < values.size(); ++i) {
      text += i == 0 ? "" : i + 1 == values.size() ? " or " : ", ";
      text += values[i].text;
      if (has_several_nodes_) {
        const auto nodes = few_nodes(values[i].nodes);
        text += nodes.empty() ? "" : " [" + names_of(nodes) + "]";
      }
    }
    return text;
  }

  /// `83 to 131C [median 85; 131 on cn00077]`.
  std::string range_of(const std::vector<ReadValue<NumberValue>>& sorted) const {
    const NumberValue& least = sorted.front().meaning;
    std::string text(least.before);
    text.append(least.text).append(" to ");
    text.append(sorted.back().meaning.text).append(least.behind);
    std::vector<CountedNumber> numbers;
    numbers.reserve(sorted.size());
    for (const auto& [meaning, value] : sorted) {
      numbers.push_back({&meaning.number, value.findings});
    }
    const auto places = standing_out(numbers, MOST_STANDING_OUT);
    if (places.empty()) {
      return text;
    }
    text.append(" [median ").append(sorted[quartile(numbers, 2)].meaning.text);
    for (const std::size_t place : places) {
      text.append("; ").append(sorted[place].meaning.text);
      text += on_nodes(sorted[place].value);
    }
    return text + "]";
  }

 private:
  /// `cn001,cn002`: a folded set would be brackets in brackets, `[cn[001-002]]`.
  std::string names_of(const Numbers& nodes) const {
    std::vector<std::string> names;
    names.reserve(nodes.size());
    for (const std::uint32_t node : nodes) {
      names.emplace_back(node_names_(node));
    }
    std::sort(names.begin(), names.end(), stands_naturally_before);
    std::string text;
    for (const std::string& name : names) {
      text.append(text.empty() ? "" : ",").append(fold_node_names({{name}}));
    }
    return text;
  }

  std::string on_nodes(const PlaceValue& value) const {
    if (value.nodes.empty()) {
      return "";
    }
    const auto nodes = few_nodes(value.nodes);
    return " on " + (nodes.empty() ? std::to_string(each_once(value.nodes).size()) + " nodes"
                                   : names_of(nodes));
  }

  const NodeNames& node_names_;
  bool has_several_nodes_;
};

std::string first_of_many(const std::vector<PlaceValue>& sorted) {
  std::string text(sorted[0].text);
  for (std::size_t i = 1; i < FIRST_OF_MANY; ++i) {
    text.append(", ").append(sorted[i].text);
  }
  return text + " and " + std::to_string(sorted.size() - FIRST_OF_MANY) + " more";
}

}  // namespace

SortedValues sort_values(std::vector<PlaceValue> values, std::size_t needed) {
  if (const auto numbers = read_all(values, read_number)) {
    const NumberValue& first = numbers->front().meaning;
    return {ValueKind::NUMBER, first.before, first.behind, values_of(*numbers)};
  }
  if (const auto times = read_all(values, read_time)) {
    return {ValueKind::TIME, {}, {}, values_of(*times)};
  }
  sort_naturally(values, needed);
  return {ValueKind::OTHER, {}, {}, std::move(values)};
}

std::string summarize_place(std::vector<PlaceValue> values, const NodeNames& node_names,
                            bool has_several_nodes) {
  const PlaceWriter writer(node_names, has_several_nodes);
  if (values.size() <= MOST_SHOWN) {
    return writer.all_of(sort_values(std::move(values)).values);
  }
  if (const auto numbers = read_all(values, read_number)) {
    return writer.range_of(*numbers);
  }
  const SortedValues sorted = sort_values(std::move(values), FIRST_OF_MANY);
  if (sorted.kind == ValueKind::TIME) {
    return std::string(sorted.values.front().text).append(" to ").append(sorted.values.back().text);
  }
  return first_of_many(sorted.values);
}

}  // namespace vond::standalone
