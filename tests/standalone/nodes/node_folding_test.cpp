#include "standalone/nodes/node_folding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/nodes/node_set.h"
#include "vond/postprocessor/string_interface.h"

namespace {

using testing::UnorderedElementsAreArray;
using vond::standalone::expand_node_set;
using vond::standalone::fold_node_names;

using Names = std::vector<std::string>;

/// Folds names that stand between blanks.
std::string fold(const std::string& names) {
  std::istringstream words(names);
  Names list;
  for (std::string name; words >> name;) {
    list.push_back(name);
  }
  return fold_node_names({list});
}

TEST(NodeFolding, OfNoNamesIsNone) {
  EXPECT_EQ(fold_node_names({}), "none");
  EXPECT_EQ(fold_node_names({{}, {}}), "none");
}

TEST(NodeFolding, UnitesAllLists) {
  EXPECT_EQ(fold_node_names({{"n3", "login"}, {}, {"n1", "n2"}, {"login"}}), "login,n[1-3]");
}

TEST(NodeFolding, IsWhatTheHostOffersExtensions) {
  std::vector<Names> lists = {{"n2"}, {"n1"}};
  vond::postprocessor::StringInterface strings;
  EXPECT_EQ(strings.get_node_string(lists), "n[1-2]");
  EXPECT_EQ(lists, (std::vector<Names>{{"n2"}, {"n1"}}));
}

TEST(NodeFolding, LeavesSingleNamesAsTheyAre) {
  EXPECT_EQ(fold("node1"), "node1");
  EXPECT_EQ(fold("login"), "login");
  EXPECT_EQ(fold("node0"), "node0");
  EXPECT_EQ(fold("n00"), "n00");
  EXPECT_EQ(fold("7"), "7");
  EXPECT_EQ(fold("c1n1"), "c1n1");
}

TEST(NodeFolding, WritesRunsAsRangesAndOthersSingly) {
  EXPECT_EQ(fold("n7 n1 n6"), "n[1,6-7]");
  EXPECT_EQ(fold("n1 n3"), "n[1,3]");
  EXPECT_EQ(fold("n1 n2 n3 n5 n8 n9 n20"), "n[1-3,5,8-9,20]");
  EXPECT_EQ(fold("001 002 4"), "[4,001-002]");
}

TEST(NodeFolding, WritesNoSteps) { EXPECT_EQ(fold("n0 n2 n4 n6"), "n[0,2,4,6]"); }

TEST(NodeFolding, CountsEveryNameOnce) {
  EXPECT_EQ(fold("n2 n1 n2 n1 n1 login login"), "login,n[1-2]");
}

TEST(NodeFolding, RunsOverAGrowingNumberOfDigits) {
  EXPECT_EQ(fold("n9 n10 n11"), "n[9-11]");
  EXPECT_EQ(fold("n999999 n1000000"), "n[999999-1000000]");
}

TEST(NodeFolding, RunsOverNumbersOfOnePaddingOnly) {
  EXPECT_EQ(fold("n1 n2 n01 n001"), "n[1-2,01,001]");
  EXPECT_EQ(fold("n098 n099 n100"), "n[098-100]");
  EXPECT_EQ(fold("n9 n010 n011"), "n[9,010-011]");
  EXPECT_EQ(fold("n09 n010"), "n[09,010]");
  EXPECT_EQ(fold("n0998 n0999 n1000 n998 n999"), "n[998-999,0998-1000]");
  EXPECT_EQ(fold("n09 n10 n99 n100"), "n[09-10,99-100]");
  EXPECT_EQ(fold("n0 n1 n00 n01"), "n[0-1,00-01]");
}

TEST(NodeFolding, KeepsThePaddingInForceAfterASingleNumber) {
  EXPECT_EQ(fold("n08 n99 n100"), "n[08,99,100]");
  EXPECT_EQ(fold("n08 n50 n51 n99 n100"), "n[08,50-51,99-100]");
  EXPECT_EQ(fold("n8 n99 n100"), "n[8,99-100]");
}

TEST(NodeFolding, ForgetsThePaddingAfterARun) {
  EXPECT_EQ(fold("n08 n09 n99 n100"), "n[08-09,99-100]");
}

TEST(NodeFolding, ForgetsThePaddingAtAnother) {
  EXPECT_EQ(fold("n01 n003 n005 n0006 n0008 n9998 n9999 n10000"),
            "n[01,003,005,0006,0008,9998-9999,10000]");
}

TEST(NodeFolding, SortsNumbersByLengthThenText) {
  EXPECT_EQ(fold("n5 n02 n10 n003"), "n[5,02,10,003]");
  EXPECT_EQ(fold("n1 n02 n3"), "n[1,3,02]");
}

TEST(NodeFolding, TakesNumbersOfAnyLength) {
  EXPECT_EQ(fold("n18446744073709551617 n18446744073709551615 n18446744073709551616"),
            "n[18446744073709551615-18446744073709551617]");
  const std::string nines(40, '9');
  const std::string one_more = std::string("1").append(40, '0');
  EXPECT_EQ(fold("n" + nines + " n" + one_more + " n5"), "n[5," + nines + "-" + one_more + "]");
  const std::string zeros(30, '0');
  EXPECT_EQ(fold("n" + zeros + "1 n" + zeros + "2 n1"), "n[1," + zeros + "1-" + zeros + "2]");
}

void expect_run_over_growth_from(std::size_t digits) {
  const std::string last(digits, '9');
  const std::string next = std::string("1").append(digits, '0');
  EXPECT_EQ(fold("n" + next + " n" + last), "n[" + last + "-" + next + "]");
  EXPECT_EQ(fold("n0" + last + " n" + next), "n[0" + last + "-" + next + "]");
  EXPECT_EQ(fold("n" + last + " n0" + next), "n[" + last + ",0" + next + "]");
}

TEST(NodeFolding, RunsOverTheLengthWhereNumbersNoLongerFitAMachineWord) {
  for (std::size_t digits = 15; digits < 22; ++digits) {
    expect_run_over_growth_from(digits);
  }
}

TEST(NodeFolding, SortsFamiliesByTheirPatterns) {
  EXPECT_EQ(fold("b2 b1 b0 b c a0 a"), "a,a0,b,b[0-2],c");
  EXPECT_EQ(fold("n-1 n1 n-2 n2 n+1 n:1"), "n[1-2],n+1,n-[1-2],n:1");
  EXPECT_EQ(fold("n1 node1 no1 n2 N1"), "N1,n[1-2],no1,node1");
  EXPECT_EQ(fold("nova3 nova4 5 nova6"), "5,nova[3-4,6]");
  EXPECT_EQ(fold("n1a n2a n1b n2b"), "n[1-2]a,n[1-2]b");
  // "n%s-x" stands before "nA" although '1' does not stand before '%'.
  EXPECT_EQ(fold("nA n1-x n%A"), "n%A,n1-x,nA");
}

TEST(NodeFolding, TakesPercentSignsForThemselves) {
  EXPECT_EQ(fold("cluster%eth0 cluster%eth1"), "cluster%eth[0-1]");
  EXPECT_EQ(fold("n%s n1 n2"), "n%s,n[1-2]");
  EXPECT_EQ(fold("n%s1 n1%s n2%s n%s2 n%s%s"), "n%s%s,n%s[1-2],n[1-2]%s");
}

TEST(NodeFolding, FoldsTheLastAxisFirst) {
  EXPECT_EQ(fold("node1-ib0 node1-ib1 node2-ib0"), "node1-ib[0-1],node2-ib0");
  EXPECT_EQ(fold("a1b1 a9b1 a9b2 a9b3"), "a1b1,a9b[1-3]");
  EXPECT_EQ(fold("r01n01 r01n02 r01n03 r02n01 r02n02"), "r01n[01-03],r02n[01-02]");
}

TEST(NodeFolding, ThenFoldsAnEarlierAxis) {
  EXPECT_EQ(fold("c1n1 c1n2 c2n1 c2n2"), "c[1-2]n[1-2]");
  EXPECT_EQ(fold("n1.c2.example.com n2.c2.example.com"), "n[1-2].c2.example.com");
  EXPECT_EQ(fold("a1b1 a1b00 a1b01 a004b1 a004b00 a004b01"), "a[1,004]b[1,00-01]");
  EXPECT_EQ(fold("a1b3 a1b5 a2b1 a4b3 a4b5"), "a[1,4]b[3,5],a2b1");
}

TEST(NodeFolding, FoldsNoEarlierAxisThatSavesNoTerm) {
  EXPECT_EQ(fold("x1y1z1 x1y2z2 x2y2z3 x2y1z4"), "x1y1z1,x1y2z2,x2y1z4,x2y2z3");
}

TEST(NodeFolding, FoldsTheEarlierAxisThatLeavesTheFewestTerms) {
  EXPECT_EQ(fold("x1y1z1 x2y1z1 x3y1z1 x1y2z1"), "x[1-3]y1z[1],x1y2z1");
  EXPECT_EQ(fold("x1y1z1 x1y2z1 x1y3z1 x2y1z1"), "x1y[1-3]z[1],x2y1z1");
  EXPECT_EQ(fold("a1b1c1d1 a1b2c1d1 a1b3c1d1 a1b1c2d1"), "a1b[1-3]c1d[1],a1b1c2d1");
}

TEST(NodeFolding, FoldsTheRightmostOfEquallyGoodAxes) {
  EXPECT_EQ(fold("x1y1z1 x1y1z2 x1y2z1 x1y2z2 x2y1z1 x2y1z2 x2y2z1 x2y2z2"),
            "x1y[1-2]z[1-2],x2y[1-2]z[1-2]");
  EXPECT_EQ(fold("a1b1c1d5 a2b1c1d5 a2b1c2d5"), "a1b1c1d5,a2b1c[1-2]d[5]");
}

TEST(NodeFolding, NeverFoldsThreeAxes) {
  EXPECT_EQ(fold("x1c0s0n0 x1c0s0n1 x1c0s1n0 x1c0s1n1 x1c1s0n0 x1c1s0n1 x1c1s1n0 x1c1s1n1"),
            "x1c0s[0-1]n[0-1],x1c1s[0-1]n[0-1]");
}

TEST(NodeFolding, BracketsTheFinalNumberBesideAnEarlierAxis) {
  EXPECT_EQ(fold("c1n5 c2n5 c3n5"), "c[1-3]n[5]");
  EXPECT_EQ(fold("c1n5-x c2n5-x c3n5-x"), "c[1-3]n5-x");
  EXPECT_EQ(fold("c1n5 c2n5 c4n6"), "c[1-2]n[5],c4n6");
}

TEST(NodeFolding, SortsTermsByTheirFirstNamesAxisByAxis) {
  EXPECT_EQ(fold("da2c1 da2c2 da3c1 da3c2 da3c3 da10c4 da10c3 da04c5"),
            "da2c[1-2],da3c[1-3],da04c5,da10c[3-4]");
  EXPECT_EQ(fold("x2y1z1 x2y9z1 x2y5z7 x10y1z2 x9y1z3"), "x2y[1,9]z[1],x2y5z7,x9y1z3,x10y1z2");
}

TEST(NodeFolding, QuotesWhatTheShellOrOtherToolsWouldReadOtherwise) {
  EXPECT_EQ(fold_node_names({{"n2", "$(reboot)", "n1", "a b", "it's", "", "-n1", "b[1-2]", "x,y"}}),
            R"(n[1-2],'','$(reboot)','-n1','a b','b[1-2]','it'\''s','x,y')");
  EXPECT_EQ(fold_node_names({{"''"}}), R"(''\'''\''')");
  EXPECT_EQ(fold_node_names({{"caf\xC3\xA9"
                              "1",
                              "caf\xC3\xA9"
                              "2"}}),
            "'caf\xC3\xA9"
            "1','caf\xC3\xA9"
            "2'");
}

TEST(NodeFolding, LetsEveryHarmlessCharacterTakePart) {
  EXPECT_EQ(fold("Az._:+=%-1 Az._:+=%-2"), "Az._:+=%-[1-2]");
  for (int c = 1; c < 256; ++c) {
    const char character = static_cast<char>(c);
    const bool harmless =
        std::isalnum(c) != 0 || std::string_view("._:+=%-").find(character) != std::string::npos;
    const std::string folded = fold_node_names({{std::string("n") + character}});
    EXPECT_EQ(folded.front() != '\'', harmless) << c;
  }
}

TEST(NodeFolding, SortsQuotedNamesByBytesAfterAllOthers) {
  EXPECT_EQ(fold_node_names({{"~10", "~9", "~9", "\xFF", "z"}}), "z,'~10','~9','\xFF'");
}

TEST(NodeFolding, TakesManyAxes) {
  std::string fixed;
  for (int axis = 0; axis < 300; ++axis) {
    fixed.append("x").append(std::to_string(axis));
  }
  const auto name = [&](int a, int b) {
    return std::string("c").append(std::to_string(a)) + fixed + "n" + std::to_string(b);
  };
  EXPECT_EQ(fold_node_names({{name(1, 1), name(1, 2), name(2, 1), name(2, 2)}}),
            "c[1-2]" + fixed + "n[1-2]");
}

/// Random names of all kinds: one to three axes, several paddings, huge numbers, odd names.
class RandomNames {
 public:
  explicit RandomNames(unsigned seed) : random_(seed) {}

