#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vond::standalone {

/// Returns what to do about a group, `@compute`, that begins at `offset` of a node set, the place
/// of an error in it; "" where there is none. Only the tool that knows a group can tell its nodes.
std::string group_hint(std::string_view set, std::size_t offset);

}  // namespace vond::standalone
