#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vond::standalone {

/// Where lists and table rows end in a report that is not wrapped, in terminal columns.
inline constexpr int UNWRAPPED_WIDTH = 160;

/// Returns `text`, or as many of its grapheme clusters as leave room for the "..." behind them when
/// it is wider than `columns`, in terminal columns.
std::string cut_text(std::string_view text, std::size_t columns);

/// How a list of a block is laid out.
struct ListLayout {
  /// What stands before the list: an indent, a label, a blank.
  std::string lead = {};
  /// Of the lines behind the first.
  std::string indent = "    ";
  /// In terminal columns; 0 or less means no wrapping, and then a list ends at UNWRAPPED_WIDTH.
  int width = 0;
};

/// Returns the text of the first `count` items of a list; `count` is at least 1.
using FirstItems = std::function<std::string(std::size_t count)>;

/// Returns the first item of a list with at most `columns` columns of what may be cut of it.
using CutItem = std::function<std::string(std::size_t columns)>;

/// Returns the lead and the items, wrapped, without a line end. They take no more than two lines,
/// where the lead alone takes more than one a line more than that; items that do not fit are
/// counted: "a, b and 12 more". An item that does not even fit alone is cut.
std::string limited_list(const ListLayout& layout, std::size_t count, const FirstItems& first_items,
                         const CutItem& cut_first_item);

/// As above; an item is cut at its end.
std::string limited_list(const ListLayout& layout, std::size_t count,
                         const FirstItems& first_items);

/// As above; the items are texts.
std::string limited_list(const ListLayout& layout, const std::vector<std::string>& items);

/// As above, of node names, which are folded. When the set is cut, the names that are shown are
/// folded by themselves, so that a part never looks like the whole: "cn[001,007] and 12 more".
std::string limited_node_set(const ListLayout& layout, const std::vector<std::string>& names);

}  // namespace vond::standalone
