#pragma once

#include <string_view>

namespace vond::standalone {

/// Whether `left` stands before `right` when runs of digits count as numbers and all else by its
/// bytes: `core.a9`, `core.a10`. A total order: texts that differ in leading zeros alone go by
/// bytes.
bool stands_naturally_before(std::string_view left, std::string_view right);

}  // namespace vond::standalone
