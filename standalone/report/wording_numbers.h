#pragma once

#include <vector>

#include "standalone/model/finding.h"
#include "standalone/report/known_by_number.h"
#include "standalone/report/wording_table.h"

namespace vond::standalone {

/// Numbers the wordings of findings as a WordingTable does; one that the reader has numbered need
/// not be looked for again.
class WordingNumbers {
 public:
  /// All findings must come from one reader.
  WordingTable::Number number_of(const Finding& finding);

  /// Returns the wordings by their numbers, and forgets them.
  std::vector<OwnedWording> take();

 private:
  WordingTable wordings_;
  KnownByNumber<WordingTable::Number> known_;
};

}  // namespace vond::standalone
