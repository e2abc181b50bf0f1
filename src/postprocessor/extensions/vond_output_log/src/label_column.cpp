#include "label_column.h"

#include <exception>

#include "error_report.h"
#include "vond/str/string_functions.h"

namespace vond_output_log {

int LabelColumn::format(std::string& segment, const std::string& label,
                        const std::string& text) const {
  try {
    segment.clear();
    // Silent, unlike an exception; that is wanted.
    if (spacer_.size() <= label.size()) {
      return 1;
    }
    std::string line;
    line.reserve(indent_.size() + spacer_.size() + text.size());
    line.append(indent_).append(label).append(spacer_.size() - label.size(), ' ').append(text);
    segment = vond::str::word_wrap(line, width_, indent_ + spacer_);
  } catch (const std::exception& error) {
    return report_error(FORMAT_FWD_SEGMENT, error);
  }
  return 0;
}

}  // namespace vond_output_log
