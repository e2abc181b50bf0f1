#include "standalone/report/node_list_file.h"

#include <gtest/gtest.h>

#include <string_view>

#include "standalone/input/input_error.h"
#include "standalone/nodes/node_set.h"
#include "tests/standalone/support/test_input.h"

namespace {

using vond::standalone::InputError;
using vond::standalone::MAX_NODE_SET_SIZE;
using vond::standalone::read_node_list;
using vond::test::TestFile;

using Names = std::vector<std::string>;

Names names_in(std::string_view text) { return read_node_list(TestFile(text).path()); }

std::string error_in(std::string_view text) {
  const TestFile file(text);
  try {
    read_node_list(file.path());
  } catch (const InputError& error) {
    return file.without_path(error.what());
  }
  return "no error";
}

TEST(NodeListFile, HasANodeSetALine) {
  EXPECT_EQ(names_in("n[1-2],m1\nlogin1\n"), (Names{"n1", "n2", "m1", "login1"}));
}

TEST(NodeListFile, SkipsBlankLinesAndComments) {
  EXPECT_EQ(names_in("# All nodes: it's n[1\n\n \t\n  n1\t# the first\nn2#the second\n   # end"),
            (Names{"n1", "n2"}));
}

TEST(NodeListFile, MayHaveAnyLineEndsAndAByteOrderMark) {
  EXPECT_EQ(names_in("\xEF\xBB\xBFn1\r\nn2"), (Names{"n1", "n2"}));
}

TEST(NodeListFile, NamesInQuotesMayHoldBlanksAndTheSignOfComments) {
  EXPECT_EQ(names_in("'rack #1','it'\\''s #2' # 'two\n"), (Names{"rack #1", "it's #2"}));
}

TEST(NodeListFile, NamesAreMadeHarmlessAsThoseOfFindingsAre) {
  EXPECT_EQ(names_in("n\xE2\x80\xAE"
                     "1"),
            Names{"n\\u202e1"});
}

TEST(NodeListFile, ErrorsNameTheColumnOfTheWholeLine) {
  EXPECT_EQ(error_in("n1\n  n[1-2 # x\n"),
            "FILE:2:8: found the end of the node set, expected \"/\", \",\" or \"]\"");
}

TEST(NodeListFile, AGroupIsAnErrorWithAHint) {
  EXPECT_EQ(error_in("n1\nn2,@compute # all\n"),
            "FILE:2:4: found \"@\", expected a name without it, or one in single quotes; the nodes "
            "of a group: $(nodeset -f @compute)");
}

TEST(NodeListFile, ThatNamesNoNodeIsAnError) {
  EXPECT_EQ(error_in(""), "FILE: names no node, expected a file of node sets");
  EXPECT_EQ(error_in("# nobody\n\n"), "FILE: names no node, expected a file of node sets");
}

TEST(NodeListFile, ThatCannotBeReadIsAnError) {
  EXPECT_THROW(read_node_list("no/such/file"), InputError);
  EXPECT_THROW(read_node_list("/"), InputError);
}

TEST(NodeListFile, HasAsManyNamesAsANodeSetMayHave) {
  EXPECT_EQ(names_in("n[1-1048575]\nm1\n").size(), MAX_NODE_SET_SIZE);
  EXPECT_EQ(error_in("n[1-1048575]\nm1\n m2\n"),
            "FILE:3:2: more than 1048576 names up to this line's end, expected at most 1048576");
}

}  // namespace
