#include "vond/extension/json_text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using vond::extension::json_quote;

TEST(JsonText, OfPlainTextIsItInQuotes) {
  EXPECT_EQ(json_quote(""), R"("")");
  EXPECT_EQ(json_quote("fan 3 at 83C"), R"("fan 3 at 83C")");
}

TEST(JsonText, EscapesQuotesBackslashesAndControlCharacters) {
  EXPECT_EQ(json_quote("\"a\\b\""), R"("\"a\\b\"")");
  EXPECT_EQ(json_quote(std::string("\0\x01\t\n\r\x1f\x7f", 7)),
            "\"\\u0000\\u0001\\u0009\\u000a\\u000d\\u001f\\u007f\"");
}

TEST(JsonText, KeepsCharactersOfUtf8) {
  for (const char* text :
       {"\xC2\x80", "\xC3\xA4", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
        "\xEF\xBF\xBD", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_EQ(json_quote(text), "\"" + std::string(text) + "\"");
  }
}

TEST(JsonText, EscapesWhatEndsLinesInJavaScript) {
  EXPECT_EQ(json_quote("a\xE2\x80\xA8z\xE2\x80\xA9"), R"("a\u2028z\u2029")");
  EXPECT_EQ(json_quote("\xE2\x80\xA7\xE2\x80\xAA"), "\"\xE2\x80\xA7\xE2\x80\xAA\"");
}

TEST(JsonText, BytesThatAreNotUtf8BecomeReplacementCharactersOneEach) {
  EXPECT_EQ(json_quote("\xE9t\xE9"), R"("\ufffdt\ufffd")");
  // A lone continuation, overlong forms, a surrogate, above U+10FFFF, cut off.
  EXPECT_EQ(json_quote("\x80"), R"("\ufffd")");
  EXPECT_EQ(json_quote("\xC0\x80"), R"("\ufffd\ufffd")");
  EXPECT_EQ(json_quote("\xE0\x9F\xBF"), R"("\ufffd\ufffd\ufffd")");
  EXPECT_EQ(json_quote("\xED\xA0\x80"), R"("\ufffd\ufffd\ufffd")");
  EXPECT_EQ(json_quote("\xF0\x8F\xBF\xBF"), R"("\ufffd\ufffd\ufffd\ufffd")");
  EXPECT_EQ(json_quote("\xF4\x90\x80\x80"), R"("\ufffd\ufffd\ufffd\ufffd")");
  EXPECT_EQ(json_quote("\xE2\x82"), R"("\ufffd\ufffd")");
  EXPECT_EQ(json_quote("a\xFF"), R"("a\ufffd")");
}

}  // namespace
