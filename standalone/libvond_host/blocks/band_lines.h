#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "standalone/libvond_host/blocks/severity_bands.h"

namespace vond::standalone {

/// The issues of one id in one band.
struct IssueLine {
  /// Distinct nodes.
  std::size_t nodes = 0;
  /// With its qualifier, on one line.
  std::string id;
  /// What the issues explain or say, on one line.
  std::string text;
};

/// What the summary shows of a band: first its diagnoses, then the observations that no diagnosis
/// explains, then its checks without data; at most five lines, with the one that counts the rest.
struct BandLines {
  std::vector<IssueLine> lines;
  /// "3 diagnoses, 2 without data"; empty when `lines` show everything.
  std::string rest;
};

/// Returns the lines of a band; when there is a choice, each of the three kinds has one.
BandLines choose_lines(const SeverityBand& band);

/// Returns "3 diagnoses, 9 observations (8 explained), 1 without data", or "none".
std::string count_issues(const SeverityBand& band);

}  // namespace vond::standalone
