#include "standalone/nodes/family_folding.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <span>
#include <utility>
#include <vector>

#include "standalone/nodes/name_sorting.h"
#include "standalone/nodes/number_writer.h"

namespace vond::standalone {

namespace {

/// Returns for each of `count` things the lowest index of a thing that is equal to it.
template <typename Less>
std::vector<std::uint32_t> lowest_equal_index(std::size_t count, Less less) {
  std::vector<std::uint32_t> order(count);
  std::iota(order.begin(), order.end(), 0U);
  std::sort(order.begin(), order.end(), less);
  std::vector<std::uint32_t> lowest(count);
  for (auto first = order.begin(); first != order.end();) {
    const auto end =
        std::find_if(first, order.end(), [&](auto other) { return less(*first, other); });
    const std::uint32_t lowest_equal = *std::min_element(first, end);
    for (; first != end; ++first) {
      lowest[*first] = lowest_equal;
    }
  }
  return lowest;
}

class FamilyFolder {
 public:
  FamilyFolder(std::string_view structure, Family& family, const NumberTable& table)
      : structure_(structure), family_(family), writer_(table) {
    sort_names(family.numbers, family.axes);
    fold_last_axis();
    fold_earlier_axis();
  }

  /// Appends the terms, each with a comma behind it.
  void append_terms(std::string& text) const {
    std::vector<std::uint32_t> order(groups_.size());
    std::iota(order.begin(), order.end(), 0U);
    std::sort(order.begin(), order.end(), [this](auto a, auto b) {
      return std::pair(term_of_group_[a], a) < std::pair(term_of_group_[b], b);
    });
    std::vector<NumberKey> earlier;
    for (std::size_t first = 0; first < order.size();) {
      std::size_t end = first;
      earlier.clear();
      for (; end < order.size() && term_of_group_[order[end]] == order[first]; ++end) {
        earlier.push_back(groups_[order[end]].prefix[earlier_axis_]);
      }
      append_term(groups_[order[first]], earlier, text);
      text += ',';
      first = end;
    }
  }

 private:
  /// The names that differ in their last number alone.
  struct Group {
    /// The numbers of its first name; all but the last one are those of all its names.
    const NumberKey* prefix;
    std::span<const NumberKey> lasts;
  };

  std::size_t last_axis() const { return family_.axes - 1; }
  std::size_t name_count() const { return family_.numbers.size() / family_.axes; }
  const NumberKey* name(std::size_t index) const {
    return family_.numbers.data() + index * family_.axes;
  }

  void fold_last_axis() {
    lasts_.reserve(name_count());
    for (std::size_t i = 0; i < name_count(); ++i) {
      lasts_.push_back(name(i)[last_axis()]);
    }
    std::size_t first = 0;
    for (std::size_t i = 1; i <= name_count(); ++i) {
      if (i < name_count() && std::equal(name(i), name(i) + last_axis(), name(first))) {
        continue;
      }
      groups_.push_back({name(first), std::span(lasts_).subspan(first, i - first)});
      first = i;
    }
  }

  /// Finds the earlier axis whose folding leaves the fewest terms. Groups become one term on an
  /// axis when they are equal left of it and right of it, the set of last numbers included. What is
  /// equal gets the same id on either side, so that a step costs the same for every axis.
  void fold_earlier_axis() {
    term_of_group_.resize(groups_.size());
    std::iota(term_of_group_.begin(), term_of_group_.end(), 0U);
    std::size_t fewest = groups_.size();
    if (fewest == 1) {
      return;
    }

    // 1. Right of the last earlier axis are the sets of last numbers.
    std::vector<std::uint32_t> right = ids_of_lasts();
    const std::vector<std::size_t> shared = shared_numbers();
    // 2. From right to left, so that of equally good axes the rightmost is kept. An axis with one
    //    number everywhere can save nothing and makes no difference to what is right of others.
    for (std::size_t axis = last_axis(); axis-- > 0;) {
      if (is_constant(axis)) {
        continue;
      }
      std::vector<std::uint32_t> terms = fold_axis(axis, shared, right);
      const std::size_t count = count_terms(terms);
      if (count < fewest) {
        fewest = count;
        earlier_axis_ = axis;
        term_of_group_ = std::move(terms);
      }
      // 3. For the next axis this one is on the right.
      right = ids_with_axis(axis, right);
    }
  }

