#include "standalone/report/related_issues.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using vond::postprocessor::DIAGNOSES;
using vond::postprocessor::MISSING_DATA;
using vond::postprocessor::OBSERVATIONS;
using vond::postprocessor::Type;
using vond::postprocessor::TypeCode;
using vond::standalone::CollapsedIssue;
using vond::standalone::RecordIssues;
using vond::standalone::relate_issues;

using Names = std::vector<std::string>;
using Set = std::set<std::shared_ptr<RecordIssues::Issue>>;

CollapsedIssue make_issue(TypeCode type, const std::string& id, const Names& based_on = {}) {
  CollapsedIssue issue;
  issue.type = type;
  issue.id = id;
  issue.based_on = based_on;
  return issue;
}

TEST(RelateIssues, BothWays) {
  const RecordIssues issues(3);
  const Names unknown =
      relate_issues({make_issue(DIAGNOSES, "d", {"m", "o"}), make_issue(OBSERVATIONS, "o"),
                     make_issue(MISSING_DATA, "m")},
                    issues);
  EXPECT_EQ(unknown, Names());
  EXPECT_EQ(issues[0]->related_issues[Type::OBSERVATION], (Set{issues[1], issues[2]}));
  EXPECT_EQ(issues[1]->related_issues[Type::DIAGNOSIS], Set{issues[0]});
  EXPECT_EQ(issues[2]->related_issues[Type::DIAGNOSIS], Set{issues[0]});
}

TEST(RelateIssues, AnIdStandsForAllIssuesThatHaveItAndAreNoDiagnoses) {
  const RecordIssues issues(4);
  relate_issues({make_issue(DIAGNOSES, "x", {"x"}), make_issue(DIAGNOSES, "x"),
                 make_issue(OBSERVATIONS, "x"), make_issue(OBSERVATIONS, "x")},
                issues);
  EXPECT_EQ(issues[0]->related_issues[Type::OBSERVATION], (Set{issues[2], issues[3]}));
  EXPECT_TRUE(issues[1]->related_issues.empty());
}

TEST(RelateIssues, OnlyDiagnosesAreBasedOnSomething) {
  const RecordIssues issues(2);
  relate_issues({make_issue(OBSERVATIONS, "a", {"b"}), make_issue(OBSERVATIONS, "b")}, issues);
  EXPECT_TRUE(issues[0]->related_issues.empty());
  EXPECT_TRUE(issues[1]->related_issues.empty());
}

TEST(RelateIssues, IdsThatStandForNothingAreReturnedOnceInByteOrder) {
  const RecordIssues issues(2);
  EXPECT_EQ(relate_issues({make_issue(DIAGNOSES, "d", {"z", "d", "B"}),
                           make_issue(OBSERVATIONS, "o", {"z", "a"})},
                          issues),
            (Names{"B", "a", "d", "z"}));
}

}  // namespace
