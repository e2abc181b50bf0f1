#include <string>
#include <string_view>

#include "vond/extension/issue_order.h"
#include "vond/extension/node_summaries.h"
#include "vond/extension/one_line.h"
#include "vond/extension/statement.h"
#include "vond/extension/words.h"
#include "vond/facts/run_facts.h"
#include "vond/host_api.h"
#include "vond/postprocessor/postprocessor_extension.h"
#include "vond/postprocessor/string_interface.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_list {

using vond::extension::Issue;
using vond::extension::one_line;
using vond::extension::StatementWriter;
using vond::postprocessor::TypeCode;
using vond::vocabulary::SeverityBand;

/// A line an issue, in the order of the report: band, type, id, number of nodes, nodes, message,
/// with tabs between; behind these, where there was an earlier run, what has become of it. Neither
/// wrapped nor cut, so that programs can read it.
class List : public vond::postprocessor::PostprocessorExtension {
 public:
  explicit List(vond::postprocessor::PostprocessorExtensionData& engine_data)
      : PostprocessorExtension(engine_data) {
    data = engine_data;
  }

  int run() override {
    StatementWriter output;
    vond::extension::for_each_issue(
        data, [&](const Issue& issue, const SeverityBand& band, TypeCode type, bool /*fails*/) {
          write_line(output, *issue, vond::vocabulary::band_name(band),
                     vond::extension::type_word(type));
        });
    output.finish();
    return 0;
  }

 private:
  void write_line(StatementWriter& output,
                  const vond::postprocessor::CollapsedAnalysisOutput& issue, std::string_view band,
                  std::string_view type) {
    const std::string message = issue.outputs.empty() ? "" : issue.outputs[0]->message;
    output << band << "\t" << type << "\t" << one_line(issue.get_id()) << "\t"
           << std::to_string(vond::extension::count_distinct_nodes(issue)) << "\t"
           << one_line(vond::extension::folded_nodes(issue, host_)) << "\t" << one_line(message);
    if (const auto change = vond::facts::change(issue)) {
      output << "\t" << change->change;
    }
    output << "\n";
  }

  vond::postprocessor::StringInterface host_;
};

}  // namespace vond_list

/// The library's one symbol. The caller owns the new extension.
extern "C" VOND_HOST_API vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data) {
  return new vond_list::List(data);
}
