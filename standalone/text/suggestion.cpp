#include "standalone/text/suggestion.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include "standalone/text/ascii.h"
#include "standalone/text/messages.h"

namespace vond::standalone {

namespace {

// Longer words are no mistyped keys, and the distance takes time in the product of both lengths.
constexpr std::size_t LONGEST_WORD = 64;
// Shorter beginnings say too little about what was meant.
constexpr std::size_t SHORTEST_BEGINNING = 3;

/// The optimal string alignment distance: how many insertions, deletions, substitutions and swaps
/// of neighbours lead from one word to the other, no part being edited twice. V. I. Levenshtein,
/// "Binary codes capable of correcting deletions, insertions, and reversals" (1966); swaps: F. J.
/// Damerau, "A technique for computer detection and correction of spelling errors" (1964).
std::size_t edit_distance(std::string_view left, std::string_view right) {
  // 1. Rows of the table of distances between beginnings; only the last three are needed.
  std::vector<std::size_t> before_last(right.size() + 1);
  std::vector<std::size_t> last(right.size() + 1);
  std::vector<std::size_t> row(right.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= left.size(); ++i) {
    std::swap(before_last, last);
    std::swap(last, row);
    row[0] = i;
    for (std::size_t j = 1; j <= right.size(); ++j) {
      // 2. Substitute or keep, delete, insert.
      const std::size_t substitution = left[i - 1] == right[j - 1] ? 0 : 1;
      row[j] = std::min({last[j - 1] + substitution, last[j] + 1, row[j - 1] + 1});
      // 3. Swap two neighbours.
      if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
        row[j] = std::min(row[j], before_last[j - 2] + 1);
      }
    }
  }
  return row[right.size()];
}

/// One error in words of up to five letters, two up to eight, and so on.
std::size_t most_errors(std::string_view word, std::string_view candidate) {
  return std::max<std::size_t>(1, std::max(word.size(), candidate.size()) / 3);
}

bool is_beginning(std::string_view word, std::string_view candidate) {
  return word.size() >= SHORTEST_BEGINNING && candidate.substr(0, word.size()) == word;
}

}  // namespace

std::string_view nearest_candidate(std::string_view word,
                                   const std::vector<std::string_view>& candidates) {
  if (word.empty() || word.size() > LONGEST_WORD) {
    return {};
  }
  const std::string lower_word = lower_ascii(std::string(word));
  std::string_view nearest;
  std::size_t nearest_distance = LONGEST_WORD;
  for (const std::string_view candidate : candidates) {
    const std::string lower_candidate = lower_ascii(std::string(candidate));
    std::size_t distance = edit_distance(lower_word, lower_candidate);
    if (is_beginning(lower_word, lower_candidate)) {
      distance = std::min<std::size_t>(distance, 1);
    }
    if (distance < nearest_distance && distance <= most_errors(word, candidate)) {
      nearest = candidate;
      nearest_distance = distance;
    }
  }
  return nearest;
}

std::string suggestion_for(std::string_view word, const std::vector<std::string_view>& candidates) {
  const std::string_view nearest = nearest_candidate(word, candidates);
  if (nearest.empty()) {
    return "";
  }
  return "; did you mean " + in_quotes(nearest) + "?";
}

}  // namespace vond::standalone
