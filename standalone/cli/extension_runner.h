#pragma once

#include <string>
#include <vector>

#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::standalone {

/// Runs extensions in this process, and lets no fault of theirs pass for a whole report.
class ExtensionRunner {
 public:
  /// Keeps a reference to `data`, which every extension gets.
  explicit ExtensionRunner(postprocessor::PostprocessorExtensionData& data) : data_(data) {}

  /// Runs the libraries at `paths`, one after the other. Throws ExtensionError at the first that
  /// fails, and std::bad_alloc at the end when any of them lacked memory; from
  /// the first lack on nothing is written any more.
  void run(const std::vector<std::string>& paths);

 private:
  postprocessor::PostprocessorExtensionData& data_;
};

}  // namespace vond::standalone
