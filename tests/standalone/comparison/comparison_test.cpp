#include "standalone/comparison/comparison.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using vond::postprocessor::MISSING_DATA;
using vond::postprocessor::OBSERVATIONS;
using vond::postprocessor::TypeCode;
using vond::standalone::Change;
using vond::standalone::Comparison;
using vond::standalone::EarlierSightings;
using vond::standalone::PastCondition;
using vond::standalone::RunSightings;
using vond::standalone::SeenIssue;
using vond::standalone::SeenNames;
using vond::standalone::UNKNOWN_TIME;

using Names = std::vector<std::string>;

constexpr int WARNING = 74;
constexpr int CRITICAL = 100;

/// Makes runs whose names are numbered together. "" is what names no node.
class ComparisonTest : public ::testing::Test {
 protected:
  struct IssueOptions {
    int band = WARNING;
    std::string pattern = "p";
    TypeCode type = OBSERVATIONS;
    std::time_t first_seen = UNKNOWN_TIME;
  };

  SeenIssue issue(const std::string& id, const Names& nodes, const IssueOptions& options) {
    SeenIssue issue{names.condition(options.type, id), options.band, {}};
    for (const std::string& node : nodes) {
      issue.sightings.push_back(
          {names.node(node), names.pattern(options.pattern), options.first_seen});
    }
    return issue;
  }
  SeenIssue issue(const std::string& id, const Names& nodes) { return issue(id, nodes, {}); }

  /// Examined all of the nodes.
  RunSightings run(std::vector<SeenIssue> issues, const Names& examined, std::time_t time = 0) {
    RunSightings run{std::move(issues), {}, std::vector<SeenNames::Number>(), time};
    for (const std::string& node : examined) {
      run.examined->push_back(names.node(node));
    }
    return run;
  }
  RunSightings run(std::vector<SeenIssue> issues) { return run(std::move(issues), all); }

  static RunSightings run_without_examined(std::vector<SeenIssue> issues, std::time_t time = 0) {
    return {std::move(issues), {}, std::nullopt, time};
  }

  Comparison compare(std::vector<RunSightings> earlier, const RunSightings& now) const {
    return vond::standalone::compare(EarlierSightings(std::move(earlier)), now, names);
  }

  Names of(const std::vector<SeenNames::Number>& nodes) const {
    Names texts;
    for (const SeenNames::Number node : nodes) {
      texts.push_back(names.node_name(node));
    }
    std::sort(texts.begin(), texts.end());
    return texts;
  }

  std::map<std::string, Names> of(const std::vector<PastCondition>& conditions) const {
    std::map<std::string, Names> nodes;
    for (const PastCondition& past : conditions) {
      nodes[std::string(names.condition(past.condition).id)] = of(past.nodes);
    }
    return nodes;
  }

  SeenNames names;
  const Names all = {"", "n1", "n2", "n3", "n4"};
};

TEST_F(ComparisonTest, WhatNoNodeHadIsNew) {
  const Comparison result =
      compare({run({issue("a", {"n1"})})}, run({issue("a", {"n1"}), issue("b", {"n1", "n2"})}));
  EXPECT_EQ(result.issues[0].change, Change::SAME);
  EXPECT_EQ(result.issues[1].change, Change::NEW);
  EXPECT_EQ(of(result.issues[1].added), (Names{"n1", "n2"}));
}

TEST_F(ComparisonTest, AnIdOfAnotherTypeIsAnother) {
  const Comparison result =
      compare({run({issue("a", {"n1"})})},
              run({issue("a", {"n1"}, {.type = vond::postprocessor::DIAGNOSES})}));
  EXPECT_EQ(result.issues[0].change, Change::NEW);
  EXPECT_EQ(of(result.gone), (std::map<std::string, Names>{{"a", {"n1"}}}));
}

