#pragma once

#include <string>
#include <type_traits>
#include <vector>

#include "fwd_output.h"
#include "issue_printing.h"
#include "issue_sections.h"
#include "issue_summaries.h"
#include "vond/host_api.h"
#include "vond/postprocessor/postprocessor_extension.h"
#include "vond/postprocessor/utility_functions.h"

namespace vond_output_log {

/// Everything that the report calls on its one stateless object: the host's utilities and the
/// extension's own printers, both of which are string interfaces.
class Utilities : public vond::postprocessor::UtilityFunctions,
                  public IssuePrinting,
                  public FwdOutputFunctions {
 public:
  // Two bases are string interfaces; on this object these names mean the tree's.
  std::string get_node_string(std::vector<std::vector<std::string>>& node_lists) {
    return FwdOutputFunctions::get_node_string(node_lists);
  }
  std::string get_short_name(const std::string& name) const {
    return FwdOutputFunctions::get_short_name(name);
  }
  std::string remove_endl(const std::string& text) const {
    return FwdOutputFunctions::remove_endl(text);
  }
};
static_assert(std::is_empty_v<Utilities>);

/// The text report.
class VondOutputLog : public vond::postprocessor::PostprocessorExtension {
 public:
  /// Keeps a copy of `engine_data`, which shares the pointees with the engine's own.
  explicit VondOutputLog(vond::postprocessor::PostprocessorExtensionData& engine_data);
  ~VondOutputLog() override;

  /// Writes the whole report. Returns 0, or 1 as soon as a step fails; what is written by then
  /// stays, and the end block is left out. Exceptions of the host's operations pass through.
  int run() override;

  /// Writes the section of the issues that contribute to FAIL or, with `other`, that of all others.
  /// Returns 1, with a message on standard error, when the record lacks the section's counts.
  int PrintSection(bool other);

 private:
  IssueSections make_sections(IssueSummaries& summaries);

  Utilities utilities_;
};

}  // namespace vond_output_log

/// The library's one symbol. The caller owns the new extension.
extern "C" VOND_HOST_API vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data);
