#include "standalone/cli/destinations.h"

#include <cerrno>

#include "vond/log/output_log.h"

namespace vond::standalone {

Destinations::Destinations(const std::vector<std::string>& files, bool colored) {
  auto log = std::make_unique<log::OutputLog::OutputLogStream>();
  log->streams.push_back({&standard_output_.stream(), colored});
  for (const std::string& path : files) {
    files_.push_back(std::make_unique<OutputFile>(path));
    log->streams.push_back({&files_.back()->stream(), false});
  }
  log::OutputLog::singleton_obj = std::move(log);
}

Destinations::~Destinations() { log::OutputLog::singleton_obj.reset(); }

Destinations::Outcome Destinations::finish() {
  Outcome outcome;
  if (const int error = standard_output_.finish(); error != 0) {
    outcome.complete = false;
    if (error != EPIPE) {
      outcome.errors.push_back(standard_output_.error_message());
    }
  }
  for (const auto& file : files_) {
    try {
      file->commit();
    } catch (const OutputError& error) {
      outcome.complete = false;
      outcome.errors.emplace_back(error.what());
    }
  }
  return outcome;
}

}  // namespace vond::standalone