TEST_F(ComparisonTest, ANodeMoreIsWorse) {
  const Comparison result = compare({run({issue("a", {"n1"})})}, run({issue("a", {"n1", "n2"})}));
  EXPECT_EQ(result.issues[0].change, Change::WORSE);
  EXPECT_EQ(of(result.issues[0].added), Names{"n2"});
}

TEST_F(ComparisonTest, AHigherBandIsWorse) {
  const Comparison result =
      compare({run({issue("a", {"n1"})})}, run({issue("a", {"n1"}, {.band = CRITICAL})}));
  EXPECT_EQ(result.issues[0].change, Change::WORSE);
  EXPECT_EQ(result.issues[0].added, std::vector<SeenNames::Number>());
}

TEST_F(ComparisonTest, TheHighestBandOfANodeCounts) {
  const SeenIssue milder = issue("a", {"n1"});
  const SeenIssue worse = issue("a", {"n1"}, {.band = CRITICAL});
  const Comparison same = compare({run({worse, milder})}, run({worse, milder}));
  EXPECT_EQ(same.issues[0].change, Change::SAME);
  EXPECT_EQ(same.issues[1].change, Change::SAME);
  const Comparison risen = compare({run({milder})}, run({worse, milder}));
  EXPECT_EQ(risen.issues[0].change, Change::WORSE);
  EXPECT_EQ(risen.issues[1].change, Change::SAME) << "it is the other issue that has risen";
  const Comparison sunk = compare({run({worse, milder})}, run({milder}));
  EXPECT_EQ(sunk.issues[0].change, Change::BETTER);
}

TEST_F(ComparisonTest, ALowerBandIsBetter) {
  const Comparison result = compare({run({issue("a", {"n1"}, {.band = CRITICAL})})},
                                    run({issue("a", {"n1"}, {.pattern = "other"})}));
  EXPECT_EQ(result.issues[0].change, Change::BETTER);
}

TEST_F(ComparisonTest, AnotherPatternOnTheSameNodesIsReworded) {
  const Comparison result =
      compare({run({issue("a", {"n1"})})}, run({issue("a", {"n1"}, {.pattern = "other"})}));
  EXPECT_EQ(result.issues[0].change, Change::REWORDED);
}

TEST_F(ComparisonTest, PatternsThatChangePlacesAreReworded) {
  const SeenIssue first = issue("a", {"n1"}, {.pattern = "p"});
  const SeenIssue second = issue("a", {"n2"}, {.pattern = "q"});
  const Comparison result =
      compare({run({first, second})}, run({issue("a", {"n2"}, {.pattern = "p"}), second}));
  EXPECT_EQ(result.issues[0].change, Change::REWORDED);
  EXPECT_EQ(result.issues[1].change, Change::SAME);
}

TEST_F(ComparisonTest, RewordedComesBeforeBetter) {
  const Comparison result =
      compare({run({issue("a", {"n1", "n2"})})}, run({issue("a", {"n1"}, {.pattern = "other"})}));
  EXPECT_EQ(result.issues[0].change, Change::REWORDED);
  EXPECT_EQ(of(result.issues[0].healed), Names{"n2"});
}

TEST_F(ComparisonTest, WorseComesBeforeReworded) {
  const Comparison result =
      compare({run({issue("a", {"n1"})})}, run({issue("a", {"n1", "n2"}, {.pattern = "other"})}));
  EXPECT_EQ(result.issues[0].change, Change::WORSE);
}

TEST_F(ComparisonTest, ANodeThatHealedIsBetter) {
  const Comparison result = compare({run({issue("a", {"n1", "n2"})})}, run({issue("a", {"n1"})}));
  EXPECT_EQ(result.issues[0].change, Change::BETTER);
  EXPECT_EQ(of(result.issues[0].healed), Names{"n2"});
}

