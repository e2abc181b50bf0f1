#include "standalone/findings/input_guess.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using vond::standalone::complaint_about_useless;
using namespace std::string_literals;

/// Returns what stands behind "F: none of its 2 lines can be used".
std::string hint(const std::string& beginning, const std::string& name = "F") {
  const std::string start = name + ": none of its 2 lines can be used";
  const std::string complaint = complaint_about_useless(name, 2, beginning);
  EXPECT_EQ(complaint.substr(0, start.size()), start);
  return complaint.substr(start.size());
}

TEST(InputGuess, CountsTheLines) {
  EXPECT_EQ(complaint_about_useless("a b", 1, "x"), "a b: its one line cannot be used");
  EXPECT_EQ(complaint_about_useless("<stdin>", 12, "x"),
            "<stdin>: none of its 12 lines can be used");
}

TEST(InputGuess, OfCompressedInputNamesTheTool) {
  EXPECT_EQ(hint("\x1F\x8B\x08"), "; it seems to be compressed with gzip: zcat F | vond-report");
  EXPECT_EQ(hint("\xFD\x37zXZ\0\0"s), "; it seems to be compressed with xz: xzcat F | vond-report");
  EXPECT_EQ(hint("\x28\xB5\x2F\xFD\x04"),
            "; it seems to be compressed with zstd: zstdcat F | vond-report");
  EXPECT_EQ(hint("BZh91AY"), "; it seems to be compressed with bzip2: bzcat F | vond-report");
}

TEST(InputGuess, KnowsUtf16WithAndWithoutAByteOrderMark) {
  EXPECT_EQ(hint("\xFF\xFE{\0"s),
            "; it seems to be UTF-16: iconv -t UTF-8 -f UTF-16 F | vond-report");
  EXPECT_EQ(hint("\xFE\xFF\0{"s),
            "; it seems to be UTF-16: iconv -t UTF-8 -f UTF-16 F | vond-report");
  EXPECT_EQ(hint("{\0\"\0i\0"s),
            "; it seems to be UTF-16: iconv -t UTF-8 -f UTF-16LE F | vond-report");
  EXPECT_EQ(hint("\0{\0\"\0i"s),
            "; it seems to be UTF-16: iconv -t UTF-8 -f UTF-16BE F | vond-report");
  EXPECT_EQ(hint("{\0"s), "");
  EXPECT_EQ(hint("\0\0\0\0"s), "");
}

TEST(InputGuess, TellsAnArrayFromAnObjectOverSeveralLines) {
  EXPECT_EQ(hint(" \n[{\"id\": 1}]"), "; it seems to be a JSON array: jq -c '.[]' F | vond-report");
  EXPECT_EQ(hint("\xEF\xBB\xBF{\r\n\"id\": 1"),
            "; it seems to be JSON over several lines: jq -c . F | vond-report");
  EXPECT_EQ(hint("{\"id\": 1,\n\"severity\": 1}"),
            "; it seems to be JSON over several lines: jq -c . F | vond-report");
}

TEST(InputGuess, ALineThatIsCutOffIsNoObjectOverSeveralLines) {
  EXPECT_EQ(hint("{\"id\": 1"), "");
  EXPECT_EQ(hint("{\"id\": 1\n \n"), "");
  EXPECT_EQ(hint("{\"id\": }\n}\n"), "");
}

TEST(InputGuess, KnowsAFileOfDefinitionsOverOneLineOrMany) {
  const std::string definitions =
      "; it seems to be a file of definitions: vond-report -d F FINDINGS";
  EXPECT_EQ(hint(R"({"definitions":[{"name": "a"}]})"), definitions);
  EXPECT_EQ(hint("{\n  \"definitions\" : [\n    {\n"), definitions);
  EXPECT_EQ(hint("{\"definitions\": []}"), definitions);
  EXPECT_EQ(hint(R"({"definitions": ["a"], "id": 1})"), "");
  EXPECT_EQ(hint(R"({"definitions":[{"name": "a"}]})", "<stdin>"),
            "; it seems to be a file of definitions: vond-report -d FILE FINDINGS");
}

TEST(InputGuess, KnowsCsvByTwoLinesOfEquallyManyColumns) {
  const std::string csv = "; it seems to be CSV, expected a JSON object a line";
  EXPECT_EQ(hint("id,severity\na,1\nb"), csv);
  EXPECT_EQ(hint("id;severity;nodes\r\na;1;n1"), csv);
  EXPECT_EQ(hint("id\tseverity\na\t1"), csv);
  EXPECT_EQ(hint("some text, and more\nof it"), "");
  EXPECT_EQ(hint("text\ntext"), "");
}

TEST(InputGuess, WritesCommandsThatAShellReadsRightly) {
  EXPECT_EQ(hint("[", "<stdin>"), "; it seems to be a JSON array: jq -c '.[]' | vond-report");
  EXPECT_EQ(hint("[", "/tmp/a-b_1.json"),
            "; it seems to be a JSON array: jq -c '.[]' /tmp/a-b_1.json | vond-report");
  EXPECT_EQ(hint("[", "it's $HOME"),
            "; it seems to be a JSON array: jq -c '.[]' 'it'\\''s $HOME' | vond-report");
}

TEST(InputGuess, SaysNothingAboutAnEmptyBeginning) { EXPECT_EQ(hint(""), ""); }

}  // namespace
