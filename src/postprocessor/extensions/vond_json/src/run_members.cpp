#include "run_members.h"

#include <optional>
#include <string>
#include <vector>

#include "node_lists.h"
#include "vond/extension/utc_time.h"
#include "vond/facts/run_facts.h"

namespace vond_json {

using vond::extension::JsonWriter;

namespace facts = vond::facts;

namespace {

/// A minor version adds keys; readers ignore those that they do not know.
constexpr char FORMAT_VERSION[] = "1.0";

void write_tool(JsonWriter& json) {
  json.key("tool").begin_object();
  json.key("name").value("vond-report");
  json.key("version").value(facts::tool_version());
  json.end_object();
}

void write_inputs(JsonWriter& json) {
  json.key("inputs").begin_array();
  for (const facts::Input& input : facts::inputs()) {
    json.begin_object();
    json.key("name").value(input.name);
    json.key("age_seconds").value(input.age_seconds);
    json.end_object();
  }
  json.end_array();
}

void write_nodes(JsonWriter& json) {
  json.key("nodes").begin_object();
  json.key("seen").value(facts::nodes_seen());
  json.key("examined").value(facts::nodes_examined());
  json.key("expected").value(facts::nodes_expected());
  json.key("not_examined").array(facts::nodes_not_examined());
  json.key("not_expected").array(facts::nodes_not_expected());
  json.end_object();
}

void write_change_counts(JsonWriter& json, const facts::Since& since) {
  json.key("counts").begin_object();
  json.key("new").value(since.new_issues);
  json.key("worse").value(since.worse);
  json.key("reworded").value(since.reworded);
  json.key("same").value(since.same);
  json.key("better").value(since.better);
  json.key("gone").value(since.gone.size());
  json.key("not_looked_at").value(since.not_looked_at.size());
  json.end_object();
}

void write_past_issues(JsonWriter& json, const std::vector<facts::PastIssue>& issues) {
  json.begin_array();
  for (const facts::PastIssue& issue : issues) {
    json.begin_object();
    json.key("type").value(issue.type);
    json.key("id").value(issue.id);
    json.key("nodes");
    write_names_or_set(json, issue.nodes);
    json.end_object();
  }
  json.end_array();
}

void write_since(JsonWriter& json, const facts::Since& since) {
  json.begin_object();
  json.key("time").value(vond::extension::utc_time(since.time));
  write_change_counts(json, since);
  json.key("nodes_not_looked_at");
  write_names_or_set(json, since.nodes_not_looked_at);
  json.key("gone");
  write_past_issues(json, since.gone);
  json.key("not_looked_at");
  write_past_issues(json, since.not_looked_at);
  json.end_object();
}

void write_acknowledged(JsonWriter& json) {
  json.key("acknowledged").begin_array();
  for (const facts::Acknowledgement& entry : facts::acknowledgements()) {
    json.break_line();
    json.begin_object();
    json.key("id").value(entry.id);
    json.key("nodes");
    if (entry.nodes.empty()) {
      json.value("*");
    } else {
      write_names_or_set(json, entry.nodes);
    }
    json.key("until").value(vond::extension::utc_time(entry.until));
    json.key("reason").value(entry.reason);
    json.key("by").value(entry.by.empty() ? std::nullopt : std::optional(entry.by));
    json.key("state").value(entry.state);
    json.end_object();
  }
  json.end_array();
}

}  // namespace

void write_run(JsonWriter& json, const vond::postprocessor::PostprocessorExtensionData& data) {
  json.key("format_version").value(FORMAT_VERSION);
  json.break_line();
  write_tool(json);
  json.break_line();
  json.key("written").value(vond::extension::utc_time(facts::written_at()));
  json.break_line();
  json.key("verdict").value(facts::verdict());
  json.break_line();
  json.key("doubts").array(facts::doubts());
  json.break_line();
  json.key("fail_threshold").value(data.fail_threshold);
  json.break_line();
  write_inputs(json);
  json.break_line();
  write_nodes(json);
}

void write_comparison(JsonWriter& json) {
  json.break_line();
  json.key("since");
  if (const auto since = facts::since()) {
    write_since(json, *since);
  } else {
    json.null();
  }
  json.break_line();
  write_acknowledged(json);
}

}  // namespace vond_json
