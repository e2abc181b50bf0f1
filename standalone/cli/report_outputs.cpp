#include "standalone/cli/report_outputs.h"

#include <cerrno>

#include "standalone/cli/extension_run.h"
#include "standalone/cli/message.h"
#include "standalone/cli/output/output_error.h"
#include "standalone/extensions/extension_loader.h"
#include "vond/log/output_log.h"

namespace vond::standalone {
namespace {

/// While it lives, the output log of the process writes to `streams`. There may be one at a time.
class OutputLogConnection {
 public:
  explicit OutputLogConnection(std::vector<log::OutputStream> streams) {
    auto output_log = std::make_unique<log::OutputLog::OutputLogStream>();
    output_log->streams = std::move(streams);
    log::OutputLog::singleton_obj = std::move(output_log);
  }
  ~OutputLogConnection() { log::OutputLog::singleton_obj.reset(); }
  OutputLogConnection(const OutputLogConnection&) = delete;
  OutputLogConnection& operator=(const OutputLogConnection&) = delete;
};

/// Completes `file`. Returns false, with a message, when that fails.
bool commit(OutputFile& file) {
  try {
    file.commit();
    return true;
  } catch (const OutputError& error) {
    print_message("error", error.what());
    return false;
  }
}

}  // namespace

ReportOutputs::ReportOutputs(const std::vector<ChosenExtension>& extensions,
                             const std::vector<std::string>& files, bool is_colored)
    : is_colored_(is_colored) {
  for (const std::string& path : files) {
    shared_files_.push_back(std::make_unique<OutputFile>(path));
  }
  for (const ChosenExtension& extension : extensions) {
    const bool has_file = extension.file && *extension.file != "-";
    outputs_.push_back(
        {extension, has_file ? std::make_unique<OutputFile>(*extension.file) : OwnedFile()});
  }
}

bool ReportOutputs::write(postprocessor::PostprocessorExtensionData& record) {
  bool is_complete = true;
  bool is_shared_whole = true;
  try {
    for (const Output& output : outputs_) {
      const bool is_whole = run(output, record);
      is_complete = is_whole && (!output.file || commit(*output.file)) && is_complete;
      is_shared_whole = is_shared_whole && (is_whole || output.extension.file);
    }
  } catch (...) {
    drain();
    throw;
  }
  return finish_shared(is_shared_whole) && is_complete;
}

std::vector<log::OutputStream> ReportOutputs::streams_of(const Output& output) {
  if (output.file) {
    return {{&output.file->stream(), false}};
  }
  std::vector<log::OutputStream> streams{{&standard_output_.stream(), is_colored_}};
  if (!output.extension.file) {
    for (const OwnedFile& file : shared_files_) {
      streams.push_back({&file->stream(), false});
    }
  }
  return streams;
}

/// Returns false, with a message, when the extension fails.
bool ReportOutputs::run(const Output& output, postprocessor::PostprocessorExtensionData& record) {
  const OutputLogConnection connection(streams_of(output));
  try {
    run_checked(output.extension, record);
    return true;
  } catch (const ExtensionError& error) {
    // Whoever sees both reads the text before what is wrong with it.
    drain();
    print_message("error", error.what());
    return false;
  }
}

/// Completes the files beside standard output, unless their text is not whole.
bool ReportOutputs::finish_shared(bool is_whole) {
  bool is_complete = finish_standard_output();
  if (is_whole) {
    for (const OwnedFile& file : shared_files_) {
      is_complete = commit(*file) && is_complete;
    }
  }
  return is_complete;
}

bool ReportOutputs::finish_standard_output() {
  const int error = standard_output_.drain();
  if (error != 0 && error != EPIPE) {
    print_message("error", standard_output_.error_message());
  }
  return error == 0;
}

/// Writes what is held back; regular files are there only once they are complete.
void ReportOutputs::drain() noexcept {
  standard_output_.drain();
  for (const OwnedFile& file : shared_files_) {
    file->drain();
  }
  for (const Output& output : outputs_) {
    if (output.file) {
      output.file->drain();
    }
  }
}

}  // namespace vond::standalone
