#include "standalone/nodes/name_sorting.h"

#include <algorithm>
#include <utility>

#include "standalone/nodes/name_radix_sort.h"
#include "standalone/nodes/number_bitmap.h"

namespace vond::standalone {

namespace {

constexpr std::size_t LEAST_NAMES_FOR_RADIX_SORT = 256;

/// Sorts names of several axes, and drops repeated ones.
class NameSorter {
 public:
  NameSorter(std::vector<NumberKey>& numbers, std::size_t axes) : numbers_(numbers), axes_(axes) {
    for (std::size_t at = 0; at < numbers.size(); at += axes) {
      names_.push_back(&numbers[at]);
    }
  }

  void sort() {
    const auto less = [this](const NumberKey* a, const NumberKey* b) { return is_less(a, b); };
    if (names_.size() < LEAST_NAMES_FOR_RADIX_SORT) {
      std::sort(names_.begin(), names_.end(), less);
    } else if (!std::is_sorted(names_.begin(), names_.end(), less)) {
      NameRadixSort(names_).sort(axes_);
    }
    numbers_ = distinct_names();
  }

 private:
  bool is_less(const NumberKey* a, const NumberKey* b) const {
    return std::lexicographical_compare(a, a + axes_, b, b + axes_);
  }

  /// Returns the numbers of the sorted names, each name once.
  std::vector<NumberKey> distinct_names() const {
    std::vector<NumberKey> distinct;
    distinct.reserve(numbers_.size());
    for (std::size_t i = 0; i < names_.size(); ++i) {
      if (i == 0 || is_less(names_[i - 1], names_[i])) {
        distinct.insert(distinct.end(), names_[i], names_[i] + axes_);
      }
    }
    return distinct;
  }

  std::vector<NumberKey>& numbers_;
  const std::size_t axes_;
  std::vector<const NumberKey*> names_;
};

}  // namespace

void sort_names(std::vector<NumberKey>& numbers, std::size_t axes) {
  if (axes == 1) {
    const NumberBitmap bitmap(numbers);
    if (bitmap.is_dense()) {
      bitmap.sort(numbers);
      return;
    }
  }
  NameSorter(numbers, axes).sort();
}

}  // namespace vond::standalone