  Names list(bool with_odd_names) {
    Names names(below(60) + 1);
    const unsigned span = below(3) == 0 ? 30 : 4;
    for (std::string& name : names) {
      name = with_odd_names && below(8) == 0 ? odd_name() : plain_name(span);
    }
    return names;
  }

  void shuffle(Names& names) { std::shuffle(names.begin(), names.end(), random_); }

 private:
  unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

  std::string number(unsigned span) {
    static constexpr std::array<const char*, 6> STARTS = {
        "0", "9", "99", "100", "9999999999999999", "99999999999999999999"};
    std::string last = std::to_string(below(span));
    switch (below(8)) {
      case 0:
        return "0" + last;
      case 1:
        return STARTS[below(STARTS.size())] + last;
      default:
        return last;
    }
  }

  std::string plain_name(unsigned span) {
    static constexpr std::array<const char*, 5> WORDS = {"n", "c", "-ib", "%s", "."};
    const unsigned axes = below(4);
    std::string name = below(6) == 0 ? "" : "n";
    for (unsigned axis = 0; axis < axes; ++axis) {
      if (axis > 0) {
        name += WORDS[below(3)];
      }
      name += number(span);
    }
    if (name.empty() || below(4) == 0) {
      name += WORDS[below(WORDS.size())];
    }
    return name.front() == '-' ? "n" + name : name;
  }

