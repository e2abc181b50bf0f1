#include "standalone/cli/extension_choice.h"

#include <filesystem>
#include <string_view>
#include <system_error>

#include "standalone/cli/environment.h"
#include "standalone/cli/usage_error.h"
#include "standalone/extensions/extension_path.h"
#include "standalone/text/harmless_text.h"
#include "standalone/text/messages.h"
#include "standalone/text/suggestion.h"

namespace vond::standalone {
namespace {

std::vector<std::filesystem::path> folders() {
  return extension_folders(program_folder(), VOND_EXTENSION_FOLDER, extension_search_path());
}

[[noreturn]] void refuse_unknown(const std::string& name) {
  const std::vector<std::string> known = extension_names(folders());
  std::vector<std::string> shown;
  shown.reserve(known.size());
  for (const std::string& extension : known) {
    shown.push_back(harmless(extension));
  }
  const std::vector<std::string_view> candidates(shown.begin(), shown.end());
  std::error_code error;
  const std::string library_hint = std::filesystem::exists(name, error)
                                       ? "; a library is named with a \"/\": ./" + harmless(name)
                                       : "";
  throw UsageError("--extension is \"" + harmless(name) + "\", expected " +
                   (shown.empty() ? "the path of a library, for no extension is installed"
                                  : one_of(candidates) + " or the path of a library") +
                   (library_hint.empty() ? suggestion_for(name, candidates) : library_hint));
}

bool is_path(const std::string& extension) { return extension.find('/') != std::string::npos; }

std::string library_of(const std::string& extension) {
  if (is_path(extension)) {
    return extension;
  }
  const auto library = find_extension(extension, folders());
  if (!library) {
    refuse_unknown(extension);
  }
  return *library;
}

/// Where there is none, that is no mistake of the user's: loading tells what is missing.
ChosenExtension text_report() {
  const std::vector<std::filesystem::path> searched = folders();
  const auto library = find_extension(TEXT_REPORT, searched);
  const std::filesystem::path installed = searched[1] / extension_library(TEXT_REPORT);
  return {library ? std::string(TEXT_REPORT) : installed.string(), library.value_or(installed), {}};
}

}  // namespace

std::vector<ChosenExtension> choose_extensions(const std::vector<ExtensionRequest>& requests) {
  std::vector<ChosenExtension> chosen;
  chosen.reserve(requests.size());
  for (const auto& [extension, file] : requests) {
    chosen.push_back({extension, library_of(extension), file});
  }
  if (chosen.empty()) {
    chosen.push_back(text_report());
  }
  return chosen;
}

std::string list_extensions() {
  const std::vector<std::filesystem::path> searched = folders();
  std::string lines;
  for (const std::string& name : extension_names(searched)) {
    lines += harmless(name) + "\t" + harmless(find_extension(name, searched)->native()) + "\n";
  }
  return lines;
}

}  // namespace vond::standalone
