#include "standalone/findings/findings_reader.h"

#include <optional>

#include "standalone/findings/finding_keys.h"
#include "standalone/findings/input_guess.h"
#include "standalone/findings/line_parser.h"
#include "standalone/input/input_file.h"
#include "standalone/json/white_space.h"
#include "standalone/text/messages.h"

namespace vond::standalone {

namespace {

std::string size_text(std::size_t bytes) {
  constexpr std::size_t MEBIBYTE = std::size_t{1} << 20;
  return bytes % MEBIBYTE == 0 ? std::to_string(bytes / MEBIBYTE) + " MiB"
                               : std::to_string(bytes) + " bytes";
}

/// A place in a line of a file.
struct Place {
  const std::string& file;
  const LineReader::Line& line;

  std::string text(std::size_t offset) const {
    return file + ":" + std::to_string(line.number) + ":" + std::to_string(line.column + offset);
  }

  InputError error(std::size_t offset, const std::string& message) const {
    return {file, line.number, line.column + offset, message};
  }
};

}  // namespace

FindingsReader::FindingsReader(FindingsSink& sink, ReadingOptions options)
    : sink_(sink),
      options_(options),
      parser_(std::make_unique<LineParser>(options.definitions_are_paths)),
      unknown_keys_(finding_key_names()) {}

FindingsReader::~FindingsReader() = default;

FileOutcome FindingsReader::read(const std::string& path) {
  InputFile file(path, "a file of findings");
  LineReader lines(file, options_.longest_line);
  const std::size_t bytes_before = bytes_read_;
  const std::size_t rejected_before = rejected_.count;
  FileOutcome outcome;
  LineReader::Line line;
  while (lines.next(line)) {
    bytes_read_ = bytes_before + lines.bytes_read();
    if (const Finding* repeated = repeated_.find(line.text)) {
      sink_.finding(*repeated);
      ++outcome.usable_lines;
      continue;
    }
    if (!line.is_too_long && without_white_space(line.text).empty()) {
      continue;
    }
    if (is_usable(file.name(), line)) {
      deliver(file.name(), line);
      ++outcome.usable_lines;
    }
  }
  outcome.rejected_lines = rejected_.count - rejected_before;
  if (outcome.usable_lines == 0 && outcome.rejected_lines != 0) {
    outcome.complaint =
        complaint_about_useless(file.name(), outcome.rejected_lines, lines.beginning());
  }
  return outcome;
}

std::vector<std::string> FindingsReader::warnings() const {
  std::vector<std::string> messages = unknown_keys_.warnings();
  for (const MendedLines& lines : mended_lines_) {
    messages.push_back(lines.first_place + ": found bytes that are not UTF-8, which are shown as " +
                       "\\xe9 (" + count_of(lines.count, "line", "lines") + ")");
  }
  return messages;
}

/// Reads `line`; false when it was rejected.
bool FindingsReader::is_usable(const std::string& file, const LineReader::Line& line) {
  try {
    parse(file, line);
    return true;
  } catch (const InputError& error) {
    if (options_.is_strict) {
      throw;
    }
    reject(error);
    return false;
  }
}

/// Throws InputError when `line` cannot be used.
void FindingsReader::parse(const std::string& file, const LineReader::Line& line) {
  const Place place{file, line};
  if (line.is_too_long) {
    throw place.error(0, "the line is longer than " + size_text(options_.longest_line) +
                             ", expected one finding a line");
  }
  if (const std::optional<JsonFault> fault = parser_->parse(line.text)) {
    throw place.error(fault->offset, fault->message);
  }
}

/// Hands on what was read from `line`.
void FindingsReader::deliver(const std::string& file, const LineReader::Line& line) {
  const FindingParser& result = parser_->result();
  for (const UnknownKey& unknown : result.unknown_keys()) {
    const std::size_t offset = parser_->offset_of(unknown.where);
    unknown_keys_.add(unknown.key, file, line.number, line.column + offset);
  }
  note_mended_bytes(file, line);
  switch (result.kind()) {
    case FindingParser::Kind::EXAMINED:
      return sink_.examined(result.examined());
    case FindingParser::Kind::BEGIN:
      return sink_.begin(result.begin());
    case FindingParser::Kind::END:
      return sink_.end(result.end());
    case FindingParser::Kind::FINDING:
      break;
  }
  sink_.finding(result.finding());
  if (parser_->is_as_it_stands()) {
    repeated_.learn(line.text, result);
  }
}

void FindingsReader::note_mended_bytes(const std::string& file, const LineReader::Line& line) {
  const std::optional<std::size_t> offset = parser_->first_mended_byte();
  if (!offset) {
    return;
  }
  if (mended_lines_.empty() || mended_lines_.back().file != file) {
    const Place place{file, line};
    mended_lines_.push_back({file, place.text(*offset), 0});
  }
  ++mended_lines_.back().count;
}

void FindingsReader::reject(const InputError& error) {
  ++rejected_.count;
  if (rejected_.errors.size() < RejectedLines::MOST_ERRORS) {
    rejected_.errors.push_back(error);
  }
}

}  // namespace vond::standalone
