#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/findings/repeated_findings.h"
#include "standalone/input/input_error.h"
#include "standalone/input/line_reader.h"
#include "standalone/json/unknown_keys.h"
#include "standalone/model/finding.h"
#include "standalone/model/run_marks.h"

namespace vond::standalone {

class LineParser;

/// Takes what the lines of the input tell, in input order. Views live until the call returns.
class FindingsSink {
 public:
  virtual ~FindingsSink() = default;
  virtual void finding(const Finding& finding) = 0;
  /// These nodes were looked at. A name may stand more than once.
  virtual void examined(const std::vector<std::string_view>& nodes) = 0;
  /// Findings that were collapsed before begin, or end, here.
  virtual void begin(const RunBegin& /*run*/) {}
  virtual void end(const RunEnd& /*run*/) {}
};

struct ReadingOptions {
  /// A line that cannot be used ends the reading, in place of being counted and left out.
  bool is_strict = false;
  /// Names of definitions are paths whose parts become definitions themselves, so that a name must
  /// not have more than MAX_DEFINITION_DEPTH of them.
  bool definitions_are_paths = false;
  /// In bytes.
  std::size_t longest_line = LONGEST_LINE;
};

/// The lines that could not be used, of all files.
struct RejectedLines {
  /// How many errors are kept.
  static constexpr std::size_t MOST_ERRORS = 10;

  std::size_t count = 0;
  /// The first ones.
  std::vector<InputError> errors;
};

/// What became of the lines of one file. Blank ones do not count.
struct FileOutcome {
  std::size_t usable_lines = 0;
  std::size_t rejected_lines = 0;
  /// What to tell the user about a file of which not one line could be used, although there are
  /// some: "FILE: …", with what it seems to be where that can be told. Empty for any other file.
  std::string complaint = {};
};

/// Reads findings from JSON Lines, one file after the other. Memory does not grow with the input,
/// only with its longest line.
class FindingsReader {
 public:
  /// Keeps a reference to `sink`.
  explicit FindingsReader(FindingsSink& sink, ReadingOptions options = {});
  ~FindingsReader();
  FindingsReader(const FindingsReader&) = delete;
  FindingsReader& operator=(const FindingsReader&) = delete;

  /// Reads the file at `path` to its end; "-" is standard input. Throws InputError when the file
  /// cannot be read and, in strict reading, when a line cannot be used.
  FileOutcome read(const std::string& path);

  /// For the user to see as warnings: "FILE:LINE:COLUMN: …". One message per unknown key, in the
  /// order of their first places, then one per file with bytes that are not UTF-8.
  std::vector<std::string> warnings() const;

  /// What was left out of all files; nothing in strict reading.
  const RejectedLines& rejected() const noexcept { return rejected_; }

  /// The bytes taken from all files so far; a sink may ask while it is called.
  std::size_t bytes_read() const noexcept { return bytes_read_; }

 private:
  /// The lines of a file that hold bytes that are not UTF-8.
  struct MendedLines {
    std::string file;
    /// FILE:LINE:COLUMN of the first such byte.
    std::string first_place;
    std::size_t count = 0;
  };

  bool is_usable(const std::string& file, const LineReader::Line& line);
  void parse(const std::string& file, const LineReader::Line& line);
  void deliver(const std::string& file, const LineReader::Line& line);
  void note_mended_bytes(const std::string& file, const LineReader::Line& line);
  void reject(const InputError& error);

  FindingsSink& sink_;
  ReadingOptions options_;
  std::unique_ptr<LineParser> parser_;
  RepeatedFindings repeated_;
  UnknownKeys unknown_keys_;
  /// Of the files that have such lines.
  std::vector<MendedLines> mended_lines_;
  RejectedLines rejected_;
  std::size_t bytes_read_ = 0;
};

}  // namespace vond::standalone
