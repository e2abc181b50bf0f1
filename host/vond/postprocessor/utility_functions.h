#pragma once

#include <string>

#include "vond/host_api.h"
#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::postprocessor {

/// The host's report blocks and small helpers; stateless.
class VOND_HOST_API UtilityFunctions {
 public:
  /// Writes what the reader must know to trust the report, through the output log.
  void print_validation(const PostprocessorExtensionData& data);

  /// Writes the summary block through the output log. Returns 0, or 1 when that failed.
  int Summarize(const PostprocessorExtensionData& data);

  /// Writes the block that ends the report, through the output log. Returns 0.
  int PrintEnd(const PostprocessorExtensionData& data);

  /// Returns the number of decimal digits of a positive count; 1 for 0 and less.
  int GetDigits(int count) const;

  /// Returns the presentable form of an issue's id: without its qualifier.
  static std::string get_usable_id(const std::string& id);
};

}  // namespace vond::postprocessor
