#pragma once

#include <stdexcept>
#include <string>

#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::standalone {

/// An extension that cannot be loaded or has failed. what() begins with its name.
class ExtensionError : public std::runtime_error {
 public:
  ExtensionError(const std::string& name, const std::string& message)
      : std::runtime_error(name + ": " + message) {}
};

/// Loads the extension library at `path`, creates its extension from `record`, runs that once,
/// deletes it and closes the library, in this order and whatever happens on the way. Messages call
/// it `name`. Throws ExtensionError when any of this fails, and before `create` is called when the
/// library tells of another contract; no exception of the extension itself gets out, for what it is
/// made of goes with the library.
void run_extension(const std::string& path, postprocessor::PostprocessorExtensionData& record,
                   const std::string& name);
inline void run_extension(const std::string& path,
                          postprocessor::PostprocessorExtensionData& record) {
  run_extension(path, record, path);
}

}  // namespace vond::standalone
