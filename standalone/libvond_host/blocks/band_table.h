#pragma once

#include <optional>
#include <vector>

#include "standalone/libvond_host/blocks/band_lines.h"
#include "standalone/libvond_host/blocks/severity_bands.h"

namespace vond::standalone {

/// A band and, when the table is to show them, the lines of its issues.
struct BandRow {
  const SeverityBand* band = nullptr;
  std::optional<BandLines> lines = std::nullopt;
};

/// Writes the bands and their lines, one below the other in the same columns. `width` is in
/// terminal columns, 0 or less for no wrapping.
void write_band_table(const std::vector<BandRow>& rows, int width);

}  // namespace vond::standalone
