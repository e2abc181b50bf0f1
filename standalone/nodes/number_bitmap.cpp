#include "standalone/nodes/number_bitmap.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>

namespace vond::standalone {

namespace {

using Word = std::uint64_t;
constexpr std::size_t BITS = std::numeric_limits<Word>::digits;

}  // namespace

NumberBitmap::NumberBitmap(const std::vector<NumberKey>& numbers) : number_count_(numbers.size()) {
  ranges_.fill({std::numeric_limits<NumberKey>::max(), 0, 0, 0});
  for (const NumberKey number : numbers) {
    Range& range = ranges_[length_of(number)];
    range.least = std::min(range.least, number);
    range.greatest = std::max(range.greatest, number);
  }
  for (Range& range : ranges_) {
    if (range.least > range.greatest) {
      continue;
    }
    range.first_word = words_;
    range.words = (range.greatest - range.least) / BITS + 1;
    words_ += range.words;
  }
}

void NumberBitmap::sort(std::vector<NumberKey>& numbers) const {
  std::vector<Word> bitmap(words_);
  for (const NumberKey number : numbers) {
    const Range& range = ranges_[length_of(number)];
    const NumberKey bit = number - range.least;
    bitmap[range.first_word + bit / BITS] |= Word{1} << (bit % BITS);
  }
  numbers.clear();
  for (const Range& range : ranges_) {
    for (std::size_t i = 0; i < range.words; ++i) {
      for (Word word = bitmap[range.first_word + i]; word != 0; word &= word - 1) {
        numbers.push_back(range.least + i * BITS + static_cast<unsigned>(std::countr_zero(word)));
      }
    }
  }
}

}  // namespace vond::standalone
