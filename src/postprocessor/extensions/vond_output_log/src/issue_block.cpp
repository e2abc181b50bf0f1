#include "issue_block.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "layout.h"
#include "statement.h"
#include "vond/extension/related_issues.h"
#include "vond/extension/text.h"
#include "vond/str/string_functions.h"

namespace vond_output_log {

using vond::extension::Issue;
using vond::extension::join;
using vond::extension::usable_related_ids;
using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::Type;

namespace {

std::string header_line(const CollapsedAnalysisOutput& issue, IssueNumber number,
                        const std::string& prefix, std::size_t nodes) {
  const int digits = static_cast<int>(std::log10(number.number) + 1.0);
  const auto padding = static_cast<std::size_t>(std::max(number.width - digits, 0));
  // "0 nodes)", unlike the tree section, which says "0 node)"; that is wanted.
  return prefix + std::to_string(number.number) + ". " + blanks(padding) + issue.get_id() +
         " (appears on " + std::to_string(nodes) + (nodes == 1 ? " node" : " nodes") + ")\n";
}

/// Row ids are for people who look into the database, and shown only when the log is for them.
std::string row_ids_line(const CollapsedAnalysisOutput& issue, const std::string& indent,
                         const std::string& log_level) {
  if (log_level != "info" && log_level != "debug") {
    return {};
  }
  std::string ids;
  for (const int id : issue.get_row_id()) {
    ids += (ids.empty() ? "" : ",") + std::to_string(id);
  }
  return ids.empty() ? std::string() : indent + "Database Row IDs: " + ids + "\n";
}

}  // namespace

std::string category_line(const CollapsedAnalysisOutput& issue, const std::string& indent) {
  std::string category = issue.outputs.empty() ? std::string() : issue.outputs[0]->category;
  if (category.empty()) {
    category = "FUNCTIONALITY";
  }
  return indent + "Category: " + category + "\n";
}

void IssueBlock::print(Issue issue, IssueNumber number, const std::string& prefix,
                       bool is_diagnosis) {
  // Further lines begin right under the first character of the id.
  const std::string indent = prefix + blanks(static_cast<std::size_t>(number.width) + 2);
  write(vond::str::word_wrap(header_line(*issue, number, prefix, summaries_.count_nodes(*issue)),
                             data_.line_width, indent));
  write(vond::str::column_wrap(body(*issue, indent, is_diagnosis), data_.line_width, indent, ':',
                               false));
}

std::string IssueBlock::body(CollapsedAnalysisOutput& issue, const std::string& indent,
                             bool is_diagnosis) {
  // One statement a line: the host's operations are called in this order.
  std::string body = issue.get_message_string(indent);
  body += issue.get_remedy_string(indent);
  if (!issue.outputs.empty()) {
    body += indent + "Nodes: " + summaries_.nodes(issue, strings_) + "\n";
  }
  body += category_line(issue, indent);
  body += related_issues_line(issue, indent, is_diagnosis);
  body += issue.get_fwd_string(indent, "Framework Definition");
  body += row_ids_line(issue, indent, data_.log_level);
  return body;
}

std::string IssueBlock::related_issues_line(CollapsedAnalysisOutput& issue,
                                            const std::string& indent, bool is_diagnosis) {
  const Type type = is_diagnosis ? Type::OBSERVATION : Type::DIAGNOSIS;
  if (issue.related_issues[type].empty()) {
    return {};
  }
  return indent +
         (is_diagnosis ? "Based on Observations: " + summaries_.observations_of(issue)
                       : "Diagnoses: " + join(usable_related_ids(issue, type), ", ")) +
         "\n";
}

}  // namespace vond_output_log
