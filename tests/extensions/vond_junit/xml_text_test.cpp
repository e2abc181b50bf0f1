#include "xml_text.h"

#include <gtest/gtest.h>

#include <string>

namespace vond::test {
namespace {

using vond_junit::shortened;
using vond_junit::xml_attribute;
using vond_junit::xml_text;

TEST(XmlText, EscapesWhatIsMarkup) {
  EXPECT_EQ(xml_text("<a b=\"c\" d='e'>&amp;]]></a>"),
            "&lt;a b=&quot;c&quot; d=&apos;e&apos;&gt;&amp;amp;]]&gt;&lt;/a&gt;");
}

TEST(XmlText, KeepsCharactersOfAllSizes) {
  const std::string text = "a\u00e9\u2028\u20ac\U0001F600\uFDCF";
  EXPECT_EQ(xml_text(text), text);
}

TEST(XmlText, KeepsTabsAndLineFeedsAlone) {
  EXPECT_EQ(xml_text("a\tb\nc"), "a\tb\nc");
  EXPECT_EQ(xml_text("a\rb"), "a\uFFFDb");
}

TEST(XmlText, HasNoControlCharacters) {
  for (char control = 0; control < ' '; ++control) {
    if (control != '\t' && control != '\n') {
      EXPECT_EQ(xml_text(std::string(1, control)), "\uFFFD") << int{control};
    }
  }
  EXPECT_EQ(xml_text("\x7f\u0080\u009f\u00a0"), "\uFFFD\uFFFD\uFFFD\u00a0");
}

TEST(XmlText, HasNoNoncharactersThatXmlForbids) {
  EXPECT_EQ(xml_text("\uFFFD\uFFFE\uFFFF\U0001FFFE\U0010FFFF"), "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(XmlText, HasNoBytesThatAreNotUtf8) {
  EXPECT_EQ(xml_text("a\xFFz"), "a\uFFFDz");
  EXPECT_EQ(xml_text("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
}

TEST(XmlText, OfAttributesKeepsTabsAndLineFeedsAsReferences) {
  EXPECT_EQ(xml_attribute("a\tb\n\"c\""), "a&#9;b&#10;&quot;c&quot;");
}

TEST(Shortened, IsTheTextWhenItFits) {
  EXPECT_EQ(shortened("", 0), "");
  EXPECT_EQ(shortened("abc", 3), "abc");
  EXPECT_EQ(shortened("\u20ac", 3), "\u20ac");
}

TEST(Shortened, CutsNoCharacter) {
  EXPECT_EQ(shortened("abcd", 3), "abc...");
  EXPECT_EQ(shortened("a\u20acb", 4), "a\u20ac...");
  EXPECT_EQ(shortened("a\u20acb", 3), "a...");
  EXPECT_EQ(shortened("a\u20acb", 2), "a...");
  EXPECT_EQ(shortened("\U0001F600b", 3), "...");
}

TEST(Shortened, DoesNotGrowShortOfWhatIsNoText) {
  const std::string continuations(10, '\x80');
  EXPECT_EQ(shortened(continuations, 8), std::string(5, '\x80') + "...");
  EXPECT_EQ(shortened(continuations, 0), "...");
}

}  // namespace
}  // namespace vond::test
