#include "standalone/extensions/extension_loader.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cerrno>
#include <exception>
#include <filesystem>
#include <memory>
#include <new>
#include <system_error>
#include <typeinfo>

#include "standalone/extensions/readable_names.h"
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
void check_file(const std::string& name, const std::filesystem::path& file) {
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  if (status.type() == std::filesystem::file_type::not_found) {
    throw ExtensionError(name, "no such extension library");
  }
  if (std::filesystem::is_directory(status)) {
    throw ExtensionError(name, "is a directory, expected an extension library");
  }
  if (!error && ::access(file.c_str(), R_OK) != 0) {
    error.assign(errno, std::generic_category());
  }
  if (error) {
    throw ExtensionError(name,
                         "cannot be read (" + error.message() + "), expected an extension library");
  }
}

/// Returns what dlerror() says of the file, without its name, which messages begin with.
std::string loading_fault(const std::string& file) {
  std::string fault = dlerror();
  const std::string lead = file + ": ";
  if (fault.compare(0, lead.size(), lead) == 0) {
    fault.erase(0, lead.size());
  }
  return with_readable_name(fault);
}

Library open_library(const std::string& name, const std::string& path) {
  // dlopen() would search the system's folders for a bare name, and speak of a wrong file.
  std::error_code error;
  const std::filesystem::path file = std::filesystem::absolute(path, error);
  check_file(name, file);
  Library library(dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL));
  if (!library) {
    throw ExtensionError(name, "cannot load the extension: " + loading_fault(file));
  }
  return library;
}

/// Throws when the library says that it was built for another contract: to call anything of it
/// would be a crash, or worse.
void check_contract(void* library, const std::string& name) {
  const auto* const version = static_cast<const int*>(dlsym(library, CONTRACT_NAME));
  if (version != nullptr && *version != VOND_CONTRACT_VERSION) {
    throw ExtensionError(name, "was built for version " + std::to_string(*version) +
                                   " of the contract, this program has version " +
                                   std::to_string(VOND_CONTRACT_VERSION) +
                                   "; build the extension anew");
  }
}

Factory* find_factory(void* library, const std::string& name) {
  void* symbol = dlsym(library, FACTORY_NAME);
  if (symbol == nullptr) {
    throw ExtensionError(name, std::string("no factory \"") + FACTORY_NAME +
                                   "\" in the library, so it is no extension");
  }
  return reinterpret_cast<Factory*>(symbol);
}

std::string text_of(const std::exception& error) {
  const std::string text = error.what();
  return text.empty() ? readable_name(typeid(error)) + " without a text" : text;
}

/// Returns what `step` returns, and turns whatever it throws into an ExtensionError.
template <typename Step>
auto guard(const std::string& name, const std::string& step_name, Step step) {
  try {
    return step();
  } catch (const std::bad_alloc&) {
    throw ExtensionError(name, "the extension's " + step_name + " failed: out of memory");
  } catch (const std::exception& error) {
    throw ExtensionError(name, "the extension's " + step_name + " failed: " + text_of(error));
  } catch (...) {
    throw ExtensionError(name, "the extension's " + step_name + " failed: unknown exception");
  }
}

}  // namespace

void run_extension(const std::string& path, PostprocessorExtensionData& record,
                   const std::string& name) {
  const Library library = open_library(name, path);
  check_contract(library.get(), name);
  Factory* const factory = find_factory(library.get(), name);
  const std::unique_ptr<PostprocessorExtension> extension(
      guard(name, "factory", [&] { return factory(record); }));
  if (!extension) {
    throw ExtensionError(name, "the extension's factory made no extension");
  }
  const int result = guard(name, "run", [&] { return extension->run(); });
  if (result != 0) {
    throw ExtensionError(name, "the extension's run returned " + std::to_string(result) +
                                   ": the report is not complete");
  }
}

}  // namespace vond::standalone
