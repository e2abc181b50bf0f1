#include "standalone/extensions/extension_loader.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cerrno>
#include <exception>
#include <filesystem>
#include <memory>
#include <new>
#include <system_error>

#include "vond/contract.h"
#include "vond/postprocessor/postprocessor_extension.h"

namespace vond::standalone {

using postprocessor::PostprocessorExtension;
using postprocessor::PostprocessorExtensionData;

namespace {

using Factory = PostprocessorExtension*(PostprocessorExtensionData&);

constexpr char FACTORY_NAME[] = "create";
constexpr char CONTRACT_NAME[] = "vond_contract";

struct LibraryCloser {
  void operator()(void* library) const { dlclose(library); }
};
using Library = std::unique_ptr<void, LibraryCloser>;

/// Throws unless there is a file that may be read.
void check_file(const std::string& path, const std::filesystem::path& file) {
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  if (status.type() == std::filesystem::file_type::not_found) {
    throw ExtensionError(path, "no such extension library");
  }
  if (std::filesystem::is_directory(status)) {
    throw ExtensionError(path, "is a directory, expected an extension library");
  }
  if (!error && ::access(file.c_str(), R_OK) != 0) {
    error.assign(errno, std::generic_category());
  }
  if (error) {
    throw ExtensionError(path,
                         "cannot be read (" + error.message() + "), expected an extension library");
  }
}

Library open_library(const std::string& path) {
  // dlopen() would search the system's folders for a bare name, and speak of a wrong file.
  std::error_code error;
  const std::filesystem::path file = std::filesystem::absolute(path, error);
  check_file(path, file);
  Library library(dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL));
  if (!library) {
    throw ExtensionError(path, std::string("cannot load the extension: ") + dlerror());
  }
  return library;
}

/// Throws when the library says that it was built for another contract: to call anything of it
/// would be a crash, or worse.
void check_contract(void* library, const std::string& path) {
  const auto* const version = static_cast<const int*>(dlsym(library, CONTRACT_NAME));
  if (version != nullptr && *version != VOND_CONTRACT_VERSION) {
    throw ExtensionError(path, "was built for version " + std::to_string(*version) +
                                   " of the contract, this program has version " +
                                   std::to_string(VOND_CONTRACT_VERSION) +
                                   "; build the extension anew");
  }
}

Factory* find_factory(void* library, const std::string& path) {
  void* symbol = dlsym(library, FACTORY_NAME);
  if (symbol == nullptr) {
    throw ExtensionError(path, std::string("no factory \"") + FACTORY_NAME +
                                   "\" in the library, so it is no extension");
  }
  return reinterpret_cast<Factory*>(symbol);
}

/// Returns what `step` returns, and turns whatever it throws into an ExtensionError.
template <typename Step>
auto guard(const std::string& path, const std::string& step_name, Step step) {
  try {
    return step();
  } catch (const std::bad_alloc&) {
    throw ExtensionError(path, "the extension's " + step_name + " failed: out of memory");
  } catch (const std::exception& error) {
    throw ExtensionError(path, "the extension's " + step_name + " failed: " + error.what());
  } catch (...) {
    throw ExtensionError(path, "the extension's " + step_name + " failed: unknown exception");
  }
}

}  // namespace

void run_extension(const std::string& path, PostprocessorExtensionData& record) {
  const Library library = open_library(path);
  check_contract(library.get(), path);
  Factory* const factory = find_factory(library.get(), path);
  const std::unique_ptr<PostprocessorExtension> extension(
      guard(path, "factory", [&] { return factory(record); }));
  if (!extension) {
    throw ExtensionError(path, "the extension's factory made no extension");
  }
  const int result = guard(path, "run", [&] { return extension->run(); });
  if (result != 0) {
    throw ExtensionError(path, "the extension's run returned " + std::to_string(result) +
                                   ": the report is not complete");
  }
}

}  // namespace vond::standalone
