#include "fwd_output.h"

#include "count_block.h"
#include "definition_details.h"
#include "detail_block.h"
#include "detail_body.h"
#include "detail_header.h"
#include "issue_selection.h"
#include "issue_summaries.h"
#include "label_column.h"
// The one copy of the band table that the tree section reads; the classes are handed it.
#include "vond/vocabulary/severity_bands.h"

namespace vond_output_log {

using vond::Fwd;
using vond::postprocessor::IssueList;
using vond::vocabulary::SEVERITY_BANDS;

TreeWalk FwdOutputFunctions::make_walk(const Data& data, IssueSummaries& summaries) {
  return TreeWalk(data, SEVERITY_BANDS, *this, summaries);
}

int FwdOutputFunctions::print_full_tree(const Data& data) {
  IssueSummaries summaries;
  return make_walk(data, summaries).print_section();
}

int FwdOutputFunctions::print_tree(const Data& data, const Fwd& fwd, const std::string& prefix,
                                   bool last) {
  IssueSummaries summaries;
  return make_walk(data, summaries).print_tree(fwd, prefix, last);
}

int FwdOutputFunctions::print_issue_num(const Data& data, std::string& text, int width,
                                        const std::string& child_prefix, const std::string& gap,
                                        const Fwd& fwd) {
  const CountLine line(child_prefix, gap);
  return CountBlock(data, SEVERITY_BANDS, line, width).print(fwd, text);
}

int FwdOutputFunctions::format_issue_num_by_severity(std::string& count_text, std::string& text,
                                                     int /*width*/, const std::string& child_prefix,
                                                     const std::string& gap, int diagnoses,
                                                     int observations) {
  return CountLine(child_prefix, gap).append(count_text, text, {diagnoses, observations});
}

int FwdOutputFunctions::format_fwd_issue_num(std::string& text, const std::string& child_prefix,
                                             const std::string& gap, int diagnoses,
                                             int observations) {
  return CountLine(child_prefix, gap).format(text, {diagnoses, observations});
}

int FwdOutputFunctions::print_details(const Data& data, const Fwd& fwd,
                                      const std::string& child_prefix, int width,
                                      std::string& text) {
  IssueSummaries summaries;
  return DefinitionDetails(data, SEVERITY_BANDS, *this, summaries)
      .print(fwd, child_prefix, width, text);
}

int FwdOutputFunctions::get_details_by_severity(const Data& data, IssueList& diagnoses,
                                                IssueList& observations,
                                                const std::string& band_name, const Fwd& fwd) {
  return select_band(diagnoses, observations, [&](IssueList& issues, unsigned char type_code) {
    find_by_severity_and_fwd(data, issues, band_name, fwd, type_code);
  });
}

void FwdOutputFunctions::find_by_severity_and_fwd(const Data& data, IssueList& issues,
                                                  const std::string& band_name, const Fwd& fwd,
                                                  const unsigned char& type_code) {
  find_by_severity(data, issues, band_name, type_code);
  find_by_fwd(issues, fwd);
}

void FwdOutputFunctions::find_by_severity(const Data& data, IssueList& issues,
                                          const std::string& band_name,
                                          const unsigned char& type_code) {
  if (!data.issues_by_mask) {
    return;
  }
  const IssueList* entry = BandLookup(SEVERITY_BANDS, data.fail_threshold)
                               .find(*data.issues_by_mask, band_name, type_code);
  if (entry != nullptr) {
    issues = *entry;
  }
}

void FwdOutputFunctions::find_by_fwd(IssueList& issues, const Fwd& fwd) {
  keep_issues_of(issues, fwd);
}

int FwdOutputFunctions::print_details_by_severity(const IssueList& diagnoses,
                                                  const IssueList& observations,
                                                  const std::string& prefix, const int& width,
                                                  const std::string& band_name,
                                                  std::string& buffer) {
  IssueSummaries summaries;
  return DetailBlock(*this, summaries, prefix, width, buffer)
      .print_band(diagnoses, observations, band_name);
}

int FwdOutputFunctions::print_fwd_body(std::string& buffer, const int& width,
                                       const std::string& prefix, const IssueList& issues,
                                       bool is_diagnosis) {
  IssueSummaries summaries;
  return DetailBlock(*this, summaries, prefix, width, buffer).print_group(issues, is_diagnosis);
}

int FwdOutputFunctions::format_fwd_header(std::string& buffer, const int& ordinal,
                                          const std::string& prefix, const std::string& ordinal_pad,
                                          const Issue& issue) {
  IssueSummaries summaries;
  return DetailHeader(summaries, prefix).format(buffer, ordinal, ordinal_pad, issue);
}

void FwdOutputFunctions::format_fwd_spacer(std::string& spacer, bool is_diagnosis) {
  spacer = label_spacer(is_diagnosis);
}

int FwdOutputFunctions::format_fwd_body(std::string& buffer, const std::string& body_indent,
                                        const std::string& spacer, const int& width,
                                        const Issue& issue, bool is_diagnosis) {
  IssueSummaries summaries;
  const LabelColumn column(body_indent, spacer, width);
  return DetailBody(*this, summaries, column, buffer).format(*issue, is_diagnosis);
}

int FwdOutputFunctions::format_fwd_segment(std::string& segment, const std::string& body_indent,
                                           const std::string& spacer, const std::string& label,
                                           const std::string& text, const int& width) {
  return LabelColumn(body_indent, spacer, width).format(segment, label, text);
}

}  // namespace vond_output_log