TEST_F(ComparisonTest, HealedNodesStandWithTheIssueThatHasThePatternTheyHad) {
  const SeenIssue worst = issue("a", {"n1"}, {.band = CRITICAL, .pattern = "p"});
  const SeenIssue milder = issue("a", {"n2"}, {.pattern = "q"});
  const Comparison result = compare({run({worst, issue("a", {"n2", "n3"}, {.pattern = "q"}),
                                          issue("a", {"n4"}, {.pattern = "r"})})},
                                    run({worst, milder}));
  EXPECT_EQ(of(result.issues[0].healed), Names{"n4"}) << "a pattern that is no more: the worst";
  EXPECT_EQ(of(result.issues[1].healed), Names{"n3"});
}

TEST_F(ComparisonTest, ANodeThatHealedOfSeveralPatternsStandsWithTheWorstOfTheirIssues) {
  const SeenIssue worst = issue("a", {"n1"}, {.band = CRITICAL, .pattern = "p"});
  const SeenIssue milder = issue("a", {"n2"}, {.pattern = "q"});
  const Comparison result = compare({run({issue("a", {"n1", "n3"}, {.band = CRITICAL}),
                                          issue("a", {"n2", "n3"}, {.pattern = "q"})})},
                                    run({worst, milder}));
  EXPECT_EQ(of(result.issues[0].healed), Names{"n3"});
  EXPECT_TRUE(result.issues[1].healed.empty());
}

TEST_F(ComparisonTest, WhatHealedOnAllNodesIsGone) {
  const Comparison result = compare({run({issue("a", {"n1", "n2"})})}, run({}));
  EXPECT_EQ(of(result.gone), (std::map<std::string, Names>{{"a", {"n1", "n2"}}}));
  EXPECT_TRUE(result.not_looked_at.empty());
}

TEST_F(ComparisonTest, WhatNobodyLookedAtIsNotGone) {
  const Comparison result = compare({run({issue("a", {"n1", "n2"})})}, run({}, Names{"n1"}));
  EXPECT_TRUE(result.gone.empty());
  EXPECT_EQ(of(result.not_looked_at), (std::map<std::string, Names>{{"a", {"n1", "n2"}}}));
  EXPECT_EQ(of(result.nodes_not_looked_at), Names{"n2"});
}

TEST_F(ComparisonTest, NothingHealsWhereNobodyTellsWhoWasExamined) {
  const Comparison result = compare({run({issue("a", {"n1"}), issue("b", {"n1", "n2"})})},
                                    run_without_examined({issue("b", {"n1"})}));
  EXPECT_TRUE(result.gone.empty());
  EXPECT_EQ(of(result.not_looked_at), (std::map<std::string, Names>{{"a", {"n1"}}}));
  EXPECT_EQ(result.issues[0].change, Change::SAME);
  EXPECT_TRUE(result.issues[0].healed.empty());
  EXPECT_EQ(of(result.nodes_not_looked_at), (Names{"n1", "n2"}));
}

TEST_F(ComparisonTest, ACheckThatLackedDataHealsNothing) {
  const SeenIssue no_data = issue("a", {"n1"}, {.type = MISSING_DATA});
  const Comparison result =
      compare({run({issue("a", {"n1", "n2"}), issue("b", {"n1"})})}, run({no_data}));
  EXPECT_EQ(of(result.gone), (std::map<std::string, Names>{{"b", {"n1"}}}));
  EXPECT_EQ(of(result.not_looked_at), (std::map<std::string, Names>{{"a", {"n1", "n2"}}}));
  EXPECT_EQ(of(result.nodes_not_looked_at), Names{"n1"});
}

TEST_F(ComparisonTest, ACheckThatLackedDataAndNamesNoNodeHealsNothingAnywhere) {
  const SeenIssue no_data = issue("a", {""}, {.type = MISSING_DATA});
  const Comparison result = compare({run({issue("a", {"n1"})})}, run({no_data}));
  EXPECT_TRUE(result.gone.empty());
}

