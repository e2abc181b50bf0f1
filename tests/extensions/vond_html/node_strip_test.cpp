#include "node_strip.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "page_fixture.h"

namespace vond::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

TEST(NodeOrder, NumbersInNamesCountAsNumbers) {
  std::vector<std::string> names = {"cn10",  "cn9",   "cn", "cn9a", "r10n1",
                                    "r1n10", "cn010", "a",  "cn0"};
  std::sort(names.begin(), names.end(), vond_html::comes_before);
  EXPECT_THAT(names,
              ElementsAre("a", "cn", "cn0", "cn9", "cn9a", "cn010", "cn10", "r1n10", "r10n1"));
}

TEST(NodeOrder, BytesBeyondAsciiComeLast) {
  EXPECT_TRUE(vond_html::comes_before("n1z", "n1é"));
  EXPECT_FALSE(vond_html::comes_before("n1é", "n1z"));
}

TEST(NodeOrder, NoNameComesBeforeItself) {
  for (const char* name : {"", "cn", "cn01", "0"}) {
    EXPECT_FALSE(vond_html::comes_before(name, name));
  }
  EXPECT_TRUE(vond_html::comes_before("0", "00"));
  EXPECT_FALSE(vond_html::comes_before("00", "0"));
}

class NodeStripTest : public PageTest {
 protected:
  std::string strip() { return section("nodes"); }

  /// Returns the cells with their class, shape and text.
  static std::string cell(const std::string& classes, const std::string& shape,
                          const std::string& text) {
    return "title=\"" + text + "\"><span class=\"cell " + classes + "\" aria-hidden=\"true\">" +
           shape + "</span><span class=\"unseen\">" + text + "</span>";
  }
};

TEST_F(NodeStripTest, WithoutNodesThereIsNone) {
  add_issue(data, 24, make_issue({.id = "a"}));
  EXPECT_EQ(strip(), "");
}

TEST_F(NodeStripTest, NodeHasTheShapeOfItsWorstBandAndLeadsToItsWorstIssue) {
  add_issue(data, 4, make_issue({.id = "w", .nodes = {"n1", "n2", "n2"}}));
  add_issue(data, 24, make_issue({.id = "c", .nodes = {"n2"}}));
  const std::string text = strip();
  EXPECT_THAT(text, HasSubstr("<li><a href=\"#issue-2\" " +
                              cell("warning", "▲", "n1: WARNING, 1 issue") + "</a></li>"));
  EXPECT_THAT(text, HasSubstr("<li><a href=\"#issue-1\" " +
                              cell("critical", "◆", "n2: CRITICAL, 2 issues") + "</a></li>"));
}

TEST_F(NodeStripTest, WhatWasNotExaminedIsNeverClean) {
  facts().examination = {
      .nodes_examined = 1, .not_examined_with_findings = {"n3"}, .names = {"n1"}};
  facts().expectation = {
      .nodes_expected = 3, .silent = {"n2", "n3"}, .not_expected = {}, .alike = {}};
  add_issue(data, 24, make_issue({.id = "c", .nodes = {"n3"}}));
  const std::string text = strip();
  EXPECT_THAT(text, HasSubstr("<li><span " + cell("clean", "○", "n1: clean")));
  EXPECT_THAT(text, HasSubstr("<li><span " + cell("silent not-examined", "?", "n2: not examined")));
  EXPECT_THAT(text,
              HasSubstr(cell("critical not-examined", "◆", "n3: CRITICAL, not examined, 1 issue")));
}

TEST_F(NodeStripTest, WhoeverIsNotAmongTheExaminedWasNotExamined) {
  facts().examination = {
      .nodes_examined = 1, .not_examined_with_findings = {"n2"}, .names = {"n1"}};
  add_issue(data, 24, make_issue({.id = "c", .nodes = {"n2"}}));
  EXPECT_THAT(strip(),
              HasSubstr(cell("critical not-examined", "◆", "n2: CRITICAL, not examined, 1 issue")));
}

TEST_F(NodeStripTest, NodeWhoseIssuesAreAllAcknowledgedIsNotClean) {
  facts().examination = {
      .nodes_examined = 3, .not_examined_with_findings = {}, .names = {"n1", "n2", "n3"}};
  facts().acknowledged = {.issues = 1, .nodes = {"n1", "n2"}};
  add_issue(data, 24, make_issue({.id = "c", .nodes = {"n2"}}));
  const std::string text = strip();
  EXPECT_THAT(text, HasSubstr("<li><span " + cell("acknowledged", "◐", "n1: acknowledged")));
  EXPECT_THAT(text, HasSubstr(cell("critical", "◆", "n2: CRITICAL, 1 issue")));
  EXPECT_THAT(text, HasSubstr("◆</span> 1 CRITICAL</span> <span><span class=\"cell acknowledged\" "
                              "aria-hidden=\"true\">◐</span> 1 acknowledged</span> <span><span "
                              "class=\"cell clean\" aria-hidden=\"true\">○</span> 1 clean"));
}

