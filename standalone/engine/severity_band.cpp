#include "standalone/engine/severity_band.h"

#include <tuple>

#include "vond/vocabulary/severity_bands.h"

namespace vond::standalone {

SeverityBandBits band_of(int severity) {
  SeverityBandBits band{};
  for (const auto& [name, row] : vocabulary::SEVERITY_BANDS) {
    const auto& [lower, upper, bits] = row;
    if (lower <= severity && severity <= upper) band = {upper, bits};
  }
  return band;
}

}  // namespace vond::standalone
