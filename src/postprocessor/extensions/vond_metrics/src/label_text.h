#pragma once

#include <string>
#include <string_view>

namespace vond_metrics {

/// Returns `text` as readers of metrics take it in a label: UTF-8 without control characters other
/// than line feeds and tabs. Two texts may become one, so what tells series apart is this form.
std::string label_text(std::string_view text);

/// Returns a label_text() as it stands between quotes.
std::string escaped(std::string_view label);

}  // namespace vond_metrics
