#include <gtest/gtest.h>

#include <string>

#include "vond/extension/markup_text.h"

namespace {

using vond::extension::html_escape;

TEST(HtmlEscape, LeavesNoTagAndEndsNoAttribute) {
  EXPECT_EQ(html_escape("<b title='x' id=\"y\">&</b>"),
            "&lt;b title=&apos;x&apos; id=&quot;y&quot;&gt;&amp;&lt;/b&gt;");
}

TEST(HtmlEscape, KeepsTextAndLineFeeds) {
  EXPECT_EQ(html_escape(""), "");
  EXPECT_EQ(html_escape("caf\u00e9\n\t\U0001F600"), "caf\u00e9\n\t\U0001F600");
}

TEST(HtmlEscape, ReplacesControlsAndWhatIsNoUtf8) {
  EXPECT_EQ(html_escape(std::string("a\0b\x1b\xFF", 5)), "a\uFFFDb\uFFFD\uFFFD");
}

}  // namespace
