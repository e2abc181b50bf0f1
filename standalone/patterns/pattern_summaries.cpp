#include "standalone/patterns/pattern_summaries.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <utility>

#include "standalone/patterns/text_marks.h"

namespace vond::standalone {
namespace {

/// Returns how much of a key stands before its first place or end of a text.
std::size_t text_size(std::string_view key) {
  std::size_t at = 0;
  while (at < key.size() && key[at] != text_marks::PLACE && key[at] != text_marks::TEXT_END) {
    at += key[at] == text_marks::ESCAPE ? 2 : 1;
  }
  return at;
}

}  // namespace

PatternSummaries::PatternSummaries(const ValueTable& table, const NodeNames& node_names)
    : table_(table), node_names_(node_names), number_of_value_(table.size(), NO_NUMBER) {}

std::vector<std::string> PatternSummaries::shown_texts(const PatternIssue& issue) {
  const bool has_several_nodes = issue.places() > 0 && issue.has_several_nodes();
  const std::string& key = issue.key();
  std::vector<std::string> texts;
  std::string text;
  std::size_t place = 0;
  for (std::size_t at = 0; at < key.size(); ++at) {
    if (key[at] == text_marks::PLACE) {
      text += summarize_place(values_at(issue, place++), node_names_, has_several_nodes);
    } else if (key[at] == text_marks::TEXT_END) {
      texts.push_back(std::exchange(text, {}));
    } else {
      const std::size_t size = text_size(std::string_view(key).substr(at));
      text_marks::append_shown(text, std::string_view(key).substr(at, size));
      at += size - 1;
    }
  }
  return texts;
}

std::vector<PlaceValue> PatternSummaries::values_at(const PatternIssue& issue, std::size_t place) {
  forget_values();
  for (const auto& part : issue.parts_) {
    number_entries(part, part.open[place]);
  }
  std::vector<PlaceValue> values;
  values.reserve(texts_.size());
  for (const std::string_view text : texts_) {
    values.push_back({text, 0, {}});
  }
  std::vector<std::size_t> nodes_of_value(texts_.size());
  for_each_finding(issue, [&](std::uint32_t number, const PatternGroup::Occurrence& finding) {
    values[number].findings += finding.count;
    nodes_of_value[number] += finding.nodes.size();
  });
  share_out_nodes(issue, nodes_of_value);
  const std::uint32_t* begin = nodes_.data();
  for (std::size_t number = 0; number < values.size(); ++number) {
    values[number].nodes = {begin, nodes_of_value[number]};
    begin += nodes_of_value[number];
  }
  return values;
}

void PatternSummaries::share_out_nodes(const PatternIssue& issue,
                                       const std::vector<std::size_t>& nodes_of_value) {
  std::vector<std::size_t> next(nodes_of_value.size());
  std::exclusive_scan(nodes_of_value.begin(), nodes_of_value.end(), next.begin(), std::size_t{0});
  nodes_.resize(std::accumulate(nodes_of_value.begin(), nodes_of_value.end(), std::size_t{0}));
  for_each_finding(issue, [&](std::uint32_t number, const PatternGroup::Occurrence& finding) {
    std::copy(finding.nodes.begin(), finding.nodes.end(), nodes_.data() + next[number]);
    next[number] += finding.nodes.size();
  });
}

template <typename Visit>
void PatternSummaries::for_each_finding(const PatternIssue& issue, Visit visit) const {
  std::size_t first_entry = 0;
  for (const auto& part : issue.parts_) {
    part.group.for_each([&](const PatternGroup::Occurrence& finding) {
      visit(entry_numbers_[first_entry + finding.entry], finding);
    });
    first_entry += part.group.entries();
  }
}

void PatternSummaries::forget_values() {
  texts_.clear();
  numbers_.clear();
  made_texts_.clear();
  entry_numbers_.clear();
}

void PatternSummaries::number_entries(const PatternIssue::Part& part,
                                      const PatternIssue::OpenPlace& place) {
  const auto entries = static_cast<PatternGroup::Entry>(part.group.entries());
  for (PatternGroup::Entry entry = 0; entry < entries; ++entry) {
    const ValueTable::Id value = part.group.value(entry, place.column);
    std::uint32_t& number = number_of_value_[value];
    if (number == NO_NUMBER) {
      number = number_of(shown(value, place.only_node));
    }
    entry_numbers_.push_back(number);
  }
  // In another part NODE may stand for another.
  for (PatternGroup::Entry entry = 0; entry < entries; ++entry) {
    number_of_value_[part.group.value(entry, place.column)] = NO_NUMBER;
  }
}

std::string_view PatternSummaries::shown(ValueTable::Id value, std::uint32_t only_node) {
  const std::string_view marked = table_[value];
  if (!text_marks::holds_marks(marked)) {
    return marked;
  }
  std::string& text = made_texts_.emplace_back();
  if (only_node == PatternIssue::NO_NODE) {
    text_marks::append_shown(text, marked);
  } else {
    text_marks::append_original(text, marked, node_names_(only_node));
  }
  return text;
}

std::uint32_t PatternSummaries::number_of(std::string_view text) {
  const auto [place, is_new] =
      numbers_.try_emplace(text, static_cast<std::uint32_t>(texts_.size()));
  if (is_new) {
    texts_.push_back(text);
  }
  return place->second;
}

}  // namespace vond::standalone
