#include "issue_data.h"

#include <algorithm>
#include <string_view>

#include "issue_values.h"
#include "vond/extension/markup_text.h"
#include "vond/extension/node_summaries.h"
#include "vond/extension/utc_time.h"
#include "vond/extension/words.h"
#include "vond/facts/run_facts.h"
#include "wording.h"

namespace vond_html {

namespace facts = vond::facts;

using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::Type;

IssueData::IssueData(vond::extension::JsonWriter& json, const PageIssues& issues,
                     const NodeNumbers& nodes,
                     const std::vector<vond::vocabulary::SeverityBand>& bands, bool has_row_ids)
    : json_(json), issues_(issues), nodes_(nodes), bands_(bands), has_row_ids_(has_row_ids) {}

void IssueData::write(const PageIssue& shown) {
  const CollapsedAnalysisOutput& issue = *shown.issue;
  json_.begin_object();
  write_heading(shown);
  if (!issue.outputs.empty()) {
    write_texts(*issue.outputs.front());
  }
  write_nodes(issue);
  write_related("based_on", issue, Type::OBSERVATION);
  write_related("explained_by", issue, Type::DIAGNOSIS);
  write_definitions(issue);
  if (const auto places = facts::places(issue); !places.empty()) {
    json_.key("places");
    write_places(json_, places);
  }
  write_change(issue);
  json_.end_object();
}

void IssueData::write_definition_names() {
  std::vector<std::string_view> names(definitions_.size());
  for (const auto& [name, number] : definitions_) {
    names[number] = name;
  }
  json_.array(names);
}

void IssueData::write_heading(const PageIssue& shown) {
  json_.key("id").value(shortened_name(shown.issue->get_id()));
  const auto band = std::find(bands_.begin(), bands_.end(), shown.band);
  json_.key("band").value(band - bands_.begin());
  json_.key("type").value(vond::extension::type_word(shown.type));
  if (shown.fails) {
    json_.key("fails").value(true);
  }
}

void IssueData::write_texts(const vond::analysis::AnalysisOutput& output) {
  const auto write = [this](const char* key, const std::string& text) {
    if (!text.empty()) {
      json_.key(key).value(vond::extension::shortened(text, LONGEST_TEXT));
    }
  };
  write("message", output.message);
  write("remedy", output.remedy);
  write("category", output.category);
  if (has_row_ids_ && !output.row_ids.empty()) {
    json_.key("row_ids").array(output.row_ids);
  }
}

void IssueData::write_nodes(const CollapsedAnalysisOutput& issue) {
  const auto names = vond::extension::distinct_nodes(issue);
  if (!names.empty()) {
    json_.key("nodes").array(nodes_.ranges_of(names));
    // A longer one is seldom read, and the script can fold the nodes, too.
    if (const auto folded = vond::extension::folded_nodes(issue, host_);
        folded.size() <= LONGEST_NODE_SET) {
      json_.key("folded").value(folded);
    }
  }
}

void IssueData::write_related(const char* key, const CollapsedAnalysisOutput& issue, Type type) {
  const auto related = issues_.related(issue, type);
  if (related.empty()) {
    return;
  }
  std::vector<std::size_t> numbers;
  numbers.reserve(related.size());
  for (const CollapsedAnalysisOutput* other : related) {
    numbers.push_back(issues_.number_of(*other));
  }
  json_.key(key).array(numbers);
}

void IssueData::write_definitions(const CollapsedAnalysisOutput& issue) {
  if (issue.fwd_names.empty()) {
    return;
  }
  json_.key("definitions").begin_array();
  for (const std::string& name : issue.fwd_names) {
    json_.value(definitions_.try_emplace(shortened_name(name), definitions_.size()).first->second);
  }
  json_.end_array();
}

void IssueData::write_change(const CollapsedAnalysisOutput& issue) {
  if (const auto change = facts::change(issue)) {
    json_.key("change").value(change->change);
    const auto write = [this](const char* key, const std::vector<std::string>& nodes) {
      if (!nodes.empty()) {
        json_.key(key).value(vond::extension::shortened(folded(nodes), LONGEST_NODE_SET));
      }
    };
    write("added", change->nodes_added);
    write("healed", change->nodes_healed);
  }
  if (const auto time = facts::first_seen(issue)) {
    json_.key("first_seen").value(readable_time(*time));
  }
}

}  // namespace vond_html