  std::string odd_name() {
    static constexpr std::string_view CHARACTERS = "n1'\\[]-, $!@\xC3\xA9";
    std::string name(below(5), ' ');
    for (char& c : name) {
      c = CHARACTERS[below(CHARACTERS.size())];
    }
    return name;
  }

  std::mt19937 random_;
};

std::set<std::string> as_set(const Names& names) { return {names.begin(), names.end()}; }

TEST(NodeFolding, UnfoldsToTheSameNamesEachOnce) {
  for (unsigned seed = 0; seed < 2000; ++seed) {
    const Names names = RandomNames(seed).list(true);
    const std::string folded = fold_node_names({names});
    EXPECT_THAT(expand_node_set(folded), UnorderedElementsAreArray(as_set(names))) << folded;
    if (HasFailure()) {
      break;
    }
  }
}

std::string padded(std::size_t number, std::size_t width) {
  const std::string digits = std::to_string(number);
  return std::string(width - std::min(width, digits.size()), '0') + digits;
}

// Many names are sorted in other ways than few, close ones in others than scattered ones.

TEST(NodeFolding, FoldsManyNamesInAnyOrder) {
  Names one_axis;
  Names growing;
  Names two_axes;
  for (std::size_t i = 0; i < 3000; ++i) {
    one_axis.push_back("node" + padded(i, 5));
    growing.push_back("n" + std::to_string(i));
    two_axes.push_back("r" + padded(i / 100, 2) + "n" + std::to_string(i % 100 + 1));
  }
  for (unsigned seed = 0; seed < 5; ++seed) {
    RandomNames random(seed);
    for (Names* names : {&one_axis, &growing, &two_axes}) {
      random.shuffle(*names);
    }
    EXPECT_EQ(fold_node_names({one_axis}), "node[00000-02999]");
    EXPECT_EQ(fold_node_names({growing, growing}), "n[0-2999]");
    EXPECT_EQ(fold_node_names({two_axes}), "r[00-29]n[1-100]");
    EXPECT_EQ(fold_node_names({growing, one_axis}), "n[0-2999],node[00000-02999]");
  }
}

TEST(NodeFolding, FoldsManyScatteredNumbersInAnyOrder) {
  Names names;
  std::string folded = "n[";
  // Longer ones last, as folding has them, and some that one machine word cannot hold.
  for (std::size_t digits = 1; digits <= 24; ++digits) {
    for (std::size_t first = 2; first <= 8; first += 3) {
      const std::string number = std::to_string(first) + std::string(digits - 1, '0');
      names.push_back("n" + number);
      folded.append(number).append(",");
    }
  }
  folded.back() = ']';
  for (unsigned seed = 0; seed < 5; ++seed) {
    RandomNames(seed).shuffle(names);
    EXPECT_EQ(fold_node_names({names, names}), folded);
  }
}

TEST(NodeFolding, TakesNamesOfFamiliesThatTakeTurns) {
  EXPECT_EQ(fold("n1 n1x n2 n x n01 n1n1 n2n n n3"), "n,n[1-3,01],n2n,n1n1,n1x,x");
}

TEST(NodeFolding, DependsOnTheSetOfNamesOnly) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    RandomNames random(seed);
    Names names = random.list(true);
    const std::string folded = fold_node_names({names});
    const std::set<std::string> sorted = as_set(names);
    names.insert(names.end(), sorted.begin(), sorted.end());
    random.shuffle(names);
    EXPECT_EQ(fold_node_names({names, names}), folded);
    EXPECT_EQ(fold_node_names({{sorted.begin(), sorted.end()}}), folded);
  }
}

/// Returns what ClusterShell's nodeset expands a set of harmless characters and brackets to.
Names expand_with_nodeset(const std::string& folded) {
  const std::string command = "nodeset -e -S '\n' '" + folded + "'";
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::string output;
  std::array<char, 4096> buffer;
  while (const std::size_t size = fread(buffer.data(), 1, buffer.size(), pipe.get())) {
    output.append(buffer.data(), size);
  }
  std::istringstream lines(output);
  Names names;
  for (std::string name; std::getline(lines, name);) {
    names.push_back(name);
  }
  return names;
}

TEST(NodeFolding, IsReadByClusterShellAsItWasMeant) {
  if (std::system("nodeset --version >/dev/null 2>&1") != 0) {
    GTEST_SKIP() << "no nodeset here";
  }
  for (unsigned seed = 0; seed < 10; ++seed) {
    const Names names = RandomNames(seed).list(false);
    const std::string folded = fold_node_names({names});
    EXPECT_THAT(expand_with_nodeset(folded), UnorderedElementsAreArray(as_set(names))) << folded;
  }
}

}  // namespace
