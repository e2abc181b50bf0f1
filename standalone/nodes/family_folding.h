#pragma once

#include <string>
#include <string_view>

#include "standalone/nodes/name_families.h"
#include "standalone/nodes/number_table.h"

namespace vond::standalone {

/// Appends the names of a family with at least one axis as the terms of a node set, each with a
/// comma behind it. Brackets stand on the last axis and on one earlier axis, that which leaves the
/// fewest terms. Sorts the family's names and drops repeated ones.
void append_folded_family(std::string_view structure, Family& family, const NumberTable& table,
                          std::string& text);

}  // namespace vond::standalone
