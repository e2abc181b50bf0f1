#pragma once

#include <ctime>
#include <optional>
#include <string>

namespace vond::standalone {

/// What is known of an input before it is read.
struct RunInput {
  /// As reports call it: its path made harmless, or "standard input".
  std::string name;
  /// Its last change; without a value for what is no regular file.
  std::optional<std::time_t> changed_at;
};

/// `path` is that of the input; "-" is standard input.
RunInput describe_input(const std::string& path);

}  // namespace vond::standalone
