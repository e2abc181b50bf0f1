#pragma once

#include "html_writer.h"

namespace vond_html {

/// Whether there are acknowledgements that hold, held, or cover nothing.
bool is_anything_acknowledged();

/// Writes what is acknowledged until when, nothing where nothing is.
void write_acknowledged(HtmlWriter& page);

}  // namespace vond_html
