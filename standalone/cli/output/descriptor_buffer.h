#pragma once

#include <streambuf>
#include <vector>

#include "standalone/cli/output/listed.h"

namespace vond::standalone {

/// Writes to a file descriptor, which it does not own, and remembers the first error.
class DescriptorBuffer : public std::streambuf, private Listed<DescriptorBuffer> {
 public:
  enum class Flushing {
    /// Somebody is watching: a flush of the stream writes at once.
    AT_ONCE,
    /// A flush of the stream only makes sure that drain() will write; blocks are large.
    IN_BLOCKS,
  };

  DescriptorBuffer(int descriptor, Flushing flushing);

  /// Writes what is held back. After an error nothing is written any more. Returns error().
  int drain() noexcept;

  /// The errno of the first write that failed, 0 if none has.
  int error() const { return error_; }

  /// Writes what all buffers of the process hold back; for ends of the process that run no
  /// destructors. A handler of signals may call it.
  static void drain_all() noexcept;

 protected:
  int_type overflow(int_type character) override;
  int sync() override;

 private:
  friend Listed<DescriptorBuffer>;

  int descriptor_;
  Flushing flushing_;
  int error_ = 0;
  std::vector<char> block_;
};

}  // namespace vond::standalone
