#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace vond::standalone {

/// Something in an input that cannot be used. what() is the whole message:
/// "FILE:LINE:COLUMN: what is wrong, what was expected", without line and column where the file as
/// a whole is at fault.
class InputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;

  /// Line and column count from 1, the column in bytes.
  InputError(const std::string& file, std::size_t line, std::size_t column,
             const std::string& message)
      : std::runtime_error(file + ":" + std::to_string(line) + ":" + std::to_string(column) + ": " +
                           message) {}
};

}  // namespace vond::standalone
