#pragma once

#include <memory>
#include <string>
#include <vector>

#include "standalone/cli/output/output_file.h"
#include "standalone/cli/output/standard_output.h"
#include "vond/log/output_stream.h"

namespace vond::standalone {

/// Where one text goes: standard output, and files beside it.
class Destinations {
 public:
  /// What has become of all of them.
  struct Outcome {
    bool is_complete = true;
    /// What is wrong with those that are not complete. A reader that has gone away is not told of:
    /// it knows.
    std::vector<std::string> errors;
  };

  /// Opens all of them. `is_colored` is about standard output; files are plain text. Throws
  /// OutputError.
  Destinations(const std::vector<std::string>& files, bool is_colored);

  /// Returns the streams to write to, which live as long as this object.
  std::vector<log::OutputStream> streams();

  /// For a text that is not complete: writes to standard output and to devices what is held back.
  /// Regular files are not kept.
  void abandon() noexcept;

  /// Completes all destinations.
  Outcome finish();

 private:
  void finish_standard_output(Outcome& outcome);

  bool is_colored_;
  StandardOutput standard_output_;
  std::vector<std::unique_ptr<OutputFile>> files_;
};

/// While it lives, the output log of the process writes to `destinations`, which must live as long.
/// There may be one at a time.
class OutputLogConnection {
 public:
  explicit OutputLogConnection(Destinations& destinations);
  ~OutputLogConnection();
  OutputLogConnection(const OutputLogConnection&) = delete;
  OutputLogConnection& operator=(const OutputLogConnection&) = delete;
};

}  // namespace vond::standalone
