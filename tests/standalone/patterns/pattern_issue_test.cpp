#include "standalone/patterns/pattern_issue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "fuzz/pattern_oracle.h"
#include "fuzz/pattern_run.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using vond::fuzz::PatternFinding;
using vond::fuzz::PatternRun;

using Findings = std::vector<PatternFinding>;

PatternFinding finding(const std::string& node, const std::string& message) {
  return {{node}, {message, ""}, 0};
}

/// The messages of the issues that findings become.
std::vector<std::string> messages(const Findings& findings) {
  std::vector<std::string> messages;
  for (const auto& texts : PatternRun(findings).shown_texts()) {
    messages.push_back(texts[0]);
  }
  EXPECT_EQ(PatternRun(findings).issues(), expected_issues(findings));
  EXPECT_EQ(PatternRun(findings).sources(), expected_sources(findings));
  return messages;
}

TEST(PatternIssue, OfOneTextIsThatText) {
  EXPECT_THAT(messages({}), IsEmpty());
  EXPECT_THAT(messages({finding("cn1", "cn1 at 83C. cn1-eth0!")}),
              ElementsAre("cn1 at 83C. cn1-eth0!"));
  EXPECT_THAT(messages({finding("cn1", "fan 3 fails"), finding("cn2", "fan 3 fails")}),
              ElementsAre("fan 3 fails"));
}

TEST(PatternIssue, TellsTheValuesThatDiffer) {
  EXPECT_THAT(messages({finding("cn1", "fan 3 at 83C"), finding("cn2", "fan 3 at 85C")}),
              ElementsAre("fan 3 at 83C [cn1] or 85C [cn2]"));
}

TEST(PatternIssue, SaysNodeForTheOwnNameOfSeveralNodes) {
  EXPECT_THAT(messages({finding("cn1", "cn1 lost cn1-bmc"), finding("cn2", "cn2 lost cn2-bmc")}),
              ElementsAre("NODE lost NODE-bmc"));
}

TEST(PatternIssue, NamesTheNodeOfOneNodeAlone) {
  EXPECT_THAT(messages({finding("cn1", "cn1 at 5"), finding("cn1", "cn1 at 6")}),
              ElementsAre("cn1 at 5 or 6"));
}

TEST(PatternIssue, KeepsTheFormThatTheNameIsWrittenIn) {
  EXPECT_THAT(messages({finding("cn1.x.org", "cn1 of cn1.x.org at 5"),
                        finding("cn1.x.org", "cn1 of cn1.x.org at 6")}),
              ElementsAre("cn1 of cn1.x.org at 5 or 6"));
  EXPECT_THAT(
      messages({finding("cn1.x.org", "cn1 is down"), finding("cn1.x.org", "cn1.x.org is down")}),
      ElementsAre("cn1.x.org is down"));
  EXPECT_THAT(
      messages({finding("cn1.x.org", "cn1 is down"), finding("cn2.x.org", "cn2.x.org is down")}),
      ElementsAre("NODE is down"));
}

TEST(PatternIssue, SaysNodeInValues) {
  EXPECT_THAT(messages({finding("cn1", "port cn1-eth0"), finding("cn2", "port cn2-eth0"),
                        finding("cn2", "port cn2-eth1")}),
              ElementsAre("port NODE-eth0 [cn1,cn2] or NODE-eth1 [cn2]"));
  EXPECT_THAT(messages({finding("cn1", "port cn1-eth0"), finding("cn2", "port cn2-eth0")}),
              ElementsAre("port NODE-eth0"));
  EXPECT_THAT(messages({finding("cn1.x", "port cn1-eth0"), finding("cn2.x", "port cn2.x-eth0")}),
              ElementsAre("port NODE-eth0"));
}

TEST(PatternIssue, NamesTheNodeInValuesWhereItIsOne) {
  EXPECT_THAT(messages({finding("cn1", "port cn1-eth0"), finding("cn1", "port cn1-eth1"),
                        finding("cn9", "port cn3-eth1")}),
              ElementsAre("port cn1-eth0 [cn1], cn1-eth1 [cn1] or cn3-eth1 [cn9]"));
}

TEST(PatternIssue, KeepsEqualTextsOfOwnAndOtherNodesTogether) {
  EXPECT_THAT(messages({finding("cn1", "cn1 is down"), finding("cn9", "cn1 is down")}),
              ElementsAre("cn1 is down"));
  EXPECT_THAT(messages({finding("cn1", "port cn1-eth0"), finding("cn9", "port cn1-eth0")}),
              ElementsAre("port cn1-eth0"));
}

TEST(PatternIssue, JoinsIssuesThatAreEqualThen) {
  EXPECT_THAT(messages({finding("cn1", "cn1 port 5"), finding("cn1", "cn1 port 6"),
                        finding("cn9", "cn1 port 7"), finding("cn8", "cn1 port 8")}),
              ElementsAre("cn1 port 5 [cn1], 6 [cn1], 7 [cn9] or 8 [cn8]"));
}

TEST(PatternIssue, SplitsEqualTextsOnlyWhereOtherNamesStandInTheirPlace) {
  EXPECT_THAT(messages({finding("cn1", "cn1 is down"), finding("cn2", "cn2 is down"),
                        finding("cn9", "cn1 is down")}),
              ElementsAre("NODE is down", "cn1 is down"));
}

