#include "standalone/input/line_reader.h"

#include <algorithm>
#include <cstring>

#include "standalone/input/byte_order_mark.h"

namespace vond::standalone {

namespace {

constexpr std::size_t FIRST_BUFFER_SIZE = std::size_t{128} << 10;

}  // namespace

LineReader::LineReader(InputFile& file, std::size_t longest_line)
    : file_(file), longest_line_(longest_line), buffer_(FIRST_BUFFER_SIZE + PADDING) {}

bool LineReader::next(Line& line) {
  std::size_t searched = 0;
  while (true) {
    const char* const unread = buffer_.data() + begin_;
    const std::size_t size = end_ - begin_;
    if (const void* line_feed = std::memchr(unread + searched, '\n', size - searched)) {
      take_line(line, static_cast<std::size_t>(static_cast<const char*>(line_feed) - unread));
      ++begin_;
      return true;
    }
    // What does not count as text may stand around the longest line.
    if (size > longest_line_ + BYTE_ORDER_MARK.size() + 1) {
      line = {{}, ++lines_, 1, true};
      skip_rest_of_line();
      return true;
    }
    searched = size;
    if (!fill()) {
      break;
    }
  }
  if (begin_ == end_) {
    return false;
  }
  take_line(line, end_ - begin_);
  return true;
}

/// Hands out the next `length` bytes as a line.
void LineReader::take_line(Line& line, std::size_t length) {
  line = {{buffer_.data() + begin_, length}, ++lines_, 1, false};
  begin_ += length;
  if (line.number == 1) {
    line.text = without_byte_order_mark(line.text);
    line.column += length - line.text.size();
  }
  if (!line.text.empty() && line.text.back() == '\r') {
    line.text.remove_suffix(1);
  }
  if (line.text.size() > longest_line_) {
    line.text = {};
    line.is_too_long = true;
  }
}

void LineReader::skip_rest_of_line() {
  do {
    const void* const line_feed = std::memchr(buffer_.data() + begin_, '\n', end_ - begin_);
    if (line_feed != nullptr) {
      begin_ = static_cast<std::size_t>(static_cast<const char*>(line_feed) - buffer_.data()) + 1;
      return;
    }
    begin_ = end_;
  } while (fill());
}

/// Reads more behind what is unread; false at the end of the file.
bool LineReader::fill() {
  std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = 0;
  if (end_ + PADDING == buffer_.size()) {
    buffer_.resize(2 * end_ + PADDING);
  }
  char* const end = buffer_.data() + end_;
  const std::size_t count = file_.read(end, buffer_.size() - PADDING - end_);
  if (beginning_.size() < BEGINNING) {
    beginning_.append(end, std::min(count, BEGINNING - beginning_.size()));
  }
  end_ += count;
  bytes_read_ += count;
  return count > 0;
}

}  // namespace vond::standalone
