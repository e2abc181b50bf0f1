#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace vond::standalone {

/// Numbers distinct values from 0 and keeps them, in little more memory than their bytes take.
class ValueTable {
 public:
  using Id = std::uint32_t;

  Id id_of(std::string_view value);

  /// The view lives as long as the table.
  std::string_view operator[](Id id) const;
  std::size_t size() const { return values_.size(); }

 private:
  static constexpr Id NO_VALUE = static_cast<Id>(-1);
  static constexpr std::size_t FIRST_INDEX_SIZE = 256;
  static constexpr std::size_t BLOCK_SIZE = std::size_t{1} << 16U;

  Id& place_of(std::string_view value);
  void grow_index();
  const char* keep(std::string_view value);
  char* take_space(std::size_t size);

  /// Each value behind its size.
  std::vector<const char*> values_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  /// What is free of the block that was last shared out.
  char* free_ = nullptr;
  std::size_t free_size_ = 0;
  /// By hash: linear probing, a power of two in size.
  std::vector<Id> index_ = std::vector<Id>(FIRST_INDEX_SIZE, NO_VALUE);
};

}  // namespace vond::standalone
