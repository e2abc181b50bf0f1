#include "xml_writer.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/captured_output_log.h"

namespace vond::test {
namespace {

using vond_junit::XmlWriter;

TEST(XmlWriterTest, NestsElements) {
  const CapturedOutputLog output;
  XmlWriter out;
  out.open("a", {{"x", "1"}, {"y", "<\n>"}});
  out.add("b", {});
  out.open("c", {});
  out.add("d", {{"z", ""}}, "one & two\nthree");
  out.close();
  out.close();
  out.finish();
  EXPECT_EQ(output.text(),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<a x=\"1\" y=\"&lt;&#10;&gt;\">\n"
            "  <b/>\n"
            "  <c>\n"
            "    <d z=\"\">one &amp; two\nthree</d>\n"
            "  </c>\n"
            "</a>\n");
}

TEST(XmlWriterTest, KeepsLittleInMemory) {
  const CapturedOutputLog output;
  XmlWriter out;
  out.open("a", {});
  for (int number = 0; number < 10000; ++number) {
    out.add("b", {});
  }
  EXPECT_NE(output.text(), "");
}

}  // namespace
}  // namespace vond::test