TEST_F(ComparisonTest, ACheckThatLackedDataHealsWhenItHasThemAgain) {
  const SeenIssue no_data = issue("a", {"n1"}, {.type = MISSING_DATA});
  EXPECT_EQ(of(compare({run({no_data})}, run({})).gone),
            (std::map<std::string, Names>{{"a", {"n1"}}}));
}

TEST_F(ComparisonTest, WhatNamesNoNodeIsANodeOfItsOwn) {
  const RunSightings earlier = run({issue("a", {""})});
  EXPECT_EQ(compare({earlier}, run({issue("a", {""})})).issues[0].change, Change::SAME);
  EXPECT_EQ(compare({earlier}, run({})).gone.size(), 1U);
  const Comparison with_doubt = compare({earlier}, run({}, {"n1"}));
  EXPECT_EQ(of(with_doubt.not_looked_at), (std::map<std::string, Names>{{"a", {""}}}));
  EXPECT_TRUE(with_doubt.nodes_not_looked_at.empty());
}

TEST_F(ComparisonTest, TheNewestRunThatExaminedANodeCounts) {
  const RunSightings monday = run({issue("a", {"n1", "n2"})}, all, 1);
  const RunSightings tuesday = run({}, Names{"n1"}, 2);
  const Comparison result = compare({monday, tuesday}, run({issue("a", {"n1", "n2"})}));
  EXPECT_EQ(result.issues[0].change, Change::WORSE);
  EXPECT_EQ(of(result.issues[0].added), Names{"n1"}) << "n2 was down on tuesday";
}

TEST_F(ComparisonTest, RunsMayBeGivenInAnyOrder) {
  const RunSightings monday = run({issue("a", {"n1"})}, all, 1);
  const RunSightings tuesday = run({}, all, 2);
  const RunSightings unknown = run({issue("b", {"n1"})}, all, UNKNOWN_TIME);
  for (const auto& earlier :
       {std::vector{tuesday, monday, unknown}, std::vector{unknown, monday, tuesday}}) {
    const Comparison result = compare(earlier, run({issue("a", {"n1"}), issue("b", {"n1"})}));
    EXPECT_EQ(result.issues[0].change, Change::NEW);
    EXPECT_EQ(result.issues[1].change, Change::NEW);
    EXPECT_EQ(EarlierSightings(earlier).newest(), 2);
  }
}

TEST_F(ComparisonTest, WhatANewerRunSawOnANodeThatItDidNotExamineCountsToo) {
  const RunSightings monday = run({issue("a", {"n1"})}, all, 1);
  const RunSightings tuesday = run({issue("b", {"n1"})}, Names{"n2"}, 2);
  const Comparison result =
      compare({monday, tuesday}, run({issue("a", {"n1"}), issue("b", {"n1"})}));
  EXPECT_EQ(result.issues[0].change, Change::SAME);
  EXPECT_EQ(result.issues[1].change, Change::SAME);
}

TEST_F(ComparisonTest, ARunThatDoesNotTellWhomItExaminedCountsForTheNodesOnWhichItSawSomething) {
  const RunSightings monday = run({issue("a", {"n1", "n2"})}, all, 1);
  const RunSightings tuesday = run_without_examined({issue("b", {"n1"})}, 2);
  const Comparison result = compare({monday, tuesday}, run({issue("a", {"n1", "n2"})}));
  EXPECT_EQ(of(result.issues[0].added), Names{"n1"});
}

