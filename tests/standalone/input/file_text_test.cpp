#include "standalone/input/file_text.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "tests/standalone/support/test_input.h"

namespace {

using vond::standalone::FileText;
using vond::standalone::InputError;
using vond::standalone::LineAndColumn;
using vond::test::TestFile;

const std::string BYTE_ORDER_MARK = "\xEF\xBB\xBF";

std::string text_of(const std::string& content) {
  const TestFile file(content);
  return std::string(FileText(file.path(), "a file").text());
}

/// Returns "LINE:COLUMN" of the byte at `offset` of the text.
std::string place(FileText& file, std::size_t offset) {
  const LineAndColumn place = file.place_of(file.text().data() + offset);
  return std::to_string(place.line) + ":" + std::to_string(place.column);
}

TEST(FileText, HoldsTheWholeFile) {
  EXPECT_EQ(text_of(""), "");
  EXPECT_EQ(text_of("a\nb"), "a\nb");
  EXPECT_EQ(text_of(std::string("a\0b", 3)), std::string("a\0b", 3));
  for (const std::size_t size : {65535U, 65536U, 65537U, 300000U}) {
    EXPECT_EQ(text_of(std::string(size, 'x')), std::string(size, 'x'));
  }
}

TEST(FileText, LeavesOutAByteOrderMarkAtItsStart) {
  EXPECT_EQ(text_of(BYTE_ORDER_MARK + "a" + BYTE_ORDER_MARK), "a" + BYTE_ORDER_MARK);
  EXPECT_EQ(text_of(BYTE_ORDER_MARK), "");
  EXPECT_EQ(text_of("\xEF\xBB"), "\xEF\xBB");
}

TEST(FileText, MayBeReadBehindItsEnd) {
  const TestFile test_file("abc");
  const FileText file(test_file.path(), "a file");
  // Under the address sanitizer this fails where the padding is missing.
  unsigned sum = 0;
  for (std::size_t i = 0; i < FileText::PADDING; ++i) {
    sum += static_cast<unsigned char>(file.text().data()[file.text().size() + i]);
  }
  EXPECT_LE(sum, 255U * FileText::PADDING);
}

TEST(FileText, CountsLinesAndColumnsFrom1) {
  const TestFile test_file("ab\n\ncd");
  FileText file(test_file.path(), "a file");
  EXPECT_EQ(place(file, 0), "1:1");
  EXPECT_EQ(place(file, 1), "1:2");
  EXPECT_EQ(place(file, 2), "1:3") << "a line feed ends its line";
  EXPECT_EQ(place(file, 3), "2:1");
  EXPECT_EQ(place(file, 4), "3:1");
  EXPECT_EQ(place(file, 6), "3:3") << "the end of the text";
}

TEST(FileText, KnowsPlacesInAnyOrder) {
  const TestFile test_file("ab\ncd\nef");
  FileText file(test_file.path(), "a file");
  EXPECT_EQ(place(file, 7), "3:2");
  EXPECT_EQ(place(file, 4), "2:2");
  EXPECT_EQ(place(file, 3), "2:1");
  EXPECT_EQ(place(file, 0), "1:1");
  EXPECT_EQ(place(file, 6), "3:1");
}

TEST(FileText, CountsColumnsInBytesOfTheFile) {
  const TestFile test_file(BYTE_ORDER_MARK + "\xC3\xA4x\n\xC3\xA4x");
  FileText file(test_file.path(), "a file");
  EXPECT_EQ(place(file, 0), "1:4") << "behind the byte order mark";
  EXPECT_EQ(place(file, 2), "1:6");
  EXPECT_EQ(place(file, 6), "2:3");
}

TEST(FileText, NamesFileLineAndColumnInErrors) {
  const TestFile test_file("a\nbc");
  FileText file(test_file.path(), "a file");
  const InputError error = file.error_at(file.text().data() + 3, "is wrong");
  EXPECT_EQ(test_file.without_path(error.what()), "FILE:2:2: is wrong");
}

TEST(FileText, RefusesMoreThan256Mebibytes) {
  const TestFile test_file("");
  ASSERT_EQ(::truncate(test_file.path().c_str(), (off_t{256} << 20U) + 1), 0);
  try {
    const FileText file(test_file.path(), "a file of definitions");
    ADD_FAILURE() << "no error";
  } catch (const InputError& error) {
    EXPECT_EQ(test_file.without_path(error.what()),
              "FILE: is larger than 256 MiB, expected a file of definitions");
  }
}

}  // namespace
