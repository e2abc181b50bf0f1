#include "standalone/patterns/value_table.h"

#include <cstring>
#include <utility>

#include "standalone/text/text_hash.h"

namespace vond::standalone {

ValueTable::Id ValueTable::id_of(std::string_view value) {
  Id& place = place_of(value);
  if (place != NO_VALUE) {
    return place;
  }
  const auto id = static_cast<Id>(values_.size());
  values_.push_back(keep(value));
  place = id;
  if (2 * values_.size() > index_.size()) {
    grow_index();
  }
  return id;
}

std::string_view ValueTable::operator[](Id id) const {
  std::uint32_t size = 0;
  std::memcpy(&size, values_[id], sizeof size);
  return {values_[id] + sizeof size, size};
}

ValueTable::Id& ValueTable::place_of(std::string_view value) {
  const std::size_t last_place = index_.size() - 1;
  std::size_t place = hash_of_text(value) & last_place;
  while (index_[place] != NO_VALUE && (*this)[index_[place]] != value) {
    place = (place + 1) & last_place;
  }
  return index_[place];
}

void ValueTable::grow_index() {
  index_ = std::vector<Id>(2 * index_.size(), NO_VALUE);
  const std::size_t last_place = index_.size() - 1;
  for (Id id = 0; id < values_.size(); ++id) {
    std::size_t place = hash_of_text((*this)[id]) & last_place;
    while (index_[place] != NO_VALUE) {
      place = (place + 1) & last_place;
    }
    index_[place] = id;
  }
}

const char* ValueTable::keep(std::string_view value) {
  const auto size = static_cast<std::uint32_t>(value.size());
  char* const start = take_space(sizeof size + value.size());
  std::memcpy(start, &size, sizeof size);
  std::memcpy(start + sizeof size, value.data(), value.size());
  return start;
}

char* ValueTable::take_space(std::size_t size) {
  if (size > BLOCK_SIZE / 8) {
    // A block of its own, so that no other is left with much of it unused.
    blocks_.push_back(std::make_unique<char[]>(size));
    return blocks_.back().get();
  }
  if (size > free_size_) {
    blocks_.push_back(std::make_unique<char[]>(BLOCK_SIZE));
    free_ = blocks_.back().get();
    free_size_ = BLOCK_SIZE;
  }
  free_size_ -= size;
  return std::exchange(free_, free_ + size);
}

}  // namespace vond::standalone
