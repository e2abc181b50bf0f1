#pragma once

#include <ios>
#include <streambuf>
#include <string>
#include <vector>

namespace vond::test {

/// A stream buffer that notes every write, as its text, and every flush, as FLUSH.
class RecordingBuffer : public std::streambuf {
 public:
  static constexpr char FLUSH[] = "<flush>";

  std::vector<std::string> events;

 protected:
  std::streamsize xsputn(const char* text, std::streamsize size) override;
  int_type overflow(int_type character) override;
  int sync() override;
};

/// A stream buffer that throws std::runtime_error when it is flushed.
class BufferThatFailsToFlush : public RecordingBuffer {
 protected:
  int sync() override;
};

}  // namespace vond::test
