#pragma once

#include "html_writer.h"

namespace vond_html {

/// Writes what is acknowledged until when, nothing where nothing is.
void write_acknowledged(HtmlWriter& page);

}  // namespace vond_html
