#pragma once

#include <string>

#include "vond/fwd.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_output_log {

/// How many issues a definition has in one band.
struct BandCounts {
  int diagnoses = 0;
  int observations = 0;
};

/// The line that tells the counts of one band. What it is made of must outlive it.
class CountLine {
 public:
  /// `gap` stands before and between the counts.
  CountLine(const std::string& child_prefix, const std::string& gap)
      : child_prefix_(child_prefix), gap_(gap) {}

  const std::string& child_prefix() const { return child_prefix_; }

  /// Sets `text`, the band's upper-case name on entry, to the band's line. Returns 0, or 1 after a
  /// report in the error log.
  int format(std::string& text, BandCounts counts) const;

  /// Appends the band's line to `count_text`, or nothing when the band has no issues. `text` is the
  /// band's upper-case name on entry and the line on return. Returns what format() returns.
  int append(std::string& count_text, std::string& text, BandCounts counts) const;

 private:
  const std::string& child_prefix_;
  const std::string& gap_;
};

/// The block of count lines under a definition. What it is made of must outlive it.
class CountBlock {
 public:
  CountBlock(const vond::postprocessor::PostprocessorExtensionData& data,
             const vond::vocabulary::SeverityBandTable& bands, const CountLine& line, int width)
      : data_(data), bands_(bands), line_(line), width_(width) {}

  /// Writes a line per band and a spacer line; nothing for a definition without counts. `text` is
  /// scratch. Returns 0 or 1.
  int print(const vond::Fwd& fwd, std::string& text) const;

 private:
  int format(const vond::Fwd& fwd, std::string& count_text, std::string& text) const;
  BandCounts counts_of(const vond::Fwd& fwd, const vond::vocabulary::SeverityBand& band) const;

  const vond::postprocessor::PostprocessorExtensionData& data_;
  const vond::vocabulary::SeverityBandTable& bands_;
  const CountLine& line_;
  int width_;
};

}  // namespace vond_output_log
