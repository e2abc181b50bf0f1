#include <optional>
#include <string>

#include "finding_lines.h"
#include "vond/extension/json_text.h"
#include "vond/extension/utc_time.h"
#include "vond/facts/run_facts.h"
#include "vond/host_api.h"
#include "vond/postprocessor/postprocessor_extension.h"

namespace vond_findings {

using vond::extension::StatementWriter;

namespace facts = vond::facts;

/// What was read, as findings that can be read again: a line for all that said the same. Needs a
/// host that exports vond::facts and keeps findings.
class Findings : public vond::postprocessor::PostprocessorExtension {
 public:
  explicit Findings(vond::postprocessor::PostprocessorExtensionData& engine_data)
      : PostprocessorExtension(engine_data) {
    data = engine_data;
  }

  int run() override {
    StatementWriter output;
    write_begin(output);
    facts::for_each_finding(
        [&output](const facts::Finding& finding) { write_finding(output, finding); });
    if (facts::nodes_examined()) {
      write_examined(output, facts::examined_nodes());
    }
    write_end(output);
    output.finish();
    return 0;
  }

 private:
  static void write_begin(StatementWriter& output) {
    std::string parts;
    for (const std::string& part : facts::parts()) {
      parts += (parts.empty() ? "" : ", ") + vond::extension::json_quote(part);
    }
    output << R"({"begin": {"format": 1, "written": ")"
           << vond::extension::utc_time(facts::collected_at()) << R"(", "parts": [)" << parts
           << "]}}\n";
  }

  static void write_end(StatementWriter& output) {
    const std::optional<std::size_t> examined = facts::nodes_examined();
    output << R"({"end": {"findings": )" << std::to_string(facts::findings_read())
           << R"(, "examined": )" << (examined ? std::to_string(*examined) : "null")
           << R"(, "lines_rejected": )" << std::to_string(facts::lines_rejected())
           << R"(, "complete": )" << (facts::has_whole_inputs() ? "true" : "false") << "}}\n";
  }
};

}  // namespace vond_findings

/// The library's one symbol. The caller owns the new extension.
extern "C" VOND_HOST_API vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data) {
  return new vond_findings::Findings(data);
}
