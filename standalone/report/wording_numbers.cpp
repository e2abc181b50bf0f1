#include "standalone/report/wording_numbers.h"

namespace vond::standalone {

WordingTable::Number WordingNumbers::number_of(const Finding& finding) {
  if (const WordingTable::Number* const known = known_.find(finding.wording_number)) {
    return *known;
  }
  const WordingTable::Number number = wordings_.number_of(finding.wording);
  known_.remember(finding.wording_number, number);
  return number;
}

std::vector<OwnedWording> WordingNumbers::take() {
  known_ = {};
  return wordings_.take();
}

}  // namespace vond::standalone