TEST_F(ComparisonTest, KnowsWhenAnIssueWasFirstSeen) {
  const RunSightings earlier = run({issue("a", {"n1"}, {.first_seen = 5}),
                                    issue("a", {"n2"}, {.first_seen = 3}), issue("b", {"n1"})},
                                   all, 10);
  const Comparison result =
      compare({earlier}, run({issue("a", {"n1", "n3"}), issue("b", {"n1"}), issue("c", {"n1"}),
                              issue("d", {"n1"}, {.first_seen = 8})}));
  EXPECT_EQ(result.issues[0].first_seen, 5) << "n2 is no node of it";
  EXPECT_EQ(result.issues[1].first_seen, 10) << "the run's time";
  EXPECT_EQ(result.issues[2].first_seen, UNKNOWN_TIME);
  EXPECT_EQ(result.issues[3].first_seen, 8) << "as it tells itself";
  const EarlierSightings sightings({earlier});
  EXPECT_EQ(sightings.first_seen(names.condition(OBSERVATIONS, "a"), names.node("n2")), 3);
  EXPECT_EQ(sightings.first_seen(names.condition(OBSERVATIONS, "a"), names.node("n3")),
            UNKNOWN_TIME);
  EXPECT_EQ(sightings.first_seen(names.condition(OBSERVATIONS, "z"), names.node("n1")),
            UNKNOWN_TIME);
}

TEST_F(ComparisonTest, WhatIsGoneStandsWorstFirst) {
  const Comparison result =
      compare({run({issue("a", {"n1"}), issue("b", {"n1", "n2"}), issue("d", {"n1"}),
                    issue("c", {"n1"}, {.band = CRITICAL})})},
              run({}));
  Names ids;
  for (const PastCondition& past : result.gone) {
    ids.emplace_back(names.condition(past.condition).id);
  }
  EXPECT_EQ(ids, (Names{"c", "b", "a", "d"}));
}

TEST_F(ComparisonTest, WhatIsAcknowledgedNowTakesNoPart) {
  RunSightings now = run({});
  now.acknowledged = {issue("a", {"n1"}), issue("b", {"n1"}, {.type = MISSING_DATA})};
  const Comparison result = compare({run({issue("a", {"n1", "n2"}), issue("b", {"n1"})})}, now);
  EXPECT_EQ(of(result.gone), (std::map<std::string, Names>{{"a", {"n2"}}}));
  EXPECT_EQ(of(result.not_looked_at), (std::map<std::string, Names>{{"b", {"n1"}}}))
      << "the check lacked data all the same";
}

// ---- Laws
// ----------------------------------------------------------------------------------------

class ComparisonLaws : public ComparisonTest {
 protected:
  std::vector<SeenIssue> random_issues() {
    std::vector<SeenIssue> issues;
    for (std::size_t count = below(6); issues.size() < count;) {
      Names nodes;
      for (const std::string& node : all) {
        if (below(3) == 0) {
          nodes.push_back(node);
        }
      }
      if (nodes.empty()) {
        nodes.emplace_back("n1");
      }
      issues.push_back(issue(std::string(1, static_cast<char>('a' + below(4))), nodes,
                             {.band = below(2) == 0 ? WARNING : CRITICAL,
                              .pattern = std::to_string(below(3)),
                              .type = below(4) == 0 ? MISSING_DATA : OBSERVATIONS}));
    }
    return issues;
  }

  std::size_t below(std::size_t end) { return random() % end; }

  static std::set<SeenNames::Number> new_conditions(const Comparison& result,
                                                    const RunSightings& now) {
    std::set<SeenNames::Number> conditions;
    for (std::size_t number = 0; number < now.issues.size(); ++number) {
      if (result.issues[number].change == Change::NEW) {
        conditions.insert(now.issues[number].condition);
      }
    }
    return conditions;
  }

  static std::set<SeenNames::Number> gone_conditions(const Comparison& result) {
    std::set<SeenNames::Number> conditions;
    for (const PastCondition& past : result.gone) {
      conditions.insert(past.condition);
    }
    return conditions;
  }

  std::minstd_rand random{7};
};

