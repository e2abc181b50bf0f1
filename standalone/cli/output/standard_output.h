#pragma once

#include <ostream>
#include <string>

#include "standalone/cli/output/descriptor_buffer.h"

namespace vond::standalone {

/// Standard output, as somebody who watches a terminal or as a program at the end of a pipe wants
/// it. What is held back has to be drained before this object goes.
class StandardOutput {
 public:
  StandardOutput();

  std::ostream& stream() { return stream_; }

  /// Writes what is held back. Returns the errno of the first write that failed, 0 if none has.
  int drain() noexcept { return buffer_.drain(); }

  /// Says what kept the text from being written.
  std::string error_message() const;

 private:
  DescriptorBuffer buffer_;
  std::ostream stream_{&buffer_};
};

}  // namespace vond::standalone
