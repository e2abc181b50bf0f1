#include "issue_printing.h"

#include <algorithm>
#include <cmath>

#include "issue_details.h"
#include "statement.h"
#include "vond/str/string_functions.h"
#include "vond/vocabulary/tables.h"

using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::PostprocessorExtensionData;
using vond::postprocessor::Type;

namespace vond_output_log {
namespace {

/// Returns the issue's first line: its number, padded to `width` digits, its id, and on how many
/// nodes it was found.
std::string header_line(const CollapsedAnalysisOutput& issue, int number, int width,
                        const std::string& prefix, std::size_t nodes) {
  const int digits = static_cast<int>(std::log10(number) + 1.0);
  const auto padding = static_cast<std::size_t>(std::max(width - digits, 0));
  return prefix + std::to_string(number) + ". " + std::string(padding, ' ') + issue.get_id() +
         " (appears on " + std::to_string(nodes) + (nodes == 1 ? " node" : " nodes") + ")\n";
}

std::string related_issues_line(CollapsedAnalysisOutput& issue, const std::string& indent,
                                bool diagnosis) {
  const auto ids = usable_related_ids(issue, diagnosis ? Type::OBSERVATION : Type::DIAGNOSIS);
  if (ids.empty()) {
    return {};
  }
  return indent + (diagnosis ? "Based on Observations: " : "Diagnoses: ") + join(ids, ", ") + "\n";
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

void IssuePrinting::PrintOutput(std::shared_ptr<CollapsedAnalysisOutput> issue,
                                const PostprocessorExtensionData& data, int number, int width,
                                std::string prefix, bool diagnosis) {
  NodeSummaries nodes;
  PrintOutput(issue, data, number, width, prefix, diagnosis, nodes);
}

void IssuePrinting::PrintOutput(const std::shared_ptr<CollapsedAnalysisOutput>& issue,
                                const PostprocessorExtensionData& data, int number, int width,
                                const std::string& prefix, bool diagnosis, NodeSummaries& nodes) {
  // Further lines begin right under the first character of the id.
  const std::string indent = prefix + std::string(static_cast<std::size_t>(width) + 2, ' ');

  write(vond::str::word_wrap(header_line(*issue, number, width, prefix, nodes.count(*issue)),
                             data.line_width, indent));

  std::string body = issue->get_message_string(indent) + issue->get_remedy_string(indent);
  if (!issue->outputs.empty()) {
    body += indent + "Nodes: " + nodes.text(*issue, *this) + "\n";
  }
  body += GetCategoryLine(issue, indent);
  body += related_issues_line(*issue, indent, diagnosis);
  body += issue->get_fwd_string(indent, "Framework Definition");
  body += row_ids_line(*issue, indent, data.log_level);
  write(vond::str::column_wrap(body, data.line_width, indent, ':', false));
}

std::string IssuePrinting::GetCategoryLine(std::shared_ptr<CollapsedAnalysisOutput> issue,
                                           std::string indent) {
  std::string category = issue->outputs.empty() ? std::string() : issue->outputs[0]->category;
  if (category.empty()) {
    category = "FUNCTIONALITY";
  }
  return indent + "Category: " + category + "\n";
}

}  // namespace vond_output_log
