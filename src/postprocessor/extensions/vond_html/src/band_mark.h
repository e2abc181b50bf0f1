#pragma once

#include <string_view>

#include "html_writer.h"
#include "vond/fwd.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_html {

/// Returns the class that gives a band its colour.
std::string_view band_class(const vond::vocabulary::SeverityBand& band);

/// Returns the character that gives a band its shape.
std::string_view band_shape(const vond::vocabulary::SeverityBand& band);

/// Writes the shape of a band, which tells bands apart where colours do not. The name is there for
/// those who do not see it.
void write_band_shape(HtmlWriter& page, const vond::vocabulary::SeverityBand& band);

/// Writes the shape and the name of a band.
void write_band_mark(HtmlWriter& page, const vond::vocabulary::SeverityBand& band);

/// Writes a shape that says nothing to those who hear the page.
void write_shape(HtmlWriter& page, std::string_view shape);

}  // namespace vond_html
