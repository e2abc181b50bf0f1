#pragma once

#include <cstddef>
#include <vector>

#include "standalone/model/flat_index.h"
#include "standalone/model/wording.h"

namespace vond::standalone {

/// Numbers distinct wordings from 0 in the order of their first appearance, and keeps them with
/// sorted sets.
class WordingTable {
 public:
  using Number = FlatIndex::Number;

  Number number_of(const Wording& wording);

  std::size_t size() const { return wordings_.size(); }

  /// Returns the wordings by their numbers, and forgets them.
  std::vector<OwnedWording> take();

 private:
  std::vector<OwnedWording> wordings_;
  /// By the hashes of the wordings.
  FlatIndex index_;
  /// Kept between searches for its memory.
  Wording wording_with_sets_;
};

}  // namespace vond::standalone
