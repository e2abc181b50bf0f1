#include "tests/support/recording_buffer.h"

#include <stdexcept>

namespace vond::test {

std::streamsize RecordingBuffer::xsputn(const char* text, std::streamsize size) {
  events.emplace_back(text, static_cast<std::size_t>(size));
  return size;
}

RecordingBuffer::int_type RecordingBuffer::overflow(int_type character) {
  if (traits_type::eq_int_type(character, traits_type::eof())) {
    return 0;
  }
  events.emplace_back(1, traits_type::to_char_type(character));
  return character;
}

int RecordingBuffer::sync() {
  events.emplace_back(FLUSH);
  return 0;
}

int BufferThatFailsToFlush::sync() { throw std::runtime_error("disk full"); }

}  // namespace vond::test
