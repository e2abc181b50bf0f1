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

  /// Ends the text of all buffers of the process where it is: what comes later is dropped. Takes no
  /// memory.
  static void end_all_texts() noexcept;

  /// Writes what all buffers of the process hold back; for ends of the process that run no
  /// destructors. A handler of signals may call it.
  static void drain_all() noexcept;

 protected:
  int_type overflow(int_type character) override;
  int sync() override;

 private:
  void empty() noexcept;

  friend Listed<DescriptorBuffer>;

  int descriptor_;
  Flushing flushing_;
  int error_ = 0;
  bool text_has_ended_ = false;
  std::vector<char> block_;
};

}  // namespace vond::standalone
