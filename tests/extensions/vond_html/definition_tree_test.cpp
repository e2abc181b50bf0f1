#include "definition_tree.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "page_fixture.h"

namespace vond::test {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

class DefinitionTreeTest : public PageTest {
 protected:
  std::string tree() { return section("definitions"); }
};

TEST_F(DefinitionTreeTest, WithoutDefinitionsThereIsNone) {
  EXPECT_EQ(tree(), "");
  data.fwd_root.reset();
  EXPECT_EQ(tree(), "");
}

TEST_F(DefinitionTreeTest, IsFoldedOutWhereItFails) {
  data.fwd_root->roots = {
      make_definition({.name = "bad", .passed = false},
                      {{make_definition({.name = "bad/a", .passed = false})}}),
      make_definition({.name = "good"}, {{make_definition({.name = "good/b"})}}),
      make_definition({.name = "left", .skipped = true},
                      {{make_definition({.name = "left/c", .skipped = true})}})};
  const std::string text = tree();
  EXPECT_THAT(text, HasSubstr("<details open=\"\"><summary><span class=\"definition\"><bdi>bad<"));
  EXPECT_THAT(text, HasSubstr("<details><summary><span class=\"definition\"><bdi>good<"));
  EXPECT_THAT(text, HasSubstr("<details><summary><span class=\"definition\"><bdi>left<"));
}

TEST_F(DefinitionTreeTest, TellsStatusInWordShapeAndColour) {
  data.fwd_root->roots = {make_definition({.name = "a"}),
                          make_definition({.name = "b", .passed = false}),
                          make_definition({.name = "c", .skipped = true})};
  const std::string text = tree();
  for (const char* status :
       {"pass\"><span class=\"shape\" aria-hidden=\"true\">✔</span> PASS<",
        "fail\"><span class=\"shape\" aria-hidden=\"true\">✖</span> FAIL<",
        "skipped\"><span class=\"shape\" aria-hidden=\"true\">–</span> SKIP"}) {
    EXPECT_THAT(text, HasSubstr(std::string("<span class=\"status ") + status));
  }
}

TEST_F(DefinitionTreeTest, DefinitionWithoutIssuesAndChildrenCannotBeFolded) {
  data.fwd_root->roots = {make_definition({.name = "a"})};
  EXPECT_THAT(tree(), HasSubstr("<div class=\"leaf\"><span class=\"definition\"><bdi>a</bdi>"));
  EXPECT_THAT(tree(), Not(HasSubstr("<details")));
}

TEST_F(DefinitionTreeTest, CountsOfEachBandLeadToTheIssues) {
  data.fwd_root->roots = {make_definition({.name = "a", .passed = false})};
  add_issue(data, 24, make_issue({.id = "d", .definitions = {"a"}}));
  add_issue(data, 25, make_issue({.id = "other", .definitions = {"b"}}));
  add_issue(data, 25, make_issue({.id = "o", .definitions = {"a"}}));
  add_issue(data, 4, make_issue({.id = "w", .definitions = {"a"}}));
  const std::string text = tree();
  EXPECT_THAT(
      text,
      HasSubstr("<a href=\"#issue-1\" data-filter=\"band=critical&amp;definition=a\">2 <span "));
  EXPECT_THAT(text, HasSubstr("</a>: <a href=\"#issue-1\"><bdi>d</bdi></a>, "
                              "<a href=\"#issue-3\"><bdi>o</bdi></a></p>"));
  EXPECT_THAT(
      text,
      HasSubstr("<a href=\"#issue-4\" data-filter=\"band=warning&amp;definition=a\">1 <span "));
  EXPECT_THAT(text, Not(HasSubstr("other")));
}

TEST_F(DefinitionTreeTest, IssuesThatAreNotOnThePageAreCounted) {
  data.fwd_root->roots = {make_definition({.name = "a", .passed = false})};
  add_issues(data, 24, "worse", 199);
  add_issue(data, 25, make_issue({.id = "last", .definitions = {"a"}}));
  add_issue(data, 25, make_issue({.id = "beyond", .definitions = {"a"}}));
  add_issue(data, 4, make_issue({.id = "far", .definitions = {"a"}}));
  const std::string text = tree();
  EXPECT_THAT(text, HasSubstr("<a href=\"#issue-200\"><bdi>last</bdi></a> and 1 more</p>"));
  EXPECT_THAT(text, HasSubstr("<span data-filter=\"band=warning&amp;definition=a\">1 <span "));
  EXPECT_THAT(text, HasSubstr("</span><span class=\"static\">, not on this page</span></p>"));
}

TEST_F(DefinitionTreeTest, BandsWithoutIssuesOnThePageShareALine) {
  data.fwd_root->roots = {
      make_definition({.name = "a", .passed = false}, {{make_definition({.name = "a/b"})}})};
  add_issues(data, 24, "worse", 200);
  add_issue(data, 25, make_issue({.id = "beyond", .definitions = {"a"}}));
  add_issue(data, 4, make_issue({.id = "far", .definitions = {"a"}}));
  EXPECT_THAT(tree(),
              ContainsRegex("<p class=\"of-definition\"><span data-filter=[^\n]* CRITICAL</span>"
                            "</span>, <span data-filter=[^\n]* WARNING</span></span>"
                            "<span class=\"static\">, not on this page</span></p>"));
}

TEST_F(DefinitionTreeTest, WhereNoIssueIsOnThePageNothingFoldsOut) {
  data.fwd_root->roots = {make_definition({.name = "a", .passed = false})};
  add_issues(data, 24, "worse", 200);
  add_issue(data, 4, make_issue({.id = "far", .definitions = {"a"}}));
  const std::string text = tree();
  EXPECT_THAT(text, HasSubstr("<div class=\"leaf\">"));
  EXPECT_THAT(text,
              HasSubstr("<span class=\"own\" data-filter=\"band=warning&amp;definition=a\">"));
  EXPECT_THAT(text, Not(HasSubstr("<details")));
}

TEST_F(DefinitionTreeTest, PassingDefinitionsTakeNoRoomFromFailingOnes) {
  std::vector<Node> children;
  children.reserve(vond_html::MOST_DEFINITIONS + 3);
  for (std::size_t i = 0; i < vond_html::MOST_DEFINITIONS + 2; ++i) {
    children.push_back(make_definition({.name = "p" + std::to_string(i)}));
  }
  children.push_back(make_definition({.name = "bad", .passed = false}));
  data.fwd_root->roots = {make_definition({.name = "r", .passed = false}, {children})};
  const std::string text = tree();
  EXPECT_THAT(text, HasSubstr("<bdi>p999</bdi>"));
  EXPECT_THAT(text, Not(HasSubstr("<bdi>p1000</bdi>")));
  EXPECT_THAT(text, HasSubstr("<bdi>bad</bdi>"));
  EXPECT_THAT(text, HasSubstr("<p>2 more definitions are in the text report (-e text).</p>"));
}

TEST_F(DefinitionTreeTest, WhatIsNestedTooDeepIsCounted) {
  Node tree_of_levels = make_definition({.name = "deepest"});
  for (std::size_t level = 0; level < vond_html::MOST_LEVELS; ++level) {
    tree_of_levels = make_definition({.name = "n"}, {{tree_of_levels}});
  }
  data.fwd_root->roots = {tree_of_levels};
  EXPECT_THAT(tree(), HasSubstr("<p>1 more definition is in the text report (-e text).</p>"));
  EXPECT_THAT(tree(), Not(HasSubstr("deepest")));
}

}  // namespace
}  // namespace vond::test
