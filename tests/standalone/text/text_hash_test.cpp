#include "standalone/text/text_hash.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

using vond::standalone::hash_of_text;

TEST(TextHash, DependsOnEveryByteInItsLowestBits) {
  for (std::size_t size = 1; size <= 40; ++size) {
    const std::string text(size, 'a');
    for (std::size_t at = 0; at < size; ++at) {
      std::set<std::size_t> low_bits;
      for (int byte = 0; byte < 256; ++byte) {
        std::string other = text;
        other[at] = static_cast<char>(byte);
        low_bits.insert(hash_of_text(other) % 4096);
      }
      EXPECT_GT(low_bits.size(), 200U) << size << " " << at;
    }
  }
}

TEST(TextHash, TellsTextsOfZerosApartByTheirSizes) {
  std::set<std::size_t> hashes;
  for (std::size_t size = 0; size <= 40; ++size) {
    hashes.insert(hash_of_text(std::string(size, '\0')));
  }
  EXPECT_EQ(hashes.size(), 41U);
}

}  // namespace
