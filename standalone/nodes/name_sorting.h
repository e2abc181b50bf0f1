#pragma once

#include <cstddef>
#include <vector>

#include "standalone/nodes/number_key.h"

namespace vond::standalone {

/// Sorts the names of one family, `axes` (at least one) numbers a name one after the other, axis by
/// axis, and drops repeated ones.
void sort_names(std::vector<NumberKey>& numbers, std::size_t axes);

}  // namespace vond::standalone
