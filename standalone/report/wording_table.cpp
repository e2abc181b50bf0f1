#include "standalone/report/wording_table.h"

#include <utility>

namespace vond::standalone {

WordingTable::Number WordingTable::number_of(const Wording& wording) {
  wording_with_sets_ = wording;
  sort_sets(wording_with_sets_);
  const std::size_t hash = hash_of(wording_with_sets_);
  const Number found =
      index_.find(hash, [this](Number number) { return wording_with_sets_ == wordings_[number]; });
  if (found != FlatIndex::NONE) {
    return found;
  }
  wordings_.push_back(owned(wording_with_sets_));
  return index_.add(hash);
}

std::vector<OwnedWording> WordingTable::take() {
  index_ = {};
  return std::exchange(wordings_, {});
}

}  // namespace vond::standalone
