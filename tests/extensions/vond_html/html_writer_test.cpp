#include "html_writer.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/captured_output_log.h"

namespace vond_html {
namespace {

template <typename Write>
std::string written(Write write) {
  vond::test::CapturedOutputLog output;
  HtmlWriter page;
  write(page);
  page.finish();
  return output.text();
}

TEST(HtmlWriter, NestsElementsAndEndsLinesBehindThoseThatAreNoPartOfOne) {
  EXPECT_EQ(written([](HtmlWriter& page) {
              page.open("p").element("b", "a").text(" b").close().element("div", "c");
            }),
            "<p><b>a</b> b</p>\n<div>c</div>\n");
}

TEST(HtmlWriter, TextIsNothingButText) {
  EXPECT_EQ(written([](HtmlWriter& page) { page.text("<b title='a'>\"&amp;\x01\xFF"); }),
            "&lt;b title=&apos;a&apos;&gt;&quot;&amp;amp;\uFFFD\uFFFD");
}

TEST(HtmlWriter, ValuesOfAttributesDoNotEndThem) {
  EXPECT_EQ(written([](HtmlWriter& page) {
              page.element("a", {{"href", "\"><'"}}, "x");
            }),
            "<a href=\"&quot;&gt;&lt;&apos;\">x</a>");
}

TEST(HtmlWriter, ElementWithoutContentHasNoEnd) {
  EXPECT_EQ(written([](HtmlWriter& page) {
              page.open("head").empty_element("meta", {{"charset", "utf-8"}}).close();
            }),
            "<head><meta charset=\"utf-8\">\n</head>\n");
}

TEST(HtmlWriter, OwnMarkupStaysAsItIs) {
  EXPECT_EQ(written([](HtmlWriter& page) { page.verbatim("<!DOCTYPE html>"); }), "<!DOCTYPE html>");
}

}  // namespace
}  // namespace vond_html
