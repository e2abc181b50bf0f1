#include "standalone/cli/output_conflicts.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "standalone/cli/output/behind_links.h"
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

/// Whether the output would take the place of the file at `path`. Devices and pipes stay.
bool replaces(const Output& output, const std::string& path) {
  std::error_code error;
  return output.path != "-" && fs::is_regular_file(output.path, error) &&
         fs::equivalent(output.path, path, error);
}

/// A report in place of its own input is never what was meant.
void refuse_to_replace_inputs(const std::vector<Output>& outputs, const Options& options) {
  for (const Output& output : outputs) {
    for (const std::string& input : input_files(options)) {
      if (replaces(output, input == "-" ? "/dev/stdin" : input)) {
        throw UsageError(output.text() + ", which is an input, too");
      }
    }
  }
}

/// Returns where the file stands that an output to `path` makes or replaces, without any link;
/// nothing where it cannot be made.
std::optional<fs::path> place_of_file(const std::string& path) {
  std::error_code error;
  const fs::path file = behind_links(path);
  const fs::path folder = fs::canonical(file.has_parent_path() ? file.parent_path() : ".", error);
  if (error || fs::is_symlink(file, error)) {
    return std::nullopt;
  }
  return folder / file.filename();
}

bool are_one_file(const std::string& left, const std::string& right) {
  if (left == right || left == "-" || right == "-") {
    return left == right;
  }
  std::error_code error;
  const auto place = place_of_file(left);
  return (place && place == place_of_file(right)) || fs::equivalent(left, right, error);
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

bool goes_to_standard_output(const ExtensionRequest& request) {
  return !request.file || *request.file == "-";
}

bool writes_to_standard_output(const Options& options) {
  return options.extensions.empty() ||
         std::any_of(options.extensions.begin(), options.extensions.end(), goes_to_standard_output);
}

/// An output to the file of `>FILE` takes its name, and what standard output gets is lost.
void refuse_file_of_standard_output(const std::vector<Output>& outputs) {
  for (const Output& output : outputs) {
    if (replaces(output, "/dev/stdout")) {
      throw UsageError(output.text() + ", which standard output is, too");
    }
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
  if (writes_to_standard_output(options)) {
    refuse_file_of_standard_output(own);
    refuse_file_of_standard_output(shared);
  }
  if (!shared.empty() && !own.empty() && own.size() == options.extensions.size()) {
    throw UsageError(shared.front().text() +
                     ", but every extension has a file of its own, so that nothing would be in it");
  }
}

}  // namespace vond::standalone