TEST(PatternIssue, DoesNotTakeTheWordNodeForANode) {
  EXPECT_THAT(messages({finding("cn1", "cn1 is down"), finding("cn2", "cn2 is down"),
                        finding("cn3", "NODE is down")}),
              ElementsAre("NODE is down", "NODE is down"));
  EXPECT_THAT(
      messages({finding("cn1", "x cn1-5"), finding("cn2", "x cn2-6"), finding("cn3", "x NODE-5")}),
      ElementsAre("x NODE-5 [cn1,cn3] or NODE-6 [cn2]"));
}

TEST(PatternIssue, TakesFindingsWithoutNodesAndWithSeveral) {
  EXPECT_THAT(messages({{{}, {"at 5", ""}, 1},
                        {{"cn1", "cn2", "cn1"}, {"at 6", ""}, 2},
                        {{"cn1", "cn1"}, {"at 7", ""}, 3}}),
              ElementsAre("at 5, 6 [cn1,cn2] or 7 [cn1]"));
  EXPECT_THAT(messages({{{"cn1", "cn2"}, {"cn1 is down", ""}, 1},
                        {{"cn1", "cn1"}, {"cn1 is down", ""}, 2}}),
              ElementsAre("cn1 is down"));
}

TEST(PatternIssue, TakesMessageAndRemedyTogether) {
  const Findings findings = {{{"cn1"}, {"fan 3", "see cn1 or 7"}, 1},
                             {{"cn2"}, {"fan 3", "see cn2 or 8"}, 2}};
  EXPECT_THAT(PatternRun(findings).shown_texts(),
              ElementsAre(ElementsAre("fan 3", "see NODE or 7 [cn1] or 8 [cn2]")));
}

/// Random findings of few words, so that much of it meets.
class RandomFindings {
 public:
  explicit RandomFindings(unsigned seed) : random_(seed) {}

  Findings list() {
    // A few texts, said by several nodes with their names in it.
    std::vector<std::string> texts(below(4) + 1);
    std::generate(texts.begin(), texts.end(), [this] { return text(); });
    Findings findings(below(30) + 1);
    for (PatternFinding& finding : findings) {
      const std::size_t nodes = below(6) == 0 ? below(4) : 1;
      for (std::size_t i = 0; i < nodes; ++i) {
        finding.nodes.emplace_back(pick(NODES));
      }
      const std::string node = finding.nodes.empty() ? "cn1" : finding.nodes[0];
      finding.texts = {fill(texts[below(texts.size())], node),
                       below(3) == 0 ? fill(texts[0], node) : ""};
      finding.row_id = static_cast<int>(below(5));
    }
    return findings;
  }

  void shuffle(Findings& findings) { std::shuffle(findings.begin(), findings.end(), random_); }

 private:
  using Words = std::vector<std::string_view>;

  static const Words NODES;
  static const Words PIECES;

  std::size_t below(std::size_t limit) { return random_() % limit; }
  std::string_view pick(const Words& words) { return words[below(words.size())]; }

  std::string text() {
    std::string text;
    for (std::size_t i = below(8); i > 0; --i) {
      text += pick(PIECES);
    }
    return text;
  }

  /// Puts the node's name, or sometimes another, for `N`, its first part for `S`, a digit for `#`.
  std::string fill(const std::string& text, const std::string& node) {
    std::string filled;
    for (const char c : text) {
      const std::string name = below(6) == 0 ? std::string(pick(NODES)) : node;
      filled += c == 'N'   ? name
                : c == 'S' ? name.substr(0, name.find('.'))
                : c == '#' ? std::to_string(below(3))
                           : std::string(1, c);
    }
    return filled;
  }

  std::mt19937 random_;
};

const RandomFindings::Words RandomFindings::NODES = {"cn1", "cn1.x", "cn2", "cn2.x", "login",
                                                     "1.2", "a b",   "c,1", "-n"};
const RandomFindings::Words RandomFindings::PIECES = {"N",        "N",
                                                      "S",        "#",
                                                      "#",        " ",
                                                      " ",        " ",
                                                      ",",        ".",
                                                      ":",        "-",
                                                      "_",        "(",
                                                      ")",        "NODE",
                                                      "eth#",     "N-#",
                                                      "x",        "\xC3\xA4",
                                                      "@",        "\n",
                                                      "\x01",     "\x02",
                                                      "\x05",     "#,#",
                                                      "#.#",      "2026-01-0# 00:00:0#",
                                                      ".#",       "+01:00",
                                                      "Z",        "Jan ",
                                                      "Jan  ",    "Sat Jan 0# 00:00:0#",
                                                      "0#:00:00", "Mon Feb  # 00:00:00",
                                                      " 12 ",     "2026-01-01",
                                                      "?"};

TEST(PatternIssue, IsWhatTheRuleSaysInAnyOrderAndLosesNothing) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    RandomFindings random(seed);
    Findings findings = random.list();
    PatternRun run(findings);
    ASSERT_EQ(run.issues(), expected_issues(findings)) << seed;
    ASSERT_EQ(run.sources(), expected_sources(findings)) << seed;
    random.shuffle(findings);
    PatternRun shuffled(findings);
    ASSERT_EQ(shuffled.issues(), run.issues()) << seed;
    ASSERT_EQ(shuffled.shown_texts(), run.shown_texts()) << seed;
  }
}

}  // namespace
