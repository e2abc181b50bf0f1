#include "standalone/definitions/definition_tree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "standalone/input/input_error.h"

namespace {

using vond::FwdChildGroup;
using vond::FwdNode;
using vond::standalone::DefinitionSpec;
using vond::standalone::DefinitionTree;
using vond::standalone::InputError;
using vond::standalone::MAX_DEFINITION_DEPTH;

using Names = std::set<std::string_view>;
using Specs = std::vector<DefinitionSpec>;

constexpr unsigned CRITICAL_DIAGNOSES_FAILING = 24;
constexpr unsigned CRITICAL_OBSERVATIONS_FAILING = 27;
constexpr unsigned WARNING_DIAGNOSES = 4;

// ---- Pictures of trees -------------------------------------------------------------------------

void draw(const FwdNode& node, const std::string& indent, std::string& text) {
  EXPECT_EQ(node.fwd->node, &node) << node.fwd->name;
  text += indent + node.fwd->name + (node.fwd->skipped ? " (skipped)" : "") + "\n";
  const bool one_group = node.child_groups.size() == 1 && !node.child_groups[0].children.empty();
  for (const FwdChildGroup& group : node.child_groups) {
    if (!one_group) {
      text += indent + "  group\n";
    }
    for (const auto& child : group.children) {
      draw(*child, indent + (one_group ? "  " : "    "), text);
    }
  }
}

/// One line a definition, indented by its depth. A line "group" stands before the children of a
/// group unless it is the only one and has children.
std::string picture(const DefinitionTree& tree) {
  std::string text;
  for (const auto& root : tree.hierarchy()->roots) {
    draw(*root, "", text);
  }
  return text;
}

std::string spelled(const Names& names) { return picture(DefinitionTree(names)); }

std::string message_of_error(const Names& names) {
  try {
    const DefinitionTree tree(names);
    return "no error";
  } catch (const InputError& error) {
    return error.what();
  }
}

/// Returns "d/d/…/d".
std::string name_of_depth(int depth) {
  std::string name = "d";
  for (int level = 2; level <= depth; ++level) {
    name += "/d";
  }
  return name;
}

int depth_of(const FwdNode& node) {
  int deepest = 0;
  for (const FwdChildGroup& group : node.child_groups) {
    for (const auto& child : group.children) {
      deepest = std::max(deepest, depth_of(*child));
    }
  }
  return deepest + 1;
}

DefinitionSpec leaf(const std::string& name) { return {name, false, {}}; }
DefinitionSpec skipped(const std::string& name) { return {name, true, {}}; }
DefinitionSpec parent(const std::string& name, const Specs& children) {
  return {name, false, {children}};
}

// ---- The tree that names spell -----------------------------------------------------------------

TEST(SpelledTree, OfNoNamesIsEmpty) {
  const DefinitionTree tree(Names{});
  ASSERT_NE(tree.hierarchy(), nullptr);
  EXPECT_TRUE(tree.hierarchy()->roots.empty());
  EXPECT_TRUE(tree.unknown_names().empty());
}

TEST(SpelledTree, ANameStandsUnderTheNameBeforeItsLastSlash) {
  EXPECT_EQ(spelled({"a", "a/b", "a/b/c", "d"}),
            "a\n"
            "  a/b\n"
            "    a/b/c\n"
            "d\n");
}

TEST(SpelledTree, MissingParentsAreMade) {
  EXPECT_EQ(spelled({"a/b/c", "d/e"}),
            "a\n"
            "  a/b\n"
            "    a/b/c\n"
            "d\n"
            "  d/e\n");
}

TEST(SpelledTree, AParentIsMadeOnceForAllItsChildren) {
  EXPECT_EQ(spelled({"a/b/c", "a/b/d", "a/e"}),
            "a\n"
            "  a/b\n"
            "    a/b/c\n"
            "    a/b/d\n"
            "  a/e\n");
}

TEST(SpelledTree, ASlashAtTheStartMakesNoParent) {
  EXPECT_EQ(spelled({"/a/b"}),
            "/a\n"
            "  /a/b\n");
  EXPECT_EQ(spelled({"//a"}), "//a\n");
}

TEST(SpelledTree, ASlashAtTheEndMakesNoParent) {
  EXPECT_EQ(spelled({"a/b/"}),
            "a\n"
            "  a/b/\n");
  EXPECT_EQ(spelled({"a//"}), "a//\n");
}

TEST(SpelledTree, SlashesInARowMakeNoParent) {
  EXPECT_EQ(spelled({"a//b///c"}),
            "a\n"
            "  a//b\n"
            "    a//b///c\n");
  EXPECT_EQ(spelled({"/a//b/"}),
            "/a\n"
            "  /a//b/\n");
}

TEST(SpelledTree, NamesThatDifferInSlashesAreDefinitionsOfTheirOwn) {
  EXPECT_EQ(spelled({"/a", "a", "a/", "a//b", "a/b", "a/b/"}),
            "/a\n"
            "a\n"
            "  a//b\n"
            "  a/b\n"
            "  a/b/\n"
            "a/\n");
}

TEST(SpelledTree, NothingButSlashesIsARoot) {
  EXPECT_EQ(spelled({"/", "///"}),
            "/\n"
            "///\n");
}

TEST(SpelledTree, SiblingsStandInByteOrder) {
  EXPECT_EQ(spelled({"r/b", "r/a", "r/B", "r/10", "r/9", "r/\xC3\xA4", "r/a b", "r/a-b"}),
            "r\n"
            "  r/10\n"
            "  r/9\n"
            "  r/B\n"
            "  r/a\n"
            "  r/a b\n"
            "  r/a-b\n"
            "  r/b\n"
            "  r/\xC3\xA4\n");
}

TEST(SpelledTree, RootsStandInByteOrderEvenWhenNamesSortBetweenAParentAndItsChild) {
  // "-" comes before "/", "0" after it.
  EXPECT_EQ(spelled({"a0", "a/b", "a-b", "a"}),
            "a\n"
            "  a/b\n"
            "a-b\n"
            "a0\n");
}

TEST(SpelledTree, DefinitionsAreNeitherSkippedNorFailing) {
  DefinitionTree tree(Names{"a/b"});
  tree.decide();
  for (const std::string name : {"a", "a/b"}) {
    EXPECT_EQ(tree[name].name, name);
    EXPECT_TRUE(tree[name].passed);
    EXPECT_FALSE(tree[name].skipped);
    EXPECT_TRUE(tree[name].issue_counts.empty());
  }
}

TEST(SpelledTree, MayBe256Deep) {
  const DefinitionTree tree(Names{name_of_depth(256)});
  ASSERT_EQ(tree.hierarchy()->roots.size(), 1U);
  EXPECT_EQ(depth_of(*tree.hierarchy()->roots[0]), MAX_DEFINITION_DEPTH);
  EXPECT_EQ(MAX_DEFINITION_DEPTH, 256);
}

TEST(SpelledTree, MayNotBe257Deep) {
  EXPECT_EQ(message_of_error({"a", name_of_depth(257)}),
            "definition \"d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/d/…\" is 257 "
            "levels deep, expected at most 256");
}

TEST(SpelledTree, DepthCountsNoSlashThatMakesNoParent) {
  const std::string slashes(300, '/');
  EXPECT_EQ(message_of_error({slashes + "a" + slashes + "b" + slashes}), "no error");
  EXPECT_EQ(message_of_error({slashes}), "no error");
  EXPECT_EQ(message_of_error({"/" + name_of_depth(256) + "/"}), "no error");
}

TEST(SpelledTree, ANameThatIsTooDeepIsCutBetweenCharacters) {
  // Byte 60 is in the middle of the character after it.
  std::string name = "d/\xC3\xA4";
  for (int level = 2; level <= 300; ++level) {
    name += "/\xC3\xA4";
  }
  std::string shown = "d";
  for (int level = 2; level <= 20; ++level) {
    shown += "/\xC3\xA4";
  }
  EXPECT_EQ(message_of_error({name}),
            "definition \"" + shown + "/…\" is 301 levels deep, expected at most 256");
}

// ---- The tree that specs describe --------------------------------------------------------------

TEST(DescribedTree, OfNoSpecsIsEmpty) {
  const DefinitionTree tree(Specs{}, {});
  ASSERT_NE(tree.hierarchy(), nullptr);
  EXPECT_TRUE(tree.hierarchy()->roots.empty());
}

TEST(DescribedTree, KeepsTheOrderOfTheSpecs) {
  const Specs specs = {parent("z", {leaf("y"), leaf("x")}), leaf("a")};
  EXPECT_EQ(picture(DefinitionTree(specs, {})),
            "z\n"
            "  y\n"
            "  x\n"
            "a\n");
}

TEST(DescribedTree, KeepsChildGroupsEmptyOnesToo) {
  const Specs specs = {
      {"root", false, {{leaf("a"), leaf("b")}, {}, {leaf("c")}}},
      {"only an empty group", false, {{}}},
      {"no group", false, {}},
  };
  EXPECT_EQ(picture(DefinitionTree(specs, {})),
            "root\n"
            "  group\n"
            "    a\n"
            "    b\n"
            "  group\n"
            "  group\n"
            "    c\n"
            "only an empty group\n"
            "  group\n"
            "no group\n");
}

TEST(DescribedTree, KeepsWhatIsSkipped) {
  const Specs specs = {parent("a", {skipped("b")}), skipped("c")};
  EXPECT_EQ(picture(DefinitionTree(specs, {})),
            "a\n"
            "  b (skipped)\n"
            "c (skipped)\n");
}

TEST(DescribedTree, SlashesInItsNamesMeanNothing) {
  const Specs specs = {parent("b/c", {leaf("a")}), leaf("a/b")};
  EXPECT_EQ(picture(DefinitionTree(specs, {"a/b"})),
            "b/c\n"
            "  a\n"
            "a/b\n");
}

TEST(DescribedTree, NamesThatItLacksBecomeFurtherRootsInByteOrder) {
  const Specs specs = {parent("m", {leaf("m/n")})};
  const DefinitionTree tree(specs, {"z", "m/n", "m", "m/o/p", "\xC3\xA4", "B", "b"});
  EXPECT_EQ(picture(tree),
            "m\n"
            "  m/n\n"
            "B\n"
            "b\n"
            "m/o/p\n"
            "z\n"
            "\xC3\xA4\n");
  EXPECT_EQ(tree.unknown_names(), (std::vector<std::string>{"B", "b", "m/o/p", "z", "\xC3\xA4"}));
}

TEST(DescribedTree, KnowsAllNamesThatItHas) {
  const DefinitionTree tree({parent("a", {leaf("b")})}, {"b"});
  EXPECT_TRUE(tree.unknown_names().empty());
}

TEST(DescribedTree, NamesThatItLacksHaveNoDepth) {
  const DefinitionTree tree({leaf("a")}, {name_of_depth(300)});
  ASSERT_EQ(tree.hierarchy()->roots.size(), 2U);
  EXPECT_EQ(depth_of(*tree.hierarchy()->roots[1]), 1);
}

// ---- Status ------------------------------------------------------------------------------------

TEST(Decide, ADefinitionFailsWithAnIssueOfItsOwnThatContributesToFail) {
  DefinitionTree tree({leaf("diagnosis"), leaf("observation"), leaf("harmless"), leaf("none")}, {});
  tree["diagnosis"].issue_counts[CRITICAL_DIAGNOSES_FAILING] = 1;
  tree["observation"].issue_counts[CRITICAL_OBSERVATIONS_FAILING] = 1;
  tree["harmless"].issue_counts[WARNING_DIAGNOSES] = 5;
  tree.decide();
  EXPECT_FALSE(tree["diagnosis"].passed);
  EXPECT_FALSE(tree["observation"].passed);
  EXPECT_TRUE(tree["harmless"].passed);
  EXPECT_TRUE(tree["none"].passed);
}

TEST(Decide, ADefinitionFailsWithItsChildAndWithItsChildsChild) {
  DefinitionTree tree({parent("root", {parent("child", {leaf("grandchild"), leaf("sibling")})})},
                      {});
  tree["grandchild"].issue_counts[CRITICAL_DIAGNOSES_FAILING] = 1;
  tree.decide();
  EXPECT_FALSE(tree["grandchild"].passed);
  EXPECT_FALSE(tree["child"].passed);
  EXPECT_FALSE(tree["root"].passed);
  EXPECT_TRUE(tree["sibling"].passed);
}

TEST(Decide, AFailingParentDoesNotMakeItsChildrenFail) {
  DefinitionTree tree({parent("parent", {leaf("child")})}, {});
  tree["parent"].issue_counts[CRITICAL_DIAGNOSES_FAILING] = 1;
  tree.decide();
  EXPECT_FALSE(tree["parent"].passed);
  EXPECT_TRUE(tree["child"].passed);
}

TEST(Decide, AChildOfAnyGroupMakesItsParentFail) {
  DefinitionTree tree({{"parent", false, {{leaf("a")}, {}, {leaf("b"), leaf("c")}}}}, {});
  tree["c"].issue_counts[CRITICAL_DIAGNOSES_FAILING] = 1;
  tree.decide();
  EXPECT_FALSE(tree["parent"].passed);
}

TEST(Decide, EveryDefinitionIsDecidedEvenWhenItsParentFailsAlready) {
  DefinitionTree tree({parent("parent", {leaf("a"), leaf("b")})}, {});
  tree["a"].issue_counts[CRITICAL_DIAGNOSES_FAILING] = 1;
  tree["b"].issue_counts[CRITICAL_DIAGNOSES_FAILING] = 1;
  tree.decide();
  EXPECT_FALSE(tree["a"].passed);
  EXPECT_FALSE(tree["b"].passed);
}

TEST(Decide, ASkippedChildDoesNotMakeItsParentFail) {
  DefinitionTree tree({parent("parent", {skipped("child")})}, {});
  tree["child"].issue_counts[CRITICAL_DIAGNOSES_FAILING] = 1;
  tree.decide();
  EXPECT_TRUE(tree["parent"].passed);
  EXPECT_TRUE(tree["child"].skipped);
  EXPECT_FALSE(tree["child"].passed);
}

TEST(Decide, WhatFailsUnderASkippedDefinitionStopsThere) {
  DefinitionTree tree({parent("root", {{"child", true, {{leaf("grandchild")}}}})}, {});
  tree["grandchild"].issue_counts[CRITICAL_DIAGNOSES_FAILING] = 1;
  tree.decide();
  EXPECT_FALSE(tree["grandchild"].passed);
  EXPECT_TRUE(tree["child"].skipped);
  EXPECT_FALSE(tree["child"].passed);
  EXPECT_TRUE(tree["root"].passed);
}

TEST(Decide, ASiblingOfASkippedChildMakesTheParentFail) {
  DefinitionTree tree({parent("parent", {leaf("child"), skipped("skipped")})}, {});
  tree["child"].issue_counts[CRITICAL_DIAGNOSES_FAILING] = 1;
  tree["skipped"].issue_counts[CRITICAL_DIAGNOSES_FAILING] = 1;
  tree.decide();
  EXPECT_FALSE(tree["parent"].passed);
}

TEST(Decide, NamesThatSpecsLackAreDecidedToo) {
  DefinitionTree tree({leaf("a")}, {"unknown"});
  tree["unknown"].issue_counts[CRITICAL_DIAGNOSES_FAILING] = 1;
  tree.decide();
  EXPECT_FALSE(tree["unknown"].passed);
  EXPECT_TRUE(tree["a"].passed);
}

TEST(DefinitionTree, TheHierarchyOutlivesIt) {
  std::shared_ptr<vond::FwdHierarchy> hierarchy;
  {
    DefinitionTree tree(Names{"a/b"});
    tree.decide();
    hierarchy = tree.hierarchy();
  }
  ASSERT_EQ(hierarchy->roots.size(), 1U);
  EXPECT_EQ(hierarchy->roots[0]->fwd->name, "a");
  EXPECT_EQ(hierarchy->roots[0]->child_groups[0].children[0]->fwd->name, "a/b");
}

}  // namespace