TEST_F(ComparisonLaws, ARunAgainstItselfIsAllTheSame) {
  for (int round = 0; round < 2000; ++round) {
    const RunSightings now =
        below(2) == 0 ? run(random_issues()) : run_without_examined(random_issues());
    const Comparison result = compare({now}, now);
    for (const auto& issue : result.issues) {
      ASSERT_EQ(issue.change, Change::SAME);
      ASSERT_TRUE(issue.added.empty() && issue.healed.empty());
    }
    ASSERT_TRUE(result.gone.empty() && result.not_looked_at.empty() &&
                result.nodes_not_looked_at.empty());
  }
}

TEST_F(ComparisonLaws, SwappingTwoRunsSwapsWhatIsNewAndWhatIsGone) {
  std::size_t swapped = 0;
  for (int round = 0; round < 2000; ++round) {
    std::vector<SeenIssue> first = random_issues();
    std::vector<SeenIssue> second = random_issues();
    // A check without data heals nothing, which is news all the same.
    for (auto* issues : {&first, &second}) {
      std::erase_if(*issues, [this](const SeenIssue& issue) {
        return names.condition(issue.condition).type == MISSING_DATA;
      });
    }
    const RunSightings one = run(first);
    const RunSightings other = run(second);
    const Comparison forth = compare({one}, other);
    const Comparison back = compare({other}, one);
    ASSERT_EQ(new_conditions(forth, other), gone_conditions(back));
    ASSERT_EQ(gone_conditions(forth), new_conditions(back, one));
    swapped += forth.gone.size();
  }
  EXPECT_GT(swapped, 500U);
}

TEST_F(ComparisonLaws, WithoutExaminedNodesNothingIsGoneOrHealed) {
  for (int round = 0; round < 2000; ++round) {
    const Comparison result =
        compare({run(random_issues())}, run_without_examined(random_issues()));
    ASSERT_TRUE(result.gone.empty());
    for (const auto& issue : result.issues) {
      ASSERT_TRUE(issue.healed.empty());
    }
  }
}

TEST_F(ComparisonLaws, EveryNodeThatHadSomethingIsAccountedFor) {
  for (int round = 0; round < 2000; ++round) {
    Names examined;
    for (const std::string& node : all) {
      if (below(3) != 0) {
        examined.push_back(node);
      }
    }
    const RunSightings before = run(random_issues());
    const RunSightings now = run(random_issues(), examined);
    const Comparison result = compare({before}, now);
    using Pair = std::pair<SeenNames::Number, SeenNames::Number>;
    std::set<Pair> had;
    std::set<Pair> has;
    std::set<Pair> told;
    for (const SeenIssue& issue : before.issues) {
      for (const auto& sighting : issue.sightings) {
        had.emplace(issue.condition, sighting.node);
      }
    }
    for (std::size_t number = 0; number < now.issues.size(); ++number) {
      const SeenNames::Number condition = now.issues[number].condition;
      for (const auto& sighting : now.issues[number].sightings) {
        has.emplace(condition, sighting.node);
        const bool is_added = std::count(result.issues[number].added.begin(),
                                         result.issues[number].added.end(), sighting.node) != 0;
        ASSERT_EQ(is_added, !had.contains({condition, sighting.node}));
      }
      for (const SeenNames::Number node : result.issues[number].healed) {
        ASSERT_TRUE(told.emplace(condition, node).second) << "healed twice";
      }
    }
    for (const auto* past : {&result.gone, &result.not_looked_at}) {
      for (const PastCondition& condition : *past) {
        for (const SeenNames::Number node : condition.nodes) {
          ASSERT_TRUE(told.emplace(condition.condition, node).second);
        }
      }
    }
    for (const Pair& pair : had) {
      const bool is_left = !has.contains(pair);
      const bool was_looked_at = std::count(result.nodes_not_looked_at.begin(),
                                            result.nodes_not_looked_at.end(), pair.second) == 0;
      ASSERT_TRUE(!told.contains(pair) || is_left);
      ASSERT_TRUE(told.contains(pair) || !is_left || !was_looked_at ||
                  pair.second == SeenNames::NO_NODE);
    }
  }
}

}  // namespace
