#include "vond/extension/related_issues.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/records.h"
#include "vond/extension/text.h"

namespace vond::test {
namespace {

using extension::join;
using extension::usable_related_ids;
using postprocessor::Type;
using Texts = std::vector<std::string>;

TEST(RelatedIssues, AreOfOneTypeEachOnceAndInByteOrder) {
  const Issue issue = make_issue({.id = "id"});
  issue->related_issues[Type::OBSERVATION] = {make_issue({.id = "b"}), make_issue({.id = "a"}),
                                              make_issue({.id = "B"}), make_issue({.id = "b"})};
  issue->related_issues[Type::DIAGNOSIS] = {make_issue({.id = "d"})};
  EXPECT_EQ(usable_related_ids(*issue, Type::OBSERVATION),
            (Texts{"usable B", "usable a", "usable b"}));
  EXPECT_EQ(usable_related_ids(*issue, Type::DIAGNOSIS), Texts{"usable d"});
}

TEST(RelatedIssues, AreNoneForATypeThatIsAbsent) {
  EXPECT_EQ(usable_related_ids(*make_issue({.id = "id"}), Type::OBSERVATION), Texts());
}

/// Returns the ids of what `issue` is related to, in the order of the report of `data`.
Texts related_ids(const Data& data, const Issue& issue, Type type) {
  Texts ids;
  for (const auto* related :
       extension::related_issues(*issue, type, extension::IssueNumbers(data))) {
    ids.push_back(related->get_id());
  }
  return ids;
}

TEST(RelatedIssues, StandInTheOrderOfTheReportWhateverTheirAddresses) {
  Data data = make_record();
  const Issue diagnosis = make_issue({.id = "diagnosis"});
  const std::vector<Issue> observations = {make_issue({.id = "0"}), make_issue({.id = "1"}),
                                           make_issue({.id = "2"})};
  // Once as their addresses are ordered and once the other way round, one of the two is not
  // trivial.
  for (const bool reversed : {false, true}) {
    auto issues = observations;
    std::sort(issues.begin(), issues.end());
    if (reversed) {
      std::reverse(issues.begin(), issues.end());
    }
    (*data.issues_by_mask)[postprocessor::OBSERVATIONS] = issues;
    diagnosis->related_issues[Type::OBSERVATION] = {issues.begin(), issues.end()};
    EXPECT_EQ(related_ids(data, diagnosis, Type::OBSERVATION),
              (Texts{issues[0]->get_id(), issues[1]->get_id(), issues[2]->get_id()}));
  }
}

TEST(RelatedIssues, LeaveEmptyEntriesOutAndBeginWithStrangers) {
  Data data = make_record();
  const Issue diagnosis = make_issue({.id = "diagnosis"});
  const Issue known = make_issue({.id = "known"});
  add_issue(data, postprocessor::OBSERVATIONS, known);
  diagnosis->related_issues[Type::OBSERVATION] = {known, nullptr, make_issue({.id = "stranger"})};
  EXPECT_EQ(related_ids(data, diagnosis, Type::OBSERVATION), (Texts{"stranger", "known"}));
  EXPECT_EQ(related_ids(data, diagnosis, Type::DIAGNOSIS), Texts());
}

TEST(Join, PutsTheSeparatorBetweenItems) {
  EXPECT_EQ(join(Texts{}, ", "), "");
  EXPECT_EQ(join(Texts{"a"}, ", "), "a");
  EXPECT_EQ(join(Texts{"", "b", ""}, ", "), ", b, ");
}

}  // namespace
}  // namespace vond::test
