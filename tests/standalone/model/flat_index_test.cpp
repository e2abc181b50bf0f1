#include "standalone/model/flat_index.h"

#include <gtest/gtest.h>

#include <random>
#include <unordered_map>
#include <vector>

namespace {

using vond::standalone::FlatIndex;

/// Keys and an index of them, by hashes that the test makes up.
class IndexedKeys {
 public:
  FlatIndex::Number find(int key, std::size_t hash) const {
    return index_.find(hash, [&](FlatIndex::Number number) { return keys_[number] == key; });
  }
  FlatIndex::Number add(int key, std::size_t hash) {
    keys_.push_back(key);
    return index_.add(hash);
  }
  std::size_t size() const { return index_.size(); }

 private:
  std::vector<int> keys_;
  FlatIndex index_;
};

TEST(FlatIndex, FindsNothingWhenEmpty) {
  const IndexedKeys keys;
  EXPECT_EQ(keys.find(1, 1), FlatIndex::NONE);
  EXPECT_EQ(keys.size(), 0U);
}

TEST(FlatIndex, NumbersItemsInTheOrderInWhichTheyAreAdded) {
  IndexedKeys keys;
  EXPECT_EQ(keys.add(7, 70), 0U);
  EXPECT_EQ(keys.add(8, 80), 1U);
  EXPECT_EQ(keys.find(7, 70), 0U);
  EXPECT_EQ(keys.find(8, 80), 1U);
  EXPECT_EQ(keys.find(9, 90), FlatIndex::NONE);
  EXPECT_EQ(keys.size(), 2U);
}

TEST(FlatIndex, TellsKeysOfOneHashApart) {
  IndexedKeys keys;
  for (int key = 0; key < 1000; ++key) {
    EXPECT_EQ(keys.find(key, 5), FlatIndex::NONE);
    keys.add(key, 5);
  }
  for (int key = 0; key < 1000; ++key) {
    EXPECT_EQ(keys.find(key, 5), static_cast<FlatIndex::Number>(key));
  }
}

TEST(FlatIndex, AsksForKeysOnlyWhereMoreOfTheHashIsEqualThanThePlace) {
  FlatIndex index;
  // The same place in a table of any size that a test can fill.
  const std::size_t high_bit = std::size_t{1} << 63U;
  index.add(3);
  const auto never = [](FlatIndex::Number) {
    ADD_FAILURE() << "the key of another hash is compared";
    return true;
  };
  EXPECT_EQ(index.find(3 | high_bit, never), FlatIndex::NONE);
}

TEST(FlatIndex, ProbesPastTheEndOfItsTable) {
  IndexedKeys keys;
  const auto last_place = static_cast<std::size_t>(-1);
  for (int key = 0; key < 20; ++key) {
    keys.add(key, last_place);
  }
  for (int key = 0; key < 20; ++key) {
    EXPECT_EQ(keys.find(key, last_place), static_cast<FlatIndex::Number>(key));
  }
  EXPECT_EQ(keys.find(20, last_place), FlatIndex::NONE);
}

TEST(FlatIndex, AgreesWithAMapWhateverTheHashes) {
  // Few bits make many collisions; high bits alone all begin at one place.
  for (const std::size_t mask : {~std::size_t{0}, std::size_t{63}, ~std::size_t{0} << 40U}) {
    std::mt19937_64 random(mask);
    std::unordered_map<int, std::size_t> hashes;
    std::unordered_map<int, FlatIndex::Number> expected;
    IndexedKeys keys;
    for (int step = 0; step < 5000; ++step) {
      const int key = static_cast<int>(random() % 2000);
      const std::size_t hash = hashes.try_emplace(key, random() & mask).first->second;
      const auto known = expected.find(key);
      if (known != expected.end()) {
        ASSERT_EQ(keys.find(key, hash), known->second) << "step " << step;
        continue;
      }
      ASSERT_EQ(keys.find(key, hash), FlatIndex::NONE) << "step " << step;
      expected[key] = keys.add(key, hash);
    }
    EXPECT_EQ(keys.size(), expected.size());
  }
}

}  // namespace
