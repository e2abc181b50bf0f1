#pragma once

#include <memory>
#include <string>
#include <vector>

#include "standalone/cli/output.h"

namespace vond::standalone {

/// The destinations of the report, registered with the output log as long as this lives.
class Destinations {
 public:
  /// Opens `files` beside standard output. Throws OutputError.
  Destinations(const std::vector<std::string>& files, bool colored);
  ~Destinations();
  Destinations(const Destinations&) = delete;
  Destinations& operator=(const Destinations&) = delete;

  /// Writes to standard output and to devices what is held back of a report that is not complete.
  /// The files are not kept.
  void abandon() noexcept { DescriptorBuffer::drain_all(); }

  /// Completes all destinations. Returns what is wrong with those that are not complete; a reader
  /// that has gone away is told nothing, for it knows.
  struct Outcome {
    bool complete = true;
    std::vector<std::string> errors;
  };
  Outcome finish();

 private:
  StandardOutput standard_output_;
  std::vector<std::unique_ptr<OutputFile>> files_;
};

}  // namespace vond::standalone
