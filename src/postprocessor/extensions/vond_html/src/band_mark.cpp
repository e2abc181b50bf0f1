#include "band_mark.h"

#include <string>
#include <tuple>

#include "vond/str/string_functions.h"

namespace vond_html {

using vond::postprocessor::Severity;
using vond::vocabulary::SeverityBand;

namespace {

std::string name_of(const SeverityBand& band) {
  return vond::str::upper(std::get<std::string>(band));
}

}  // namespace

std::string_view band_shape(const SeverityBand& band) {
  switch (std::get<Severity>(band)) {
    case Severity::CRITICAL:
      return "◆";
    case Severity::WARNING:
      return "▲";
    default:
      return "●";
  }
}

std::string_view band_class(const SeverityBand& band) {
  switch (std::get<Severity>(band)) {
    case Severity::CRITICAL:
      return "critical";
    case Severity::WARNING:
      return "warning";
    default:
      return "informational";
  }
}

void write_shape(HtmlWriter& page, std::string_view shape) {
  page.element("span", {{"class", "shape"}, {"aria-hidden", "true"}}, shape);
}

void write_band_shape(HtmlWriter& page, const SeverityBand& band) {
  page.open("span", {{"class", std::string("band ").append(band_class(band))}});
  write_shape(page, band_shape(band));
  page.element("span", {{"class", "unseen"}}, name_of(band) + " ").close();
}

void write_band_mark(HtmlWriter& page, const SeverityBand& band) {
  page.open("span", {{"class", std::string("band ").append(band_class(band))}});
  write_shape(page, band_shape(band));
  page.text(" " + name_of(band)).close();
}

}  // namespace vond_html
