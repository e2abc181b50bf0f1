#pragma once

#include <memory>
#include <string>

#include "issue_summaries.h"
#include "tree_walk.h"
#include "vond/fwd.h"
#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/postprocessor/string_interface.h"

namespace vond_output_log {

/// Writes the issues once more, along the framework-definition hierarchy, drawn as a text tree;
/// stateless. Each operation hands its work to the class that does it. Operations that return `int`
/// return 0 on success and 1 on failure; a 1 from one of them ends the work of its caller at once,
/// and what is written by then stays.
class FwdOutputFunctions : public vond::postprocessor::StringInterface {
 public:
  using Data = vond::postprocessor::PostprocessorExtensionData;
  using Issue = std::shared_ptr<vond::postprocessor::CollapsedAnalysisOutput>;
  using IssueList = vond::postprocessor::IssueList;

  // The walk: definitions with their status and the number of their issues.

  /// Writes the section's heading and the tree of every root.
  int print_full_tree(const Data& data);

  /// Returns the walk that print_full_tree() makes, for a report that knows of the issues' nodes
  /// already. Its arguments and this object must outlive it.
  TreeWalk make_walk(const Data& data, IssueSummaries& summaries);

  /// Writes one definition and everything below it. `prefix` is what its parent hands to its
  /// children, empty for a root; `last` tells that no sibling follows, and is set for every root.
  int print_tree(const Data& data, const vond::Fwd& fwd, const std::string& prefix, bool last);

  /// Writes the counts of one definition's issues, a line per band, and a spacer line; nothing for
  /// a definition without counts. `text` is scratch.
  int print_issue_num(const Data& data, std::string& text, int width,
                      const std::string& child_prefix, const std::string& gap,
                      const vond::Fwd& fwd);

  /// Appends one band's line to `count_text`, or nothing when the band has no issues. `text` is the
  /// band's upper-case name on entry and the line on return; `width` is not
  /// used; that is wanted.
  int format_issue_num_by_severity(std::string& count_text, std::string& text, int width,
                                   const std::string& child_prefix, const std::string& gap,
                                   int diagnoses, int observations);

  /// Sets `text`, the band's upper-case name on entry, to the band's count line.
  int format_fwd_issue_num(std::string& text, const std::string& child_prefix,
                           const std::string& gap, int diagnoses, int observations);

  // Selection: which issues belong under a definition.

  /// Writes the details of one definition's issues, band by band. `text` is scratch.
  int print_details(const Data& data, const vond::Fwd& fwd, const std::string& child_prefix,
                    int width, std::string& text);

  /// Sets both lists to one definition's issues of one band, observations of the second kind after
  /// those of the first.
  int get_details_by_severity(const Data& data, IssueList& diagnoses, IssueList& observations,
                              const std::string& band_name, const vond::Fwd& fwd);

  /// Sets `issues`, empty on entry, to one definition's issues of one band and type code, in the
  /// order of the index.
  void find_by_severity_and_fwd(const Data& data, IssueList& issues, const std::string& band_name,
                                const vond::Fwd& fwd, const unsigned char& type_code);

  /// Sets `issues` to the index entry of one band and type code; leaves it alone without an entry.
  /// An unknown band reads as a row of zeros.
  void find_by_severity(const Data& data, IssueList& issues, const std::string& band_name,
                        const unsigned char& type_code);

  /// Keeps the issues that name the definition, by its full name.
  void find_by_fwd(IssueList& issues, const vond::Fwd& fwd);

  // Layout: the details of one band's issues. Every line begins with `prefix`.

  /// Writes one band's group: its heading, its diagnoses and its observations. `buffer` is scratch.
  int print_details_by_severity(const IssueList& diagnoses, const IssueList& observations,
                                const std::string& prefix, const int& width,
                                const std::string& band_name, std::string& buffer);

  /// Writes the group of diagnoses or of observations, with its heading. `buffer` is scratch.
  int print_fwd_body(std::string& buffer, const int& width, const std::string& prefix,
                     const IssueList& issues, bool is_diagnosis);

  /// Sets `buffer` to an issue's header line, not wrapped.
  int format_fwd_header(std::string& buffer, const int& ordinal, const std::string& prefix,
                        const std::string& ordinal_pad, const Issue& issue);

  /// Sets `spacer` to as many blanks as the label column is wide.
  void format_fwd_spacer(std::string& spacer, bool is_diagnosis);

  /// Sets `buffer` to an issue's labelled lines, wrapped, with line ends between them.
  int format_fwd_body(std::string& buffer, const std::string& body_indent,
                      const std::string& spacer, const int& width, const Issue& issue,
                      bool is_diagnosis);

  /// Sets `segment` to one labelled line, wrapped under the label column. Returns 1, with `segment`
  /// empty, for a label that does not fit the column.
  int format_fwd_segment(std::string& segment, const std::string& body_indent,
                         const std::string& spacer, const std::string& label,
                         const std::string& text, const int& width);
};

}  // namespace vond_output_log
