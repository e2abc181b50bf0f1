#pragma once

#include <string>

namespace vond::standalone {

/// While it lives an extension is in charge: what ends the process is told of as that one's fault.
/// There may be one at a time.
class RunningExtension {
 public:
  /// `path` is how the user named the extension. A copy that is harmless to show is kept for
  /// handlers of signals, which is cut when it is longer than any path should be.
  explicit RunningExtension(const std::string& path);
  ~RunningExtension();
  RunningExtension(const RunningExtension&) = delete;
  RunningExtension& operator=(const RunningExtension&) = delete;

  /// Returns the name of the extension in charge, "" if there is none. Handlers of signals may call
  /// it.
  static const char* name();

  /// Puts the last extension in charge again, for the end of the process: what it left behind, such
  /// as the static objects of a library that cannot be closed, goes only then.
  static void recall_last();
};

}  // namespace vond::standalone
