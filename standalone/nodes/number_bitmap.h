#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "standalone/nodes/number_key.h"

namespace vond::standalone {

/// Sorts numbers and drops repeated ones by setting a bit for each. That costs half of what sorting
/// them does, unless they are scattered, which the numbers of one axis seldom are.
class NumberBitmap {
 public:
  /// Makes room for the numbers; sets no bit yet.
  explicit NumberBitmap(const std::vector<NumberKey>& numbers);

  /// Whether the numbers stand so close that their bits take no more memory than they do.
  bool is_dense() const { return words_ <= number_count_; }

  /// Sorts the numbers that it was made for, and drops repeated ones.
  void sort(std::vector<NumberKey>& numbers) const;

 private:
  /// The bits of the numbers of one length.
  struct Range {
    NumberKey least;
    NumberKey greatest;
    std::size_t first_word;
    std::size_t words;
  };

  std::array<Range, LONG_NUMBER + 1> ranges_;
  std::size_t words_ = 0;
  std::size_t number_count_;
};

}  // namespace vond::standalone
