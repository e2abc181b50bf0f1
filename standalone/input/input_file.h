#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vond::standalone {

/// A file that is read from its start to its end; it may be a pipe. Every fault is an InputError
/// that names the file as a whole.
class InputFile {
 public:
  /// How messages call standard input.
  static constexpr std::string_view NAME_OF_STANDARD_INPUT = "<stdin>";

  /// Opens the file at `path`; "-" is standard input. `expectation` says in messages what the file
  /// should have been: "a file of findings".
  InputFile(const std::string& path, std::string expectation);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  /// Reads up to `size` bytes to `buffer` and returns how many came; 0 is the end.
  std::size_t read(char* buffer, std::size_t size);

  /// How messages call the file: its path made harmless, or "<stdin>".
  const std::string& name() const noexcept { return name_; }

 private:
  [[noreturn]] void fail(const std::string& fault) const;

  std::string name_;
  std::string expectation_;
  int descriptor_;
  bool is_owned_;
};

}  // namespace vond::standalone
