#include "standalone/input/file_text.h"

#include "standalone/input/byte_order_mark.h"

namespace vond::standalone {

namespace {

// An endless pipe must not take all memory.
constexpr std::size_t LARGEST_FILE = std::size_t{256} << 20;

}  // namespace

FileText::FileText(const std::string& path, const std::string& expectation)
    : file_(path, expectation) {
  read_all(expectation);
}

void FileText::read_all(const std::string& expectation) {
  constexpr std::size_t BLOCK = std::size_t{64} << 10;
  std::size_t size = 0;
  std::size_t count = 0;
  do {
    content_.resize(size + BLOCK + PADDING);
    count = file_.read(content_.data() + size, BLOCK);
    size += count;
    if (size > LARGEST_FILE) {
      throw InputError(name() + ": is larger than 256 MiB, expected " + expectation);
    }
  } while (count > 0);
  text_ = without_byte_order_mark(std::string_view(content_).substr(0, size));
}

LineAndColumn FileText::place_of(const char* where) {
  const auto offset = static_cast<std::size_t>(where - content_.data());
  if (offset < line_start_) {
    line_ = 1;
    line_start_ = 0;
  }
  std::size_t line_end = content_.find('\n', line_start_);
  while (line_end < offset) {
    ++line_;
    line_start_ = line_end + 1;
    line_end = content_.find('\n', line_start_);
  }
  return {line_, offset - line_start_ + 1};
}

InputError FileText::error_at(const char* where, const std::string& message) {
  const LineAndColumn place = place_of(where);
  return {name(), place.line, place.column, message};
}

}  // namespace vond::standalone
