#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "standalone/input/input_error.h"
#include "standalone/input/input_file.h"

namespace vond::standalone {

/// Where a byte of a file stands, both from 1.
struct LineAndColumn {
  std::size_t line = 1;
  std::size_t column = 1;
};

/// A whole file, in memory.
class FileText {
 public:
  /// How many bytes behind the text may be read, whatever they hold.
  static constexpr std::size_t PADDING = 64;

  /// Reads the file at `path`; "-" is standard input. `expectation` says in messages what the file
  /// should have been. Throws InputError when it cannot be read or is larger than 256 MiB.
  FileText(const std::string& path, const std::string& expectation);

  const std::string& name() const noexcept { return file_.name(); }
  /// The file's text without a byte order mark; PADDING bytes may be read behind it.
  std::string_view text() const noexcept { return text_; }
  /// `where` points into the text or to its end. Quick when asked for places in ascending order.
  LineAndColumn place_of(const char* where);
  InputError error_at(const char* where, const std::string& message);

 private:
  void read_all(const std::string& expectation);

  InputFile file_;
  std::string content_;
  std::string_view text_;
  /// The line that was asked for last: its number, and where it starts.
  std::size_t line_ = 1;
  std::size_t line_start_ = 0;
};

}  // namespace vond::standalone
