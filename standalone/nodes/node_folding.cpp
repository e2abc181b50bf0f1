#include "standalone/nodes/node_folding.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <span>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "standalone/nodes/name_families.h"
#include "standalone/nodes/name_sorting.h"
#include "standalone/nodes/number_table.h"

namespace vond::standalone {

namespace {

/// Writes the numbers of one axis, which are sorted and each once.
class NumberWriter {
 public:
  explicit NumberWriter(const NumberTable& table) : table_(table) {}

  void append_number(NumberKey number, std::string& text) const { table_.append(number, text); }

  /// In brackets when there are several or `always_brackets`.
  void append_numbers(std::span<const NumberKey> numbers, bool always_brackets,
                      std::string& text) const {
    const bool brackets = always_brackets || numbers.size() > 1;
    if (brackets) {
      text += '[';
    }
    append_runs(numbers, text);
    if (brackets) {
      text += ']';
    }
  }

 private:
  /// How the numbers of a run are written. Readers take it from the run's first number.
  struct Padding {
    bool padded;
    std::size_t digits;
  };

  Padding padding_of(NumberKey number) const {
    return {table_.is_padded(number), table_.digit_count(number)};
  }

  bool fits(NumberKey number, const Padding& padding) const {
    return padding.padded ? table_.digit_count(number) == padding.digits
                          : !table_.is_padded(number);
  }

  void append_runs(std::span<const NumberKey> numbers, std::string& text) const {
    std::size_t first = 0;
    Padding padding = padding_of(numbers[0]);
    for (std::size_t i = 1; i < numbers.size(); ++i) {
      const bool same_padding = fits(numbers[i], padding);
      if (same_padding && table_.follows(numbers[i - 1], numbers[i])) {
        continue;
      }
      append_run(numbers.subspan(first, i - first), text);
      text += ',';
      // After a single number its padding stays in force: 08,99,100 rather than 08,99-100, because
      // 99 can be one of the padded numbers as well.
      if (!same_padding || i - first > 1) {
        padding = padding_of(numbers[i]);
      }
      first = i;
    }
    append_run(numbers.subspan(first), text);
  }

  void append_run(std::span<const NumberKey> run, std::string& text) const {
    table_.append(run.front(), text);
    if (run.size() == 1) {
      return;
    }
    text += '-';
    table_.append(run.back(), text);
  }

  const NumberTable& table_;
};

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

/// Folds the names of one family that has at least one axis.
class FamilyFolder {
 public:
  /// Sorts the family's names.
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

/// A structure and the text that it is sorted by: `%s` for every number.
struct SortedFamily {
  std::string pattern;
  std::string_view structure;
  Family* family;
};

std::vector<SortedFamily> sort_families(std::unordered_map<std::string, Family>& families) {
  std::vector<SortedFamily> sorted;
  sorted.reserve(families.size());
  for (auto& [structure, family] : families) {
    std::string pattern;
    for (const char c : structure) {
      if (c == NUMBER_MARK) {
        pattern += "%s";
      } else {
        pattern += c;
      }
    }
    sorted.push_back({std::move(pattern), structure, &family});
  }
  std::sort(sorted.begin(), sorted.end(), [](const SortedFamily& a, const SortedFamily& b) {
    // A name may hold "%s" itself, so patterns can be equal.
    const int order = a.pattern.compare(b.pattern);
    return order != 0 ? order < 0 : a.structure < b.structure;
  });
  return sorted;
}

/// Appends names in the shell's single quotes, so that whatever they hold does nothing when pasted.
void append_quoted_names(std::vector<std::string_view>& names, std::string& text) {
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  for (const std::string_view name : names) {
    text += '\'';
    for (const char c : name) {
      if (c == '\'') {
        text += "'\\''";
      } else {
        text += c;
      }
    }
    text += "',";
  }
}

}  // namespace

std::string fold_node_names(const std::vector<std::vector<std::string>>& node_lists) {
  // 1. Sort the names into families.
  NameSorter names;
  for (const auto& list : node_lists) {
    for (const std::string& name : list) {
      names.add(name);
    }
  }
  names.settle();

  // 2. Fold each family; every term is written with a comma behind it.
  std::string text;
  for (const auto& [pattern, structure, family] : sort_families(names.families())) {
    if (family->axes == 0) {
      text.append(structure).append(1, ',');
    } else {
      FamilyFolder(structure, *family, names.table()).append_terms(text);
    }
  }

  // 3. The names that cannot be folded.
  append_quoted_names(names.odd_names(), text);
  if (text.empty()) {
    return "none";
  }
  text.pop_back();
  return text;
}

}  // namespace vond::standalone
