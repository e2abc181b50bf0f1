#include "standalone/json/white_space.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using vond::standalone::is_json_white_space;
using vond::standalone::JSON_WHITE_SPACE;
using vond::standalone::without_white_space;
using vond::standalone::without_white_space_at_end;

TEST(JsonWhiteSpace, IsFourBytesAndNoOther) {
  for (int byte = 0; byte < 256; ++byte) {
    const char letter = static_cast<char>(byte);
    EXPECT_EQ(is_json_white_space(letter), byte == 0x20 || byte == 9 || byte == 10 || byte == 13)
        << byte;
    EXPECT_EQ(is_json_white_space(letter), JSON_WHITE_SPACE.find(letter) != std::string_view::npos)
        << byte;
  }
}

TEST(JsonWhiteSpace, IsTakenOffTheEnds) {
  EXPECT_EQ(without_white_space(" \t a \r b \n\r "), "a \r b");
  EXPECT_EQ(without_white_space("a"), "a");
  EXPECT_EQ(without_white_space(""), "");
  EXPECT_EQ(without_white_space(" \r\n\t"), "");
  EXPECT_EQ(without_white_space(" \v "), "\v");
  EXPECT_EQ(without_white_space_at_end(" a \n"), " a");
  EXPECT_EQ(without_white_space_at_end("  "), "");
}

}  // namespace
