#pragma once

#include <stdexcept>

namespace vond::standalone {

/// An output that cannot be written. what() names it.
class OutputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace vond::standalone
