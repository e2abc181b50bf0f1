#pragma once

#include "fwd_output.h"
#include "issue_printing.h"
#include "vond/host_api.h"
#include "vond/postprocessor/postprocessor_extension.h"
#include "vond/postprocessor/utility_functions.h"

namespace vond_output_log {

/// Everything that the report calls on its one stateless object: the host's utilities and the
/// extension's own printers, both of which are string interfaces.
class Utilities : public vond::postprocessor::UtilityFunctions,
                  public IssuePrinting,
                  public FwdOutputFunctions {};

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
  Utilities utilities_;
};

}  // namespace vond_output_log

/// The library's one symbol. The caller owns the new extension.
extern "C" VOND_HOST_API vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data);
