#include "page_script.h"

#include <algorithm>
#include <string>

#include "band_mark.h"
#include "issue_data.h"
#include "node_numbers.h"
#include "page_assets.h"
#include "vond/extension/issue_order.h"
#include "vond/extension/json_writer.h"
#include "vond/str/string_functions.h"
#include "wording.h"

namespace vond_html {

using vond::extension::JsonWriter;
using vond::postprocessor::PostprocessorExtensionData;
using vond::vocabulary::SeverityBand;
using vond::vocabulary::SeverityBandTable;

namespace {

void write_bands(JsonWriter& json, const std::vector<SeverityBand>& bands) {
  json.key("bands").begin_array();
  for (const SeverityBand& band : bands) {
    json.begin_object();
    json.key("name").value(vond::str::upper(std::get<std::string>(band)));
    json.key("class").value(band_class(band));
    json.key("shape").value(band_shape(band));
    json.end_object();
  }
  json.end_array();
}

/// Returns one character a node: its band from "0" for the worst, "+" for one whose issues are all
/// acknowledged, "-" for a clean one, and for those that were not examined "A" for the worst, "?"
/// for one without issues.
std::string states_of(const NodeGroup& group, const std::vector<SeverityBand>& bands) {
  std::string states;
  states.reserve(group.nodes.size());
  for (const NodeState& node : group.nodes) {
    if (node.band) {
      const auto band = std::find(bands.begin(), bands.end(), *node.band) - bands.begin();
      states += static_cast<char>((node.is_examined ? '0' : 'A') + band);
    } else {
      states += !node.is_examined ? '?' : node.is_acknowledged ? '+' : '-';
    }
  }
  return states;
}

void write_groups(JsonWriter& json, const std::vector<NodeGroup>& groups,
                  const std::vector<SeverityBand>& bands) {
  json.key("groups").begin_array();
  for (const NodeGroup& group : groups) {
    json.break_line();
    json.begin_object();
    json.key("name").value(shortened_name(group.name));
    json.key("states").value(states_of(group, bands));
    json.key("nodes").begin_array();
    for (const NodeState& node : group.nodes) {
      json.value(shortened_name(node.name));
    }
    json.end_array();
    json.end_object();
  }
  json.end_array();
}

void write_issues(JsonWriter& json, const PostprocessorExtensionData& data,
                  const SeverityBandTable& bands, const PageIssues& issues, IssueData& issue_data) {
  json.key("issues").begin_array();
  std::size_t written = 0;
  vond::extension::for_each_issue(
      data, bands,
      [&](const vond::extension::Issue& issue, const SeverityBand& band, auto type, bool fails) {
        // An issue that is filed twice has one number.
        if (written < MOST_ISSUES_OF_SCRIPT && issues.number_of(*issue) > written) {
          ++written;
          json.break_line();
          issue_data.write({issue.get(), band, type, fails});
        }
      });
  json.break_line();
  json.end_array();
  json.key("left_out").value(issues.size() - written);
}

}  // namespace

void write_page_script(HtmlWriter& page, const PostprocessorExtensionData& data,
                       const SeverityBandTable& bands, const std::vector<NodeGroup>& groups,
                       const PageIssues& issues) {
  const auto worst_first = vond::vocabulary::descending_bands(bands);
  const std::vector<SeverityBand> descending(worst_first.begin(), worst_first.end());
  const NodeNumbers numbers(groups);
  page.open("script", {{"type", "application/json"}, {"id", "data"}});
  JsonWriter json(page.output(), JsonWriter::Place::PAGE);
  IssueData issue_data(json, issues, numbers, descending,
                       data.log_level == "info" || data.log_level == "debug");
  json.begin_object();
  write_bands(json, descending);
  write_groups(json, groups, descending);
  write_issues(json, data, bands, issues, issue_data);
  json.key("definitions");
  issue_data.write_definition_names();
  json.end_object();
  page.close();
  page.open("script").verbatim(PAGE_SCRIPT).close();
}

}  // namespace vond_html
