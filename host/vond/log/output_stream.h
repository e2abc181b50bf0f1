#pragma once

#include <iosfwd>

namespace vond::log {

/// A destination of the output log.
struct OutputStream {
  /// Not owned.
  std::ostream* stream = nullptr;
  /// Whether colour codes may be written to it.
  bool colored = false;
};

}  // namespace vond::log
