#include "standalone/model/severity_scale.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <tuple>

#include "standalone/text/messages.h"
#include "vond/vocabulary/severity_bands.h"

namespace vond::standalone {

namespace {

std::vector<std::string_view> ascending_band_names() {
  auto bands = vocabulary::descending_bands(vocabulary::SEVERITY_BANDS);
  std::reverse(bands.begin(), bands.end());
  std::vector<std::string_view> names;
  names.reserve(bands.size());
  for (const auto& band : bands) {
    // The table's own key outlives the sorted copy of its rows.
    names.emplace_back(vocabulary::SEVERITY_BANDS.find(std::get<3>(band))->first);
  }
  return names;
}

}  // namespace

SeverityBandBits band_of(int severity) {
  SeverityBandBits band{};
  for (const auto& [name, row] : vocabulary::SEVERITY_BANDS) {
    const auto& [lower, upper, bits] = row;
    if (lower <= severity && severity <= upper) {
      band = {upper, bits};
    }
  }
  return band;
}

const std::vector<std::string_view>& band_names() {
  static const std::vector<std::string_view> names = ascending_band_names();
  return names;
}

std::optional<int> severity_of_band(std::string_view name) {
  const auto band = vocabulary::SEVERITY_BANDS.find(std::string(name));
  if (band == vocabulary::SEVERITY_BANDS.end()) {
    return std::nullopt;
  }
  return std::get<1>(band->second);
}

std::optional<int> parse_severity(std::string_view text) {
  int severity = -1;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, severity);
  if (error != std::errc() || rest != end || text.front() == '-') {
    return severity_of_band(text);
  }
  if (severity < LOWEST_SEVERITY || severity > HIGHEST_SEVERITY) {
    return std::nullopt;
  }
  return severity;
}

std::string severity_expectation() {
  return "a whole number from " + std::to_string(LOWEST_SEVERITY) + " to " +
         std::to_string(HIGHEST_SEVERITY) + " or " + one_of(band_names());
}

}  // namespace vond::standalone
