#include <string>
#include <vector>

#include "tests/extensions/vond_output_log/text_test.h"
#include "tests/support/grouping_locale.h"

namespace vond::test {
namespace {

const std::string HEADING =
    "Issues (repeated from above) ordered in the framework definition hierarchy\n"
    "\n";

class TreeWalkTest : public TextTest {
 protected:
  /// Returns the section below its heading.
  std::string print(const std::vector<Node>& roots) {
    data.fwd_root->roots = roots;
    EXPECT_EQ(tree.print_full_tree(data), 0);
    const std::string text = output.take();
    EXPECT_EQ(text.substr(0, HEADING.size()), HEADING);
    return text.substr(HEADING.size());
  }

  /// Returns a definition that passed and has no issues, with one group of children if any.
  static Node plain(const std::string& name, const std::vector<Node>& children = {}) {
    return make_definition({.name = name}, children.empty()
                                               ? std::vector<std::vector<Node>>()
                                               : std::vector<std::vector<Node>>{children});
  }
};

TEST_F(TreeWalkTest, WithoutRootsIsTheHeadingAndAnEmptyLine) {
  EXPECT_EQ(tree.print_full_tree(data), 0);
  EXPECT_EQ(output.text(), HEADING);
}

TEST_F(TreeWalkTest, OneRootIsFollowedByNoEmptyLine) {
  EXPECT_EQ(print({plain("root")}), "root: PASS\n");
}

TEST_F(TreeWalkTest, TwoRootsAreEachFollowedByAnEmptyLine) {
  EXPECT_EQ(print({plain("one"), plain("two")}),
            "one: PASS\n"
            "\n"
            "two: PASS\n"
            "\n");
}

TEST_F(TreeWalkTest, RootsStandInTheirOrder) {
  EXPECT_EQ(print({plain("c"), plain("a", {plain("a/x")}), plain("b")}),
            "c: PASS\n"
            "\n"
            "a: PASS\n"
            "`-- x: PASS\n"
            "\n"
            "b: PASS\n"
            "\n");
}

TEST_F(TreeWalkTest, ShowsShortNames) {
  EXPECT_EQ(print({plain("framework/network/link")}), "link: PASS\n");
}

TEST_F(TreeWalkTest, ShowsTheStatusAndSkippedBeforeAllElse) {
  EXPECT_EQ(print({make_definition(
                {.name = "root", .passed = false},
                {{make_definition({.name = "a", .passed = true}),
                  make_definition({.name = "b", .passed = false}),
                  make_definition({.name = "c", .passed = true, .skipped = true}),
                  make_definition({.name = "d", .passed = false, .skipped = true})}})}),
            "root: FAIL\n"
            "|-- a: PASS\n"
            "|-- b: FAIL\n"
            "|-- c: SKIPPED\n"
            "`-- d: SKIPPED\n");
}

TEST_F(TreeWalkTest, DrawsFiveLevelsWithEveryCorner) {
  EXPECT_EQ(
      print({plain("root",
                   {plain("a", {plain("aa", {plain("aaa", {plain("aaaa"), plain("aaab")}),
                                             plain("aab", {plain("aaba")})}),
                                plain("ab", {plain("aba", {plain("abaa")})})}),
                    plain("b"),
                    plain("c", {plain("ca", {plain("caa", {plain("caaa"), plain("caab")})}),
                                plain("cb", {plain("cba"), plain("cbb", {plain("cbba")})})})})}),
      "root: PASS\n"
      "|-- a: PASS\n"
      "|   |-- aa: PASS\n"
      "|   |   |-- aaa: PASS\n"
      "|   |   |   |-- aaaa: PASS\n"
      "|   |   |   `-- aaab: PASS\n"
      "|   |   `-- aab: PASS\n"
      "|   |       `-- aaba: PASS\n"
      "|   `-- ab: PASS\n"
      "|       `-- aba: PASS\n"
      "|           `-- abaa: PASS\n"
      "|-- b: PASS\n"
      "`-- c: PASS\n"
      "    |-- ca: PASS\n"
      "    |   `-- caa: PASS\n"
      "    |       |-- caaa: PASS\n"
      "    |       `-- caab: PASS\n"
      "    `-- cb: PASS\n"
      "        |-- cba: PASS\n"
      "        `-- cbb: PASS\n"
      "            `-- cbba: PASS\n");
}

/// The counts of one critical diagnosis, so that a block shows the child prefix.
Node counted(const std::string& name, const std::vector<std::vector<Node>>& groups = {}) {
  return make_definition({.name = name, .counts = {{24, 1}}}, groups);
}

TEST_F(TreeWalkTest, CarriesTheBarsThroughTheBlocksOfEveryDefinition) {
  EXPECT_EQ(print({counted("root", {{counted("a", {{counted("aa"), counted("ab")}}),
                                     counted("b", {{counted("ba", {{counted("baa")}})}})}})}),
            "root: PASS\n"
            "|  1 CRITICAL     (1 diagnosis     0 observation)\n"
            "|  \n"
            "|-- a: PASS\n"
            "|   |  1 CRITICAL     (1 diagnosis     0 observation)\n"
            "|   |  \n"
            "|   |-- aa: PASS\n"
            "|   |      1 CRITICAL     (1 diagnosis     0 observation)\n"
            "|   |      \n"
            "|   `-- ab: PASS\n"
            "|          1 CRITICAL     (1 diagnosis     0 observation)\n"
            "|          \n"
            "`-- b: PASS\n"
            "    |  1 CRITICAL     (1 diagnosis     0 observation)\n"
            "    |  \n"
            "    `-- ba: PASS\n"
            "        |  1 CRITICAL     (1 diagnosis     0 observation)\n"
            "        |  \n"
            "        `-- baa: PASS\n"
            "               1 CRITICAL     (1 diagnosis     0 observation)\n"
            "               \n");
}

TEST_F(TreeWalkTest, RootWithoutChildrenHasABlankChildPrefix) {
  EXPECT_EQ(print({counted("root")}),
            "root: PASS\n"
            "   1 CRITICAL     (1 diagnosis     0 observation)\n"
            "   \n");
}

TEST_F(TreeWalkTest, EmptyChildGroupsStillDrawABar) {
  EXPECT_EQ(print({counted("root", {{}, {}})}),
            "root: PASS\n"
            "|  1 CRITICAL     (1 diagnosis     0 observation)\n"
            "|  \n");
}

TEST_F(TreeWalkTest, EmptyChildGroupsOfALastChildStillDrawABar) {
  EXPECT_EQ(print({plain("root", {counted("a", {{}}), counted("b", {{}})})}),
            "root: PASS\n"
            "|-- a: PASS\n"
            "|   |  1 CRITICAL     (1 diagnosis     0 observation)\n"
            "|   |  \n"
            "`-- b: PASS\n"
            "    |  1 CRITICAL     (1 diagnosis     0 observation)\n"
            "    |  \n");
}

TEST_F(TreeWalkTest, ChildrenOfAllGroupsAreOneRowOfSiblings) {
  EXPECT_EQ(
      print({make_definition(
          {.name = "root"},
          {{}, {plain("b"), plain("a")}, {}, {plain("d", {plain("da")})}, {plain("c")}, {}})}),
      "root: PASS\n"
      "|-- b: PASS\n"
      "|-- a: PASS\n"
      "|-- d: PASS\n"
      "|   `-- da: PASS\n"
      "`-- c: PASS\n");
}

TEST_F(TreeWalkTest, SkippedDefinitionHasNoBlocksButItsChildren) {
  add_issue(data, 24, make_issue({.id = "id", .definitions = {"root", "root/skipped"}}));
  EXPECT_EQ(print({make_definition(
                {.name = "root", .skipped = true, .counts = {{24, 1}}},
                {{make_definition({.name = "root/skipped", .skipped = true, .counts = {{24, 1}}},
                                  {{counted("root/skipped/child")}}),
                  plain("root/last")}})}),
            "root: SKIPPED\n"
            "|-- skipped: SKIPPED\n"
            "|   `-- child: PASS\n"
            "|          1 CRITICAL     (1 diagnosis     0 observation)\n"
            "|          \n"
            "`-- last: PASS\n");
}

TEST_F(TreeWalkTest, DefinitionWithoutCountsHasNoCountBlockAtAll) {
  EXPECT_EQ(print({plain("root", {plain("child")})}),
            "root: PASS\n"
            "`-- child: PASS\n");
}

TEST_F(TreeWalkTest, WritesCountsThenDetailsThenChildren) {
  add_issue(data, 24, make_issue({.id = "D", .nodes = {"n1"}, .definitions = {"root"}}));
  add_issue(data, 6, make_issue({.id = "O", .nodes = {"n2"}, .definitions = {"root"}}));
  EXPECT_EQ(print({make_definition({.name = "root", .passed = false, .counts = {{24, 1}, {7, 1}}},
                                   {{plain("root/child")}})}),
            "root: FAIL\n"
            "|  1 CRITICAL     (1 diagnosis     0 observation)\n"
            "|  1 WARNING     (0 diagnosis     1 observation)\n"
            "|  \n"
            "|  CRITICAL:\n"
            "|  Diagnoses\n"
            "|  1. D (appears on 1 node)\n"
            "\n"
            "|     Nodes:                 n1\n"
            "|  \n"
            "|  WARNING:\n"
            "|  Observations\n"
            "|  1. O (appears on 1 node)\n"
            "\n"
            "|     Nodes:     n2\n"
            "|  \n"
            "`-- child: PASS\n");
}

TEST_F(TreeWalkTest, DrawsADefinitionBehindAGivenPrefix) {
  const Node node = counted("name", {{plain("child")}});
  EXPECT_EQ(tree.print_tree(data, *node->fwd, "|   |  ", false), 0);
  EXPECT_EQ(output.take(),
            "|   |-- name: PASS\n"
            "|   |   |  1 CRITICAL     (1 diagnosis     0 observation)\n"
            "|   |   |  \n"
            "|   |   `-- child: PASS\n");
  EXPECT_EQ(tree.print_tree(data, *node->fwd, "|   |  ", true), 0);
  EXPECT_EQ(output.take(),
            "|   `-- name: PASS\n"
            "|       |  1 CRITICAL     (1 diagnosis     0 observation)\n"
            "|       |  \n"
            "|       `-- child: PASS\n");
}

TEST_F(TreeWalkTest, PrefixOfOneCharacterIsStillARoots) {
  EXPECT_EQ(tree.print_tree(data, *counted("name")->fwd, ">", true), 0);
  EXPECT_EQ(output.take(),
            ">name: PASS\n"
            ">   1 CRITICAL     (1 diagnosis     0 observation)\n"
            ">   \n");
}

TEST_F(TreeWalkTest, GoesTwoHundredLevelsDeep) {
  Node node = plain("leaf");
  for (int level = 0; level < 200; ++level) {
    node = plain("n", {node});
  }
  const std::string text = print({node});
  EXPECT_EQ(text.substr(text.size() - 812), "\n" + std::string(796, ' ') + "`-- leaf: PASS\n");
}

TEST_F(TreeWalkTest, ReadsTheSameUnderALocaleThatGroupsDigits) {
  const Node root = make_definition({.name = "root", .counts = {{24, 1234}, {27, 5678}}});
  for (int number = 0; number < 12; ++number) {
    const Issue issue = make_issue({.id = "id", .definitions = {"root"}});
    add_output(issue, {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"});
    add_issue(data, 24, issue);
  }
  const std::string expected = print({root});
  const GroupingLocale locale;
  EXPECT_EQ(print({root}), expected);
}

}  // namespace
}  // namespace vond::test
