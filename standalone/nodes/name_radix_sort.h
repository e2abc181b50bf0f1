#pragma once

#include <cstddef>
#include <vector>

#include "standalone/nodes/number_key.h"

namespace vond::standalone {

/// Sorts names by their bytes instead of comparing them, in a time that is linear in their number,
/// so that a name of a large set costs what it costs in a small one. Few names do not make up for
/// its tables.
class NameRadixSort {
 public:
  /// A name is a pointer to its numbers. `names` is to outlive this.
  explicit NameRadixSort(std::vector<const NumberKey*>& names)
      : names_(names), scratch_(names.size()) {}

  /// Sorts by the first `axes` numbers of the names; equal names keep their order.
  void sort(std::size_t axes);

 private:
  void sort_by_axis(std::size_t axis);
  void sort_by_byte(std::size_t axis, unsigned shift);

  std::vector<const NumberKey*>& names_;
  std::vector<const NumberKey*> scratch_;
};

}  // namespace vond::standalone
