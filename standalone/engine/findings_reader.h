#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "standalone/engine/finding.h"

namespace vond::standalone {

/// Reads findings from JSON Lines, one file after the other. Memory does not grow with the input.
class FindingsReader {
 public:
  using Sink = std::function<void(const Finding&)>;

  /// `sink` is called for every finding, in input order.
  explicit FindingsReader(Sink sink);

  /// Reads the file at `path` to its end; "-" is standard input. Throws InputError.
  void read(const std::string& path);

  /// One message per unknown key, in the order of their first places, for the user to see as
  /// warnings: "FILE:LINE:COLUMN: unknown key …".
  std::vector<std::string> warnings() const;

 private:
  Sink sink_;
};

}  // namespace vond::standalone
