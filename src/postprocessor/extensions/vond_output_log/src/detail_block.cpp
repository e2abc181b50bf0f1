#include "detail_block.h"

#include <cstddef>

#include "detail_body.h"
#include "detail_header.h"
#include "label_column.h"
#include "layout.h"
#include "statement.h"
#include "vond/log/output_log.h"
#include "vond/str/string_functions.h"

namespace vond_output_log {

using vond::log::OutputLog;
using vond::postprocessor::IssueList;
using vond::str::upper;
using vond::str::word_wrap;

int DetailBlock::print_band(const IssueList& diagnoses, const IssueList& observations,
                            const std::string& band_name) {
  if (diagnoses.empty() && observations.empty()) {
    return 0;
  }
  // Without NONE, unlike all other statements: the colour in force stays as it is; that is wanted.
  OutputLog() << word_wrap(prefix_ + upper(band_name) + ":", width_, prefix_);
  OutputLog() << "\n";
  if (!diagnoses.empty() && print_group(diagnoses, true) == 1) {
    return 1;
  }
  if (!observations.empty() && print_group(observations, false) == 1) {
    return 1;
  }
  return 0;
}

int DetailBlock::print_group(const IssueList& issues, bool is_diagnosis) {
  write(word_wrap(prefix_ + (is_diagnosis ? "Diagnoses" : "Observations"), width_, prefix_));
  write_line_end();

  const std::size_t digits = count_digits(issues.size());
  const std::string body_indent = prefix_ + blanks(3 + digits - 1);
  const std::string spacer = label_spacer(is_diagnosis);
  const LabelColumn column(body_indent, spacer, width_);
  const DetailHeader header(summaries_, prefix_);
  DetailBody body(strings_, summaries_, column, buffer_);
  int ordinal = 0;
  for (const auto& issue : issues) {
    ++ordinal;
    const std::string ordinal_pad =
        blanks(digits - count_digits(static_cast<std::size_t>(ordinal)));
    if (header.format(buffer_, ordinal, ordinal_pad, issue) == 1) {
      return 1;
    }
    // Ids of ordinals with one digit less than the longest, or in a list of up to nine, do not
    // stand in the column where their continuation begins; that is wanted.
    write(word_wrap(buffer_, width_, prefix_ + blanks(4) + ordinal_pad));
    write_line_end();
    if (body.format(*issue, is_diagnosis) == 1) {
      return 1;
    }
    write(buffer_);
    write_line_end();
  }
  return 0;
}

}  // namespace vond_output_log
