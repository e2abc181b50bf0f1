#pragma once

#include <functional>
#include <string>
#include <vector>

#include "fwd_output.h"
#include "issue_printing.h"
#include "tests/support/records.h"
#include "vond/postprocessor/utility_functions.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond::test {

/// Writes the report as somebody would who has the extension's public operations and nothing else:
/// one after the other. What the extension does in other ways inside of `run` must not show.
class ReportByOperations {
 public:
  /// The tables that the issue sections and the tree read.
  struct Bands {
    vocabulary::SeverityBandTable sections;
    vocabulary::SeverityBandTable tree;
  };

  /// `call_it` decides, for an operation that calls others, whether to call it or to do its steps.
  ReportByOperations(Data data, Bands bands, std::function<bool()> call_it)
      : data_(std::move(data)), bands_(std::move(bands)), call_it_(std::move(call_it)) {}

  int run();

 private:
  using Issues = postprocessor::IssueList;

  // The issue sections.

  int print_section(bool other);
  void print_band(const std::string& name, unsigned mask);
  Issues entry(unsigned mask) const;
  void write_wrapped(const std::string& text);

  // The tree.

  int print_full_tree();
  int print_tree(const Fwd& fwd, const std::string& inherited, bool last);
  int print_blocks(const Fwd& fwd, const std::string& child_prefix);
  int print_children(const Fwd& fwd, const std::string& inherited);
  int print_issue_num(std::string& text, const std::string& child_prefix, const Fwd& fwd);
  int format_issue_num_by_severity(std::string& count_text, std::string& text,
                                   const std::string& child_prefix, int diagnoses,
                                   int observations);
  int print_details(const Fwd& fwd, const std::string& child_prefix, std::string& text);
  int get_details_by_severity(Issues& diagnoses, Issues& observations, const std::string& band,
                              const Fwd& fwd);
  void find_by_severity_and_fwd(Issues& issues, const std::string& band, const Fwd& fwd,
                                unsigned char type_code);
  int print_details_by_severity(const Issues& diagnoses, const Issues& observations,
                                const std::string& prefix, const std::string& band,
                                std::string& buffer);
  int print_fwd_body(std::string& buffer, const std::string& prefix, const Issues& issues,
                     bool is_diagnosis);

  Data data_;
  Bands bands_;
  std::function<bool()> call_it_;
  postprocessor::UtilityFunctions utilities_;
  vond_output_log::IssuePrinting printing_;
  vond_output_log::FwdOutputFunctions tree_;
};

}  // namespace vond::test
