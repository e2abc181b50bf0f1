#pragma once

#include <stdexcept>
#include <string>

#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::standalone {

/// An extension that cannot be loaded or has failed. what() begins with the library's path.
class ExtensionError : public std::runtime_error {
 public:
  ExtensionError(const std::string& path, const std::string& message)
      : std::runtime_error(path + ": " + message) {}
};

/// Loads the extension library at `path`, creates its extension from `record`, runs that once,
/// deletes it and closes the library, in this order and whatever happens on the way. Throws
/// ExtensionError when any of this fails, and before `create` is called when the library tells of
/// another contract; no exception of the extension itself gets out, for what it is made of goes
/// with the library.
void run_extension(const std::string& path, postprocessor::PostprocessorExtensionData& record);

}  // namespace vond::standalone
