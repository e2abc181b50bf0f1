// The output `tickets`: what is to be done, as JSON for a ticket system. An issue is a ticket.
#include "vond/contract.h"
#include "vond/extension/issue_numbers.h"
#include "vond/extension/issue_order.h"
#include "vond/extension/json_writer.h"
#include "vond/extension/node_summaries.h"
#include "vond/extension/one_line.h"
#include "vond/extension/related_issues.h"
#include "vond/extension/words.h"
#include "vond/facts/run_facts.h"
#include "vond/postprocessor/postprocessor_extension.h"

namespace {

using namespace vond::extension;
using namespace vond::postprocessor;

/// Writes what an issue does not tell of itself, where it stands in the report, behind its id.
void write_heading(JsonWriter& json, const CollapsedAnalysisOutput& issue,
                   const IssueNumbers& numbers) {
  json.key("id").value(issue.get_id());
  if (const IssuePlace* place = numbers.place_of(&issue)) {
    json.key("number").value(place->number);
    json.key("band").value(place->band);
    json.key("type").value(type_word(place->type));
  }
}

void write_ticket(JsonWriter& json, const CollapsedAnalysisOutput& issue,
                  const IssueNumbers& numbers) {
  json.begin_object();
  write_heading(json, issue, numbers);
  // The first output has the texts; a host may have issues without any.
  const bool has_texts = !issue.outputs.empty();
  json.key("title").value(has_texts ? one_line(issue.outputs[0]->message) : "");
  json.key("to_do").value(has_texts ? one_line(issue.outputs[0]->remedy) : "");
  json.key("nodes").array(distinct_nodes(issue));
  json.key("definitions").array(issue.fwd_names);
  json.key("based_on").begin_array();
  for (const auto* observation : related_issues(issue, Type::OBSERVATION, numbers)) {
    json.begin_object();
    write_heading(json, *observation, numbers);
    json.end_object();
  }
  json.end_array();
  json.end_object();
}

class Tickets : public PostprocessorExtension {
 public:
  /// Copies the record, whose issues and hierarchy stay the host's.
  explicit Tickets(PostprocessorExtensionData& engine_data) : PostprocessorExtension(engine_data) {
    data = engine_data;
  }

  /// Returns 0 for success; what throws in here reaches the host.
  int run() override {
    const IssueNumbers numbers(data);
    StatementWriter output;
    JsonWriter json(output);
    json.begin_object();
    // These two are facts of the stand-alone host; everything else any host has.
    json.key("verdict").value(vond::facts::verdict());
    json.key("silent_nodes").array(vond::facts::nodes_not_examined());
    json.key("tickets").begin_array();
    for_each_issue(data, [&](const Issue& issue, const auto& /*band*/, auto /*type*/, bool fails) {
      if (fails) {
        json.break_line();
        write_ticket(json, *issue, numbers);
      }
    });
    json.break_line();
    json.end_array();
    json.end_object();
    output << "\n";
    output.finish();
    return 0;
  }
};

}  // namespace

/// A host with another contract refuses the library.
VOND_EXPORT_CONTRACT;

/// Beside that the library's one symbol; all else is hidden. The caller owns the new extension.
extern "C" VOND_HOST_API PostprocessorExtension* create(PostprocessorExtensionData& data) {
  return new Tickets(data);
}
