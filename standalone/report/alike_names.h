#pragma once

#include <string>
#include <utility>
#include <vector>

namespace vond::standalone {

/// Returns a pair for each of the expected names that a name in `seen` differs from in domain, case
/// or leading zeros of numbers alone; the first such name where there are several. Addresses have
/// no domain. In the order of `expected`.
std::vector<std::pair<std::string, std::string>> find_alike_names(
    const std::vector<std::string>& expected, const std::vector<std::string>& seen);

}  // namespace vond::standalone
