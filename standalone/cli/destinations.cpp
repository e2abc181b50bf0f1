#include "standalone/cli/destinations.h"

#include <cerrno>

#include "standalone/cli/output/output_error.h"
#include "vond/log/output_log.h"

namespace vond::standalone {

Destinations::Destinations(const std::vector<std::string>& files, bool is_colored)
    : is_colored_(is_colored) {
  for (const std::string& path : files) {
    files_.push_back(std::make_unique<OutputFile>(path));
  }
}

std::vector<log::OutputStream> Destinations::streams() {
  std::vector<log::OutputStream> streams{{&standard_output_.stream(), is_colored_}};
  for (const auto& file : files_) {
    streams.push_back({&file->stream(), false});
  }
  return streams;
}

void Destinations::abandon() noexcept {
  standard_output_.drain();
  for (const auto& file : files_) {
    file->drain();
  }
}

Destinations::Outcome Destinations::finish() {
  Outcome outcome;
  finish_standard_output(outcome);
  for (const auto& file : files_) {
    try {
      file->commit();
    } catch (const OutputError& error) {
      outcome.is_complete = false;
      outcome.errors.emplace_back(error.what());
    }
  }
  return outcome;
}

void Destinations::finish_standard_output(Outcome& outcome) {
  const int error = standard_output_.drain();
  if (error == 0) {
    return;
  }
  outcome.is_complete = false;
  if (error != EPIPE) {
    outcome.errors.push_back(standard_output_.error_message());
  }
}

OutputLogConnection::OutputLogConnection(Destinations& destinations) {
  auto output_log = std::make_unique<log::OutputLog::OutputLogStream>();
  output_log->streams = destinations.streams();
  log::OutputLog::singleton_obj = std::move(output_log);
}

OutputLogConnection::~OutputLogConnection() { log::OutputLog::singleton_obj.reset(); }

}  // namespace vond::standalone
