// An output extension for grep and awk: a line an issue, its band, id and nodes between tabs.
#include <string>
#include <vector>

#include "vond/contract.h"
#include "vond/log/output_log.h"
#include "vond/postprocessor/postprocessor_extension.h"
#include "vond/postprocessor/string_interface.h"
#include "vond/vocabulary/severity_bands.h"

namespace {

using namespace vond::postprocessor;
using vond::log::OutputLog;

class Listing : public PostprocessorExtension {
 public:
  /// Copies the record, whose issues and hierarchy stay the host's.
  explicit Listing(PostprocessorExtensionData& engine_data) : PostprocessorExtension(engine_data) {
    data = engine_data;
  }

  /// Returns 0 for success; what throws in here reaches the host.
  int run() override {
    using namespace vond::vocabulary;
    // Issues are filed by severity, type and whether they contribute to FAIL; the worst come first.
    for (const auto& [lower, upper, severity, name] : descending_bands(SEVERITY_BANDS)) {
      const unsigned mask = static_cast<unsigned>(severity) | fail_bit(upper, data.fail_threshold);
      for (const TypeCode type : {DIAGNOSES, OBSERVATIONS, MISSING_DATA}) list(name, mask | type);
    }
    return 0;
  }

 private:
  /// Lists the issues that are filed under one mask.
  void list(const std::string& band, SeverityMask mask) const {
    const auto issues = data.issues_by_mask->find(mask);
    if (issues == data.issues_by_mask->end()) return;
    for (const auto& issue : issues->second) {
      if (!issue) continue;  // A host may leave gaps.
      OutputLog(OutputLog::NONE) << band << "\t" << issue->get_id() << "\t" << nodes(*issue)
                                 << "\n";
    }
  }

  /// Returns the nodes of all findings behind an issue as one folded set.
  static std::string nodes(const CollapsedAnalysisOutput& issue) {
    std::vector<std::vector<std::string>> lists;
    for (const auto& output : issue.outputs) lists.push_back(output->node_names);
    return StringInterface().get_node_string(lists);
  }
};

}  // namespace

/// A host with another contract refuses the library.
VOND_EXPORT_CONTRACT;

/// Beside that the library's one symbol; all else is hidden. The caller owns the new extension.
extern "C" VOND_HOST_API PostprocessorExtension* create(PostprocessorExtensionData& data) {
  return new Listing(data);
}
