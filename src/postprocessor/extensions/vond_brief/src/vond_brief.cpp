#include <string>

#include "vond/extension/statement.h"
#include "vond/facts/run_facts.h"
#include "vond/host_api.h"
#include "vond/log/output_log.h"
#include "vond/postprocessor/postprocessor_extension.h"
#include "vond/postprocessor/utility_functions.h"
#include "vond/util/engine_helper.h"

namespace vond_brief {

/// The text report without its issues and definitions: what mail, chat and `watch` have room for.
/// Needs a host that exports vond::facts.
class Brief : public vond::postprocessor::PostprocessorExtension {
 public:
  explicit Brief(vond::postprocessor::PostprocessorExtensionData& engine_data)
      : PostprocessorExtension(engine_data) {
    data = engine_data;
  }

  /// Returns 0, or 1 when the host's summary fails.
  int run() override {
    vond::postprocessor::UtilityFunctions host;
    vond::extension::write(vond::util::EngineHelper::format_header());
    vond::extension::write(std::string(RULE_WIDTH, '-') + "\n");
    host.print_validation(data);
    if (host.Summarize(data) == 1) {
      return 1;
    }
    // The host's own end would repeat the summary, which stands right above.
    const std::string verdict = vond::facts::verdict();
    vond::log::OutputLog(color_of(verdict)) << "End of report. Verdict: " << verdict << "\n";
    return 0;
  }

 private:
  static vond::log::OutputLog::Colors color_of(const std::string& verdict) {
    if (verdict == "PASS") {
      return vond::log::OutputLog::GREEN;
    }
    return verdict == "FAIL" ? vond::log::OutputLog::RED : vond::log::OutputLog::YELLOW;
  }

  static constexpr std::size_t RULE_WIDTH = 80;
};

}  // namespace vond_brief

/// The library's one symbol. The caller owns the new extension.
extern "C" VOND_HOST_API vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data) {
  return new vond_brief::Brief(data);
}
