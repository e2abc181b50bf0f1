#include "standalone/cli/output_conflicts.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "standalone/cli/usage_error.h"
#include "standalone/text/harmless_text.h"

namespace vond::standalone {
namespace {

namespace fs = std::filesystem;

/// A file that is to be written, and how the user asked for it.
struct Output {
  std::string option;
  std::string path;

  std::string text() const { return option + " is \"" + harmless(path) + "\""; }
};

std::vector<std::string> input_files(const Options& options) {
  std::vector<std::string> inputs = options.inputs;
  for (const auto* file : {&options.definitions, &options.acknowledged, &options.racks}) {
    if (*file) {
      inputs.push_back(**file);
    }
  }
  for (const auto* files : {&options.expect_files, &options.since}) {
    inputs.insert(inputs.end(), files->begin(), files->end());
  }
  return inputs;
}

/// Returns the files of extensions, "-" for standard output.
std::vector<Output> extension_files(const Options& options) {
  std::vector<Output> outputs;
  for (const auto& [extension, file] : options.extensions) {
    if (file) {
      outputs.push_back({"the file of --extension " + harmless(extension), *file});
    }
  }
  return outputs;
}

std::vector<Output> shared_files(const Options& options) {
  std::vector<Output> outputs;
  for (const std::string& path : options.outputs) {
    outputs.push_back({"--output", path});
  }
  return outputs;
}

bool is_file_of_input(const Output& output, const std::string& input) {
  std::error_code error;
  return fs::is_regular_file(output.path, error) &&
         fs::equivalent(output.path, input == "-" ? "/dev/stdin" : input, error);
}

/// A report in place of its own input is never what was meant.
void refuse_to_replace_inputs(const std::vector<Output>& outputs, const Options& options) {
  for (const Output& output : outputs) {
    for (const std::string& input : input_files(options)) {
      if (is_file_of_input(output, input)) {
        throw UsageError(output.text() + ", which is an input, too");
      }
    }
  }
}

bool are_one_file(const std::string& left, const std::string& right) {
  std::error_code error;
  const fs::path left_file = fs::weakly_canonical(left, error);
  return left == right || (!error && left_file == fs::weakly_canonical(right, error)) ||
         fs::equivalent(left, right, error);
}

/// Of two texts in one file only the last would be there, or a mixture.
void refuse_shared_file(const Output& output, const std::vector<Output>& others) {
  const auto found = std::find_if(others.begin(), others.end(), [&output](const Output& other) {
    return &other != &output && are_one_file(output.path, other.path);
  });
  if (found != others.end()) {
    throw UsageError(output.text() + ", which " + found->option + " is, too");
  }
}

}  // namespace

void refuse_conflicting_outputs(const Options& options) {
  const std::vector<Output> own = extension_files(options);
  const std::vector<Output> shared = shared_files(options);
  refuse_to_replace_inputs(own, options);
  refuse_to_replace_inputs(shared, options);
  for (const Output& output : own) {
    refuse_shared_file(output, own);
    refuse_shared_file(output, shared);
  }
  if (!shared.empty() && !own.empty() && own.size() == options.extensions.size()) {
    throw UsageError(shared.front().text() +
                     ", but every extension has a file of its own, so that nothing would be in it");
  }
}

}  // namespace vond::standalone
