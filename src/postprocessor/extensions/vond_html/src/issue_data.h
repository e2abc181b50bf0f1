#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "node_numbers.h"
#include "page_issues.h"
#include "vond/extension/json_writer.h"
#include "vond/postprocessor/string_interface.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_html {

/// Writes issues as the script of the page reads them. What is empty is left out.
class IssueData {
 public:
  /// Keeps references to all of them.
  IssueData(vond::extension::JsonWriter& json, const PageIssues& issues, const NodeNumbers& nodes,
            const std::vector<vond::vocabulary::SeverityBand>& bands, bool has_row_ids);

  /// Writes an object with all that is known of an issue.
  void write(const PageIssue& shown);

  /// Writes the full names of the definitions that the issues so far belong to, in the order of the
  /// numbers that stand for them there.
  void write_definition_names();

 private:
  void write_heading(const PageIssue& shown);
  void write_texts(const vond::analysis::AnalysisOutput& output);
  void write_nodes(const vond::postprocessor::CollapsedAnalysisOutput& issue);
  void write_related(const char* key, const vond::postprocessor::CollapsedAnalysisOutput& issue,
                     vond::postprocessor::Type type);
  void write_definitions(const vond::postprocessor::CollapsedAnalysisOutput& issue);
  void write_change(const vond::postprocessor::CollapsedAnalysisOutput& issue);

  vond::extension::JsonWriter& json_;
  const PageIssues& issues_;
  const NodeNumbers& nodes_;
  const std::vector<vond::vocabulary::SeverityBand>& bands_;
  bool has_row_ids_;
  std::map<std::string, std::size_t> definitions_;
  vond::postprocessor::StringInterface host_;
};

}  // namespace vond_html
