#include "standalone/model/severity_scale.h"

#include <gtest/gtest.h>

namespace {

using vond::postprocessor::Severity;
using vond::standalone::band_of;

void expect_band(int severity, int upper_bound, Severity bits) {
  EXPECT_EQ(band_of(severity).upper_bound, upper_bound) << "severity " << severity;
  EXPECT_EQ(band_of(severity).severity, bits) << "severity " << severity;
}

TEST(BandOf, EveryPlaceOnTheScaleLiesInOneBand) {
  for (int severity = 0; severity <= 24; ++severity) {
    expect_band(severity, 24, Severity::INFORMATIONAL);
  }
  for (int severity = 25; severity <= 74; ++severity) {
    expect_band(severity, 74, Severity::WARNING);
  }
  for (int severity = 75; severity <= 100; ++severity) {
    expect_band(severity, 100, Severity::CRITICAL);
  }
}

}  // namespace
