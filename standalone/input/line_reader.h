#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/input/input_file.h"

namespace vond::standalone {

/// The longest line that is read, in bytes, its end not counted.
inline constexpr std::size_t LONGEST_LINE = std::size_t{64} << 20;

/// Splits a file into lines that end with LF or CRLF; the last one may lack its end. Holds one line
/// and a block of what follows it, never the file.
class LineReader {
 public:
  /// How many bytes behind a line's text may be read, whatever they hold.
  static constexpr std::size_t PADDING = 64;

  struct Line {
    /// Without the line's end and a byte order mark; valid until the next line is read. Empty when
    /// the line is too long.
    std::string_view text;
    /// From 1.
    std::size_t number = 0;
    /// The column of the text's first byte: 1, or 4 after a byte order mark.
    std::size_t column = 1;
    bool is_too_long = false;
  };

  /// Keeps a reference to `file`. `longest_line` is in bytes.
  explicit LineReader(InputFile& file, std::size_t longest_line = LONGEST_LINE);

  /// Reads the next line; false at the end of the file. Throws InputError when the file cannot be
  /// read.
  bool next(Line& line);

  /// How many bytes of the file's beginning are kept.
  static constexpr std::size_t BEGINNING = 4096;
  /// Returns how the file begins, as far as it has been read.
  std::string_view beginning() const noexcept { return beginning_; }

  /// The bytes taken from the file so far.
  std::size_t bytes_read() const noexcept { return bytes_read_; }

 private:
  bool fill();
  void take_line(Line& line, std::size_t length);
  void skip_rest_of_line();

  InputFile& file_;
  std::size_t longest_line_;
  std::vector<char> buffer_;
  /// What is unread of the buffer.
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::string beginning_;
  std::size_t bytes_read_ = 0;
  std::size_t lines_ = 0;
};

}  // namespace vond::standalone
