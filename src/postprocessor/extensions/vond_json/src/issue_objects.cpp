#include "issue_objects.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "node_lists.h"
#include "vond/extension/issue_order.h"
#include "vond/extension/node_summaries.h"
#include "vond/extension/related_issues.h"
#include "vond/extension/utc_time.h"
#include "vond/extension/words.h"
#include "vond/facts/run_facts.h"
#include "vond/postprocessor/string_interface.h"

namespace vond_json {

using vond::extension::Issue;
using vond::extension::IssueNumbers;
using vond::extension::JsonWriter;
using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::Type;
using vond::postprocessor::TypeCode;
using vond::vocabulary::SeverityBand;

namespace facts = vond::facts;

namespace {

/// Where an issue stands in the report.
struct Heading {
  const SeverityBand& band;
  TypeCode type;
  bool fails;
};

void write_heading(JsonWriter& json, const CollapsedAnalysisOutput& issue, const Heading& heading) {
  json.key("id").value(issue.get_id());
  json.key("type").value(vond::extension::type_word(heading.type));
  json.key("severity").value(facts::severity(issue));
  json.key("band").value(vond::vocabulary::band_name(heading.band));
  json.key("contributes_to_fail").value(heading.fails);
}

void write_texts(JsonWriter& json, const CollapsedAnalysisOutput& issue) {
  const vond::analysis::AnalysisOutput none;
  const auto& output = issue.outputs.empty() ? none : *issue.outputs[0];
  json.key("category").value(output.category);
  json.key("message").value(output.message);
  json.key("remedy").value(output.remedy);
}

void write_nodes(JsonWriter& json, const CollapsedAnalysisOutput& issue) {
  vond::postprocessor::StringInterface host;
  const auto nodes = vond::extension::distinct_nodes(issue);
  json.key("nodes");
  write_names(json, nodes);
  json.key("nodes_folded").value(vond::extension::folded_nodes(issue, host));
  json.key("node_count").value(nodes.size());
}

void write_related(JsonWriter& json, const CollapsedAnalysisOutput& issue, Type type,
                   const IssueNumbers& numbers) {
  json.begin_array();
  for (const auto* related : vond::extension::related_issues(issue, type, numbers)) {
    json.value(numbers.of(related));
  }
  json.end_array();
}

void write_values(JsonWriter& json, const facts::Place& place) {
  json.begin_object();
  json.key("kind").value(place.kind);
  json.key("unit").value(place.unit);
  json.key("values").begin_array();
  for (const auto& [value, nodes] : place.values) {
    json.begin_object();
    json.key("value").value(value);
    json.key("nodes");
    write_names(json, nodes);
    json.end_object();
  }
  json.end_array();
  json.end_object();
}

void write_change(JsonWriter& json, const CollapsedAnalysisOutput& issue) {
  const auto change = facts::change(issue);
  json.key("change").value(change ? std::optional(change->change) : std::nullopt);
  for (const auto& [key, nodes] : {std::pair("nodes_added", &facts::Change::nodes_added),
                                   std::pair("nodes_healed", &facts::Change::nodes_healed)}) {
    json.key(key);
    if (change) {
      write_names_or_set(json, *change.*nodes);
    } else {
      json.null();
    }
  }
  json.key("first_seen").value(vond::extension::utc_time(facts::first_seen(issue)));
}

void write_issue(JsonWriter& json, const CollapsedAnalysisOutput& issue, const Heading& heading,
                 const IssueNumbers& numbers) {
  json.begin_object();
  json.key("number").value(numbers.of(&issue));
  write_heading(json, issue, heading);
  write_texts(json, issue);
  write_nodes(json, issue);
  json.key("row_ids").array(issue.get_row_id());
  json.key("definitions").array(issue.fwd_names);
  json.key("based_on");
  write_related(json, issue, Type::OBSERVATION, numbers);
  json.key("diagnoses");
  write_related(json, issue, Type::DIAGNOSIS, numbers);
  json.key("values").begin_array();
  for (const facts::Place& place : facts::places(issue)) {
    write_values(json, place);
  }
  json.end_array();
  write_change(json, issue);
  json.end_object();
}

}  // namespace

void write_issues(JsonWriter& json, const vond::postprocessor::PostprocessorExtensionData& data,
                  const vond::vocabulary::SeverityBandTable& bands, const IssueNumbers& numbers) {
  json.break_line();
  json.key("issues").begin_array();
  std::size_t written = 0;
  vond::extension::for_each_issue(
      data, bands, [&](const Issue& issue, const SeverityBand& band, TypeCode type, bool fails) {
        // An issue that is filed twice has one number.
        if (numbers.of(issue.get()) > written) {
          ++written;
          json.break_line();
          write_issue(json, *issue, {band, type, fails}, numbers);
        }
      });
  json.break_line();
  json.end_array();
}

}  // namespace vond_json
