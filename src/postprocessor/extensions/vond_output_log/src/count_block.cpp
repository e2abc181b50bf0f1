#include "count_block.h"

#include <algorithm>
#include <exception>

#include "error_report.h"
#include "statement.h"
#include "vond/extension/issue_index.h"
#include "vond/str/string_functions.h"

namespace vond_output_log {

using vond::Fwd;
using vond::postprocessor::ALL_OBSERVATIONS;
using vond::postprocessor::SeverityMask;
using vond::vocabulary::descending_bands;
using vond::vocabulary::SeverityBand;

namespace {

int count_under(const Fwd& fwd, unsigned mask) {
  const auto count = fwd.issue_counts.find(SeverityMask(mask));
  return count == fwd.issue_counts.end() ? 0 : count->second;
}

const char* noun(int count, const char* singular, const char* plural) {
  // 0 takes the singular; that is wanted.
  return count > 1 ? plural : singular;
}

}  // namespace

int CountLine::format(std::string& text, BandCounts counts) const {
  const auto [diagnoses, observations] = counts;
  try {
    text = child_prefix_ + std::to_string(diagnoses + observations) + " " + text + gap_ + "(" +
           std::to_string(diagnoses) + noun(diagnoses, " diagnosis", " diagnoses") + gap_ +
           std::to_string(observations) + noun(observations, " observation)", " observations)") +
           "\n";
  } catch (const std::exception& error) {
    return report_error(FORMAT_FWD_ISSUE_NUM, error);
  }
  return 0;
}

int CountLine::append(std::string& count_text, std::string& text, BandCounts counts) const {
  if (counts.diagnoses + counts.observations <= 0) {
    return 0;
  }
  if (format(text, counts) == 1) {
    return 1;
  }
  count_text += text;
  return 0;
}

int CountBlock::print(const Fwd& fwd, std::string& text) const {
  if (fwd.issue_counts.empty()) {
    return 0;
  }
  std::string count_text;
  if (format(fwd, count_text, text) == 1) {
    return 1;
  }
  const std::string& prefix = line_.child_prefix();
  const int room = std::max(0, width_ - static_cast<int>(prefix.size()));
  // Wrapped twice, first at blanks alone and without the prefix's width; that is wanted.
  text = vond::str::space_wrap(count_text, room, "");
  write(vond::str::word_wrap(text, width_, prefix));
  write_line_end();
  write(prefix);
  write_line_end();
  return 0;
}

int CountBlock::format(const Fwd& fwd, std::string& count_text, std::string& text) const {
  for (const SeverityBand& band : descending_bands(bands_)) {
    text = vond::str::upper(vond::vocabulary::band_name(band));
    if (line_.append(count_text, text, counts_of(fwd, band)) == 1) {
      return 1;
    }
  }
  return 0;
}

BandCounts CountBlock::counts_of(const Fwd& fwd, const SeverityBand& band) const {
  const auto& [lower, upper_bound, severity, name] = band;
  const unsigned mask = vond::extension::band_mask(severity, upper_bound, data_.fail_threshold);
  return {count_under(fwd, mask), count_under(fwd, mask | ALL_OBSERVATIONS)};
}

}  // namespace vond_output_log
