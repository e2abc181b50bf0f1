#pragma once

#include "vond/postprocessor/severity.h"

namespace vond::standalone {

/// A band of the severity scale, as far as masks need it.
struct SeverityBandBits {
  int upper_bound;
  postprocessor::Severity severity;
};

/// Returns the band that a severity from 0 to 100 lies in.
SeverityBandBits band_of(int severity);

}  // namespace vond::standalone
