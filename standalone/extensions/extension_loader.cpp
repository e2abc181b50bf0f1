#include "standalone/extensions/extension_loader.h"

#include <dlfcn.h>

#include <cerrno>
#include <exception>
#include <filesystem>
#include <memory>
#include <new>
#include <system_error>

#include "vond/postprocessor/postprocessor_extension.h"

namespace vond::standalone {

using postprocessor::PostprocessorExtension;
using postprocessor::PostprocessorExtensionData;

namespace {

using Factory = PostprocessorExtension*(PostprocessorExtensionData&);

constexpr char FACTORY_NAME[] = "create";

struct LibraryCloser {
  void operator()(void* library) const { dlclose(library); }
};
using Library = std::unique_ptr<void, LibraryCloser>;

Library open_library(const std::string& path) {
  // dlopen() would search the system's folders for a bare name, and speak of a wrong file.
  std::error_code error;
  const std::filesystem::path file = std::filesystem::absolute(path, error);
  const auto status = std::filesystem::status(file, error);
  if (!std::filesystem::exists(status)) {
    throw ExtensionError(path, "no such extension library");
  }
  if (std::filesystem::is_directory(status)) {
    throw ExtensionError(path, "is a directory, expected an extension library");
  }
  Library library(dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL));
  if (!library) {
    throw ExtensionError(path, std::string("cannot load the extension: ") + dlerror());
  }
  return library;
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
