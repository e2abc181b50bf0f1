// What is written as one statement, and what as several: destinations get a statement in one piece.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "fwd_output.h"
#include "issue_printing.h"
#include "tests/extensions/vond_output_log/fake_host_test.h"
#include "tests/support/recording_buffer.h"
#include "vond/log/output_log.h"
#include "vond_output_log.h"

namespace vond::test {
namespace {

using log::OutputLog;
using vond_output_log::FwdOutputFunctions;
using vond_output_log::IssuePrinting;
using vond_output_log::VondOutputLog;

using Texts = std::vector<std::string>;

class StatementsTest : public FakeHostTest {
 protected:
  StatementsTest() { OutputLog::singleton_obj->streams = {{&stream_, false}}; }

  /// Returns the statements since the last call; each is one write and one flush.
  Texts take_statements() {
    Texts statements;
    EXPECT_EQ(destination_.events.size() % 2, 0U);
    for (std::size_t event = 0; event + 1 < destination_.events.size(); event += 2) {
      statements.push_back(destination_.events[event]);
      EXPECT_EQ(destination_.events[event + 1], RecordingBuffer::FLUSH);
    }
    destination_.events.clear();
    return statements;
  }

  FwdOutputFunctions tree;
  std::string buffer;

 private:
  RecordingBuffer destination_;
  std::ostream stream_{&destination_};
};

TEST_F(StatementsTest, OfAnIssueAreItsHeaderAndItsBody) {
  IssuePrinting().PrintOutput(make_issue({.id = "id"}), make_record(), 1, 1, "", true);
  EXPECT_EQ(take_statements(), (Texts{"1. id (appears on 0 nodes)\n",
                                      "   <message>\n"
                                      "   <remedy>\n"
                                      "   Nodes: []\n"
                                      "   Category: FUNCTIONALITY\n"
                                      "   <Framework Definition>\n"}));
}

TEST_F(StatementsTest, OfASectionAreItsHeadingsItsIssuesAndItsBlankLines) {
  Data data = make_record();
  add_issue(data, 24, make_issue_without_outputs());
  add_issue(data, 24, nullptr);
  add_issue(data, 26, make_issue_without_outputs());
  EXPECT_EQ(VondOutputLog(data).PrintSection(false), 0);
  const std::string header = "1.  (appears on 0 nodes)\n";
  const std::string body =
      "   <message>\n"
      "   <remedy>\n"
      "   Category: FUNCTIONALITY\n"
      "   <Framework Definition>\n";
  EXPECT_EQ(take_statements(),
            (Texts{"Issues contributing to FAIL\n", "\n", "CRITICAL:\n", "Diagnoses\n", header,
                   body, "\n", "\n", "Observations\n", header, body, "\n"}));
}

TEST_F(StatementsTest, OfASectionWithoutIssuesAreItsHeadingAndItsNotice) {
  Data data = make_record();
  EXPECT_EQ(VondOutputLog(data).PrintSection(true), 0);
  EXPECT_EQ(take_statements(),
            (Texts{"Other issues (not contributing to FAIL)\n", "No issues detected.\n\n"}));
}

// A statement ends the colour in force even when it has no text.
TEST_F(StatementsTest, OfASectionWithIssuesHaveAnEmptyOneInPlaceOfTheNotice) {
  Data data = make_record();
  data.line_width = 72;
  add_issue(data, 24, nullptr);
  int color_before_label = OutputLog::GREEN;
  host().on_call = [&color_before_label](const std::string& operation) {
    if (operation == "word_wrap" && host().calls["word_wrap"] == 2) {
      OutputLog::singleton_obj->current_color = OutputLog::RED;
    }
    if (operation == "upper") {
      color_before_label = OutputLog::singleton_obj->current_color;
    }
  };
  EXPECT_EQ(VondOutputLog(data).PrintSection(false), 0);
  ASSERT_GE(host().wraps.size(), 2U);
  EXPECT_EQ(host().wraps[1], "word_wrap(, 72, )");
  EXPECT_EQ(color_before_label, OutputLog::NONE);
}

TEST_F(StatementsTest, OfTheTreesHeadingAreItsTextAndTwoLineEnds) {
  EXPECT_EQ(tree.print_full_tree(make_record()), 0);
  EXPECT_EQ(take_statements(),
            (Texts{"Issues (repeated from above) ordered in the framework definition hierarchy",
                   "\n", "\n"}));
}

TEST_F(StatementsTest, OfDefinitionsAreTheirLinesAndLineEnds) {
  Data data = make_record();
  data.fwd_root->roots = {make_definition({.name = "a"}), make_definition({.name = "b"})};
  EXPECT_EQ(tree.print_full_tree(data), 0);
  const Texts statements = take_statements();
  ASSERT_EQ(statements.size(), 9U);
  EXPECT_EQ(Texts(statements.begin() + 3, statements.end()),
            (Texts{"short a: PASS", "\n", "\n", "short b: PASS", "\n", "\n"}));
}

TEST_F(StatementsTest, OfACountBlockAreItsLinesItsPrefixAndALineEndBehindEach) {
  const Node node = make_definition({.name = "name", .counts = {{24, 1}, {4, 1}}});
  EXPECT_EQ(tree.print_issue_num(make_record(), buffer, 0, "|  ", "     ", *node->fwd), 0);
  EXPECT_EQ(take_statements(), (Texts{"|  1 CRITICAL     (1 diagnosis     0 observation)\n"
                                      "|  1 WARNING     (1 diagnosis     0 observation)",
                                      "\n", "|  ", "\n"}));
}

TEST_F(StatementsTest, OfDetailsAreTheirHeadingsHeadersAndBodiesAndALineEndBehindEach) {
  Data data = make_record();
  add_issue(data, 24, make_issue({.id = "D", .message = "m", .definitions = {"name"}}));
  add_issue(data, 25, make_issue({.id = "O", .message = "m", .definitions = {"name"}}));
  const Node node = make_definition({.name = "name"});
  EXPECT_EQ(tree.print_details(data, *node->fwd, "|  ", 0, buffer), 0);
  const std::string diagnosis =
      "|     Message:               m\n"
      "|     Nodes:                 []";
  const std::string observation =
      "|     Message:   m\n"
      "|     Nodes:     []";
  EXPECT_EQ(take_statements(),
            (Texts{"|  CRITICAL:", "\n", "|  Diagnoses", "\n", "|  1. D (appears on 0 node)", "\n",
                   diagnosis, "\n", "|  Observations", "\n", "|  1. O (appears on 0 node)", "\n",
                   observation, "\n", "|  ", "\n"}));
}

}  // namespace
}  // namespace vond::test
