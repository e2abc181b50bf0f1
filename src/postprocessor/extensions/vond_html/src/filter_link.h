#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "html_writer.h"

namespace vond_html {

/// Which issues to show: names and values as the script of the page reads them from its address.
using Filter = std::initializer_list<std::pair<std::string_view, std::string_view>>;

/// Returns the filter as it stands in an address behind `#`, in ASCII.
std::string filter_fragment(Filter filter);

/// Writes a text that the script of the page makes a link to these issues.
void write_filter_text(HtmlWriter& page, Filter filter, std::string_view text);

}  // namespace vond_html
