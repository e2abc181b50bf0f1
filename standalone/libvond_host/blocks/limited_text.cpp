#include "standalone/libvond_host/blocks/limited_text.h"

#include <algorithm>

#include "standalone/nodes/node_folding.h"
#include "standalone/nodes/node_set.h"
#include "standalone/text/columns.h"
#include "standalone/text/messages.h"
#include "standalone/text/text_wrapping.h"

namespace vond::standalone {
namespace {

constexpr std::string_view ELLIPSIS = "...";

std::size_t count_lines(const std::string& text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
}

/// Knows which texts are short enough behind a lead.
class LineLimit {
 public:
  explicit LineLimit(const ListLayout& layout)
      : layout_(layout), most_lines_(count_lines(wrap(layout.lead + "x")) + 1) {}

  std::string with_lead(const std::string& list) const { return wrap(layout_.lead + list); }

  bool fits(const std::string& list) const {
    if (layout_.width <= 0) {
      return count_columns(layout_.lead + list, UNWRAPPED_WIDTH) <= UNWRAPPED_WIDTH;
    }
    return count_lines(with_lead(list)) <= most_lines_;
  }

  /// No list that fits has more columns.
  std::size_t most_columns() const {
    constexpr std::size_t MIN_ROOM = 16;
    const auto width =
        static_cast<std::size_t>(layout_.width <= 0 ? UNWRAPPED_WIDTH : layout_.width);
    return most_lines_ * std::max(width, layout_.indent.size() + MIN_ROOM);
  }

 private:
  std::string wrap(const std::string& text) const {
    return wrap_text(text, {.width = layout_.width, .indent = layout_.indent});
  }

  const ListLayout& layout_;
  std::size_t most_lines_;
};

/// Returns the largest number below `end` that is good, 0 when none is. Numbers above one that is
/// not good are taken for not good either; looks at few numbers far above the result.
template <typename IsGood>
std::size_t largest_good(std::size_t end, IsGood is_good) {
  std::size_t good = 0;
  std::size_t bad = 1;
  while (bad < end && is_good(bad)) {
    good = bad;
    bad *= 2;
  }
  bad = std::min(bad, end);
  while (bad - good > 1) {
    const std::size_t middle = good + (bad - good) / 2;
    (is_good(middle) ? good : bad) = middle;
  }
  return good;
}

std::string count_of_others(std::size_t count) {
  return count == 0 ? std::string() : " and " + std::to_string(count) + " more";
}

/// Returns the names in the order in which their folded set has them, each once.
std::vector<std::string> in_folded_order(const std::vector<std::string>& names) {
  try {
    return expand_node_set(fold_node_names({names}));
  } catch (const NodeSetError&) {
    // There are more of them than a set may have.
    std::vector<std::string> sorted = names;
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    return sorted;
  }
}

}  // namespace

std::string cut_text(std::string_view text, std::size_t columns) {
  if (count_columns(text, columns) <= columns) {
    return std::string(text);
  }
  const std::size_t room = columns - std::min(columns, ELLIPSIS.size());
  std::size_t size = 0;
  std::size_t column = 0;
  while (size < text.size()) {
    const Cluster cluster = first_cluster(text.substr(size));
    if (column + cluster.columns > room) {
      break;
    }
    size += cluster.size;
    column += cluster.columns;
  }
  return std::string(text.substr(0, size)).append(ELLIPSIS);
}

std::string limited_list(const ListLayout& layout, std::size_t count, const FirstItems& first_items,
                         const CutItem& cut_first_item) {
  const LineLimit limit(layout);
  const std::string all = first_items(count);
  if (limit.fits(all)) {
    return limit.with_lead(all);
  }
  const auto cut_behind = [&](std::size_t shown) {
    return first_items(shown) + count_of_others(count - shown);
  };
  const std::size_t shown =
      largest_good(count, [&](std::size_t number) { return limit.fits(cut_behind(number)); });
  if (shown != 0) {
    return limit.with_lead(cut_behind(shown));
  }
  const auto cut_within = [&](std::size_t columns) {
    return cut_first_item(columns) + count_of_others(count - 1);
  };
  const std::size_t columns = largest_good(
      limit.most_columns(), [&](std::size_t number) { return limit.fits(cut_within(number)); });
  return limit.with_lead(cut_within(columns));
}

std::string limited_list(const ListLayout& layout, std::size_t count,
                         const FirstItems& first_items) {
  std::string first;
  return limited_list(layout, count, first_items, [&](std::size_t columns) {
    if (first.empty()) {
      first = first_items(1);
    }
    return cut_text(first, columns);
  });
}

std::string limited_list(const ListLayout& layout, const std::vector<std::string>& items) {
  return limited_list(layout, items.size(), [&](std::size_t count) {
    return join_with(std::span(items).first(count), ", ");
  });
}

std::string limited_node_set(const ListLayout& layout, const std::vector<std::string>& names) {
  std::vector<std::string> ordered;
  return limited_list(layout, names.size(), [&](std::size_t count) {
    if (count == names.size()) {
      return fold_node_names({names});
    }
    if (ordered.empty()) {
      ordered = in_folded_order(names);
    }
    const auto shown = static_cast<std::ptrdiff_t>(std::min(count, ordered.size()));
    return fold_node_names({{ordered.begin(), ordered.begin() + shown}});
  });
}

}  // namespace vond::standalone
