#include "standalone/patterns/placeholders.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "standalone/nodes/number_sorting.h"
#include "standalone/patterns/natural_order.h"
#include "standalone/patterns/text_marks.h"

namespace vond::standalone {
namespace {

Placeholder::Kind kind_of(ValueKind kind) {
  switch (kind) {
    case ValueKind::NUMBER:
      return Placeholder::Kind::NUMBER;
    case ValueKind::TIME:
      return Placeholder::Kind::TIME;
    default:
      return Placeholder::Kind::TEXT;
  }
}

Placeholder placeholder_of(std::vector<PlaceValue> values) {
  const SortedValues sorted = sort_values(std::move(values));
  Placeholder placeholder{kind_of(sorted.kind), std::string(sorted.behind), {}};
  placeholder.values.reserve(sorted.values.size());
  for (const PlaceValue& value : sorted.values) {
    placeholder.values.push_back(
        {std::string(value.text), {value.nodes.begin(), value.nodes.end()}});
    sort_unique(placeholder.values.back().nodes);
  }
  return placeholder;
}

Placeholder node_placeholder(const PatternIssue& issue, const NodeNames& node_names) {
  Placeholder placeholder{Placeholder::Kind::NODE, {}, {}};
  for (const std::uint32_t node : issue.nodes()) {
    placeholder.values.push_back({std::string(node_names(node)), {node}});
  }
  std::sort(placeholder.values.begin(), placeholder.values.end(),
            [](const Placeholder::Value& left, const Placeholder::Value& right) {
              return stands_naturally_before(left.text, right.text);
            });
  return placeholder;
}

/// Calls `visit` with each byte of marked text that is a mark.
template <typename Visit>
void for_each_mark(std::string_view marked, Visit visit) {
  for (std::size_t at = 0; at < marked.size(); ++at) {
    if (marked[at] == text_marks::ESCAPE) {
      ++at;
    } else if (text_marks::is_mark(marked[at])) {
      visit(marked[at], at);
    }
  }
}

}  // namespace

std::vector<Placeholder> placeholders_of(const PatternIssue& issue, PatternSummaries& summaries,
                                         const NodeNames& node_names) {
  std::vector<Placeholder> placeholders;
  std::size_t place = 0;
  for_each_mark(issue.key(), [&](char mark, std::size_t /*at*/) {
    if (mark == text_marks::PLACE) {
      placeholders.push_back(placeholder_of(summaries.values_at(issue, place++)));
    } else if (mark == text_marks::NAME) {
      placeholders.push_back(node_placeholder(issue, node_names));
    }
  });
  return placeholders;
}

std::vector<std::string> shown_patterns(const PatternIssue& issue) {
  const std::string_view key = issue.key();
  std::vector<std::string> texts;
  std::string text;
  std::size_t shown = 0;
  for_each_mark(key, [&](char mark, std::size_t at) {
    if (mark != text_marks::PLACE && mark != text_marks::TEXT_END) {
      return;
    }
    text_marks::append_shown(text, key.substr(shown, at - shown));
    shown = at + 1;
    if (mark == text_marks::PLACE) {
      text += "<*>";
    } else {
      texts.push_back(std::exchange(text, {}));
    }
  });
  return texts;
}

}  // namespace vond::standalone
