#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vond::standalone {

/// Returns `; did you mean "CANDIDATE"?` for the candidate that `word` was most likely meant to be,
/// "" when none is near.
std::string suggestion_for(std::string_view word, const std::vector<std::string_view>& candidates);

}  // namespace vond::standalone
