#include "standalone/nodes/name_radix_sort.h"

#include <array>
#include <numeric>

namespace vond::standalone {

void NameRadixSort::sort(std::size_t axes) {
  // What is sorted last counts most.
  for (std::size_t axis = axes; axis-- > 0;) {
    sort_by_axis(axis);
  }
}

void NameRadixSort::sort_by_axis(std::size_t axis) {
  // Bytes that are the same everywhere are left out: few are not, as names hold small numbers of a
  // few lengths.
  NumberKey varying = 0;
  for (const NumberKey* name : names_) {
    varying |= name[axis] ^ names_.front()[axis];
  }
  for (unsigned shift = 0; shift < 64; shift += 8) {
    if (((varying >> shift) & 0xFFU) != 0) {
      sort_by_byte(axis, shift);
    }
  }
}

void NameRadixSort::sort_by_byte(std::size_t axis, unsigned shift) {
  const auto byte_of = [=](const NumberKey* name) { return (name[axis] >> shift) & 0xFFU; };
  std::array<std::size_t, 257> starts = {};
  for (const NumberKey* name : names_) {
    ++starts[byte_of(name) + 1];
  }
  std::partial_sum(starts.begin(), starts.end(), starts.begin());
  for (const NumberKey* name : names_) {
    scratch_[starts[byte_of(name)]++] = name;
  }
  names_.swap(scratch_);
}

}  // namespace vond::standalone
