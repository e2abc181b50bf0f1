#include "standalone/cli/output/descriptor_buffer.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>

namespace vond::standalone {
namespace {

constexpr std::size_t BLOCK_SIZE = 256UL * 1024;

/// Another process that shares the terminal or the pipe may have made it non-blocking.
void wait_until_writable(int descriptor) {
  pollfd waited{descriptor, POLLOUT, 0};
  ::poll(&waited, 1, -1);
}

}  // namespace

DescriptorBuffer::DescriptorBuffer(int descriptor, Flushing flushing)
    : descriptor_(descriptor), flushing_(flushing), block_(BLOCK_SIZE) {
  empty();
}

void DescriptorBuffer::empty() noexcept {
  // Without room each character comes to overflow().
  setp(block_.data(), block_.data() + (text_has_ended_ ? 0 : block_.size()));
}

void DescriptorBuffer::end_all_texts() noexcept {
  for_each([](DescriptorBuffer& buffer) {
    buffer.text_has_ended_ = true;
    buffer.drain();
  });
}

void DescriptorBuffer::drain_all() noexcept {
  for_each([](DescriptorBuffer& buffer) { buffer.drain(); });
}

int DescriptorBuffer::drain() noexcept {
  const char* position = pbase();
  while (error_ == 0 && position != pptr()) {
    const ssize_t written =
        ::write(descriptor_, position, static_cast<std::size_t>(pptr() - position));
    if (written >= 0) {
      position += written;
    } else if (errno == EAGAIN) {
      wait_until_writable(descriptor_);
    } else if (errno != EINTR) {
      error_ = errno;
    }
  }
  empty();
  return error_;
}

DescriptorBuffer::int_type DescriptorBuffer::overflow(int_type character) {
  drain();
  if (!text_has_ended_ && !traits_type::eq_int_type(character, traits_type::eof())) {
    *pptr() = traits_type::to_char_type(character);
    pbump(1);
  }
  return traits_type::not_eof(character);
}

int DescriptorBuffer::sync() {
  if (flushing_ == Flushing::AT_ONCE) {
    drain();
  }
  return 0;
}

}  // namespace vond::standalone
