#include "standalone/acknowledged/acknowledgements_reader.h"

#include <optional>
#include <utility>

#include "standalone/input/input_error.h"
#include "standalone/input/input_file.h"
#include "standalone/input/line_reader.h"
#include "standalone/json/parsing_fault.h"
#include "standalone/json/white_space.h"
#include "standalone/text/messages.h"

namespace vond::standalone {
namespace {

constexpr std::size_t MOST_FAULTS = 10;

Acknowledgement read_line(const std::string& file, const LineReader::Line& line,
                          AcknowledgementParser& parser) {
  if (line.is_too_long) {
    throw InputError(file, line.number, line.column,
                     "more than " + std::to_string(LONGEST_LINE) +
                         " bytes, expected one acknowledgement a line");
  }
  Acknowledgement entry;
  const std::optional<JsonFault> fault =
      find_parsing_fault(line.text, "line", [&] { entry = parser.parse(line.text); });
  if (fault) {
    throw InputError(file, line.number, line.column + fault->offset, fault->message);
  }
  return entry;
}

/// Keeps the first faults and counts the others.
class Faults {
 public:
  void add(const std::string& fault) {
    if (++count_ <= MOST_FAULTS) {
      first_.push_back(fault);
    }
  }

  std::vector<std::string> take(const std::string& file) {
    if (count_ > MOST_FAULTS) {
      first_.push_back(file + ": " + count_of(count_ - MOST_FAULTS, "more line", "more lines") +
                       " cannot be used");
    }
    return std::move(first_);
  }

 private:
  std::vector<std::string> first_;
  std::size_t count_ = 0;
};

}  // namespace

AcknowledgementsFile read_acknowledgements(const std::string& path, LongestAcknowledgement longest,
                                           FaultyLines faulty_lines) {
  InputFile file(path, "a file of acknowledgements");
  LineReader lines(file);
  AcknowledgementParser parser(longest);
  std::vector<Acknowledgement> entries;
  Faults faults;
  for (LineReader::Line line; lines.next(line);) {
    if (!line.is_too_long && without_white_space(line.text).empty()) {
      continue;
    }
    try {
      entries.push_back(read_line(file.name(), line, parser));
    } catch (const InputError& error) {
      if (faulty_lines == FaultyLines::REFUSED) {
        throw;
      }
      faults.add(error.what());
    }
  }
  return {std::move(entries), faults.take(file.name())};
}

}  // namespace vond::standalone
