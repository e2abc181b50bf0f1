#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vond::standalone {

/// Returns `; did you mean "CANDIDATE"?` for the candidate that `word` was most likely meant to be,
/// "" when none is near. Near is a word with few typing errors, whatever its case, and one that
/// begins a candidate; of candidates equally near the first one counts.
std::string suggestion_for(std::string_view word, const std::vector<std::string_view>& candidates);

/// Returns the candidate that suggestion_for() names, "" when none is near.
std::string_view nearest_candidate(std::string_view word,
                                   const std::vector<std::string_view>& candidates);

}  // namespace vond::standalone
