#pragma once

#include <stdexcept>

namespace vond::standalone {

/// A command line, or a setting of the environment, that cannot be used. what() tells what is
/// wrong.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace vond::standalone
