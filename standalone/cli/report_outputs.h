#pragma once

#include <memory>
#include <string>
#include <vector>

#include "standalone/cli/extension_choice.h"
#include "standalone/cli/output/output_file.h"
#include "standalone/cli/output/standard_output.h"
#include "vond/log/output_stream.h"
#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::standalone {

/// The outputs of one report: each an extension's text, in a file of its own or on standard output
/// and in the files beside it. A fault of one takes nothing from the others.
class ReportOutputs {
 public:
  /// Opens all files. `files` are those beside standard output. `is_colored` is about standard
  /// output; files are plain text. Throws OutputError.
  ReportOutputs(const std::vector<ChosenExtension>& extensions,
                const std::vector<std::string>& files, bool is_colored);

  /// Runs the extensions, one after the other, and completes their files; to be called once. Prints
  /// a message about each that fails and each destination that is not complete; none about a reader
  /// that has gone away, for it knows. Returns whether everything is complete. Throws
  /// std::bad_alloc when memory ran out: from there on nothing is written any more, and only files
  /// of earlier extensions are there.
  bool write(postprocessor::PostprocessorExtensionData& record);

 private:
  using OwnedFile = std::unique_ptr<OutputFile>;

  struct Output {
    ChosenExtension extension;
    /// Null for standard output.
    OwnedFile file;
  };

  std::vector<log::OutputStream> streams_of(const Output& output);
  bool run(const Output& output, postprocessor::PostprocessorExtensionData& record);
  bool finish_shared(bool is_whole);
  bool finish_standard_output();
  void drain() noexcept;

  bool is_colored_;
  StandardOutput standard_output_;
  std::vector<OwnedFile> shared_files_;
  std::vector<Output> outputs_;
};

}  // namespace vond::standalone