TEST_F(NodeStripTest, LegendCountsNodesTheWorstFirst) {
  facts().examination = {.nodes_examined = 1, .not_examined_with_findings = {}, .names = {"n1"}};
  facts().expectation = {
      .nodes_expected = 3, .silent = {"n2", "n3"}, .not_expected = {}, .alike = {}};
  add_issue(data, 24, make_issue({.id = "c", .nodes = {"n3"}}));
  EXPECT_THAT(strip(),
              HasSubstr("<p class=\"legend\">"
                        "<span><span class=\"cell critical\" aria-hidden=\"true\">◆</span> 1 "
                        "CRITICAL</span> "
                        "<span><span class=\"cell clean\" aria-hidden=\"true\">○</span> 1 "
                        "clean</span> "
                        "<span><span class=\"cell silent not-examined\" aria-hidden=\"true\">?"
                        "</span> 2 not examined</span> </p>"));
}

TEST_F(NodeStripTest, NodesStandWithThoseThatBeginAlike) {
  add_issue(data, 24, make_issue({.id = "a", .nodes = {"cn10", "gpu1", "cn9", "alone", "gpu2"}}));
  const std::string text = strip();
  const std::size_t cn = text.find("<h3><bdi>cn</bdi>: 2 nodes</h3>");
  const std::size_t gpu = text.find("<h3><bdi>gpu</bdi>: 2 nodes</h3>");
  const std::size_t others = text.find("<h3>others: 1 node</h3>");
  EXPECT_LT(cn, gpu);
  EXPECT_LT(gpu, others);
  EXPECT_NE(others, std::string::npos);
  EXPECT_LT(text.find("cn9:"), text.find("cn10:"));
}

TEST_F(NodeStripTest, NodesThatAreNumbersStandWithTheOthers) {
  add_issue(data, 24, make_issue({.id = "a", .nodes = {"1", "2", "alone"}}));
  const std::string text = strip();
  EXPECT_THAT(text, HasSubstr("<h3>others: 3 nodes</h3>"));
  EXPECT_EQ(text.find("<h3>"), text.rfind("<h3>"));
}

TEST_F(NodeStripTest, RacksStandInTheirOrderAndTheOthersBehindThem) {
  facts().racks = {
      {"right", {"cn3", "unknown"}}, {"left", {"cn1", "cn10", "cn2"}}, {"none", {"x"}}};
  add_issue(data, 24,
            make_issue({.id = "a", .nodes = {"cn1", "cn2", "cn3", "cn4", "cn5", "cn10"}}));
  const std::string text = strip();
  const std::size_t right = text.find("<h3><bdi>right</bdi>: 1 node</h3>");
  const std::size_t left = text.find("<h3><bdi>left</bdi>: 3 nodes</h3>");
  const std::size_t others = text.find("<h3><bdi>cn</bdi>: 2 nodes</h3>");
  EXPECT_LT(right, left);
  EXPECT_LT(left, others);
  EXPECT_NE(others, std::string::npos);
  EXPECT_LT(text.find("cn2:"), text.find("cn10:"));
  EXPECT_THAT(text, Not(HasSubstr("none")));
  EXPECT_THAT(text, Not(HasSubstr("unknown")));
}

TEST_F(NodeStripTest, NodeWhoseIssueIsNotOnThePageLeadsNowhere) {
  add_issues(data, 24, "worse", 200);
  add_issue(data, 25, make_issue({.id = "beyond", .nodes = {"n1"}}));
  EXPECT_THAT(strip(), HasSubstr("<li><span " + cell("critical", "◆", "n1: CRITICAL, 1 issue")));
}

TEST_F(NodeStripTest, OfTooManyNodesOnlyTheCountsAreThere) {
  facts().examination = {.nodes_examined = 0, .not_examined_with_findings = {}, .names = {}};
  for (std::size_t i = 0; i < vond_html::MOST_NODES; ++i) {
    facts().examination->names.push_back("n" + std::to_string(i));
  }
  EXPECT_THAT(strip(), HasSubstr("<li>"));
  facts().examination->names.emplace_back("one");
  EXPECT_THAT(strip(), HasSubstr("</span> 4001 clean</span>"));
  EXPECT_THAT(strip(),
              HasSubstr("<p class=\"static\">They are too many to be shown one by one.</p>"));
  EXPECT_THAT(strip(), Not(HasSubstr("<li>")));
}

}  // namespace
}  // namespace vond::test
