#include "label_column.h"

#include <exception>

#include "error_report.h"
#include "layout.h"
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
    segment = vond::str::word_wrap(indent_ + label + blanks(spacer_.size() - label.size()) + text,
                                   width_, indent_ + spacer_);
  } catch (const std::exception& error) {
    return report_error(FORMAT_FWD_SEGMENT, error);
  }
  return 0;
}

}  // namespace vond_output_log