  std::vector<std::uint32_t> ids_of_lasts() const {
    return lowest_equal_index(groups_.size(), [this](std::size_t a, std::size_t b) {
      const auto& x = groups_[a].lasts;
      const auto& y = groups_[b].lasts;
      if (x.size() != y.size()) {
        return x.size() < y.size();
      }
      return std::lexicographical_compare(x.begin(), x.end(), y.begin(), y.end());
    });
  }

  std::vector<std::uint32_t> ids_with_axis(std::size_t axis,
                                           const std::vector<std::uint32_t>& right) const {
    return lowest_equal_index(groups_.size(), [&](std::size_t a, std::size_t b) {
      const NumberKey x = groups_[a].prefix[axis];
      const NumberKey y = groups_[b].prefix[axis];
      return x != y ? x < y : right[a] < right[b];
    });
  }

  /// Returns for each group how many numbers at its start are those of the group before.
  std::vector<std::size_t> shared_numbers() const {
    std::vector<std::size_t> shared(groups_.size(), 0);
    for (std::size_t i = 1; i < groups_.size(); ++i) {
      const NumberKey* prefix = groups_[i].prefix;
      const auto differing = std::mismatch(prefix, prefix + last_axis(), groups_[i - 1].prefix);
      shared[i] = static_cast<std::size_t>(differing.first - prefix);
    }
    return shared;
  }

  bool is_constant(std::size_t axis) const {
    const NumberKey number = groups_.front().prefix[axis];
    return std::all_of(groups_.begin(), groups_.end(),
                       [&](const Group& group) { return group.prefix[axis] == number; });
  }

  /// Returns for each group the first group of its term when `axis` is folded.
  std::vector<std::uint32_t> fold_axis(std::size_t axis, const std::vector<std::size_t>& shared,
                                       const std::vector<std::uint32_t>& right) const {
    // The groups are sorted: those that are equal left of the axis stand together.
    std::vector<std::uint64_t> sides(groups_.size());
    std::uint64_t left = 0;
    for (std::size_t i = 0; i < sides.size(); ++i) {
      if (shared[i] < axis) {
        ++left;
      }
      sides[i] = (left << 32U) | right[i];
    }
    return lowest_equal_index(sides.size(), [&](auto a, auto b) { return sides[a] < sides[b]; });
  }

  static std::size_t count_terms(const std::vector<std::uint32_t>& term_of_group) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < term_of_group.size(); ++i) {
      count += term_of_group[i] == i ? 1 : 0;
    }
    return count;
  }

  void append_term(const Group& group, std::span<const NumberKey> earlier,
                   std::string& text) const {
    // Slurm reads brackets in the middle of a name only if the name ends in brackets as well.
    const bool last_in_brackets = earlier.size() > 1 && structure_.back() == NUMBER_MARK;
    std::size_t axis = 0;
    for (const char c : structure_) {
      if (c != NUMBER_MARK) {
        text += c;
        continue;
      }
      if (axis == last_axis()) {
        writer_.append_numbers(group.lasts, last_in_brackets, text);
      } else if (axis == earlier_axis_) {
        writer_.append_numbers(earlier, false, text);
      } else {
        writer_.append_number(group.prefix[axis], text);
      }
      ++axis;
    }
  }

  std::string_view structure_;
  Family& family_;
  NumberWriter writer_;
  std::vector<NumberKey> lasts_;
  /// Sorted by their first names.
  std::vector<Group> groups_;
  /// For each group the index of the first group that is folded into the same term.
  std::vector<std::uint32_t> term_of_group_;
  std::size_t earlier_axis_ = 0;
};

}  // namespace

void append_folded_family(std::string_view structure, Family& family, const NumberTable& table,
                          std::string& text) {
  FamilyFolder(structure, family, table).append_terms(text);
}

}  // namespace vond::standalone
