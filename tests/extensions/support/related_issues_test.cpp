#include "vond/extension/related_issues.h"

#include <gtest/gtest.h>

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

TEST(Join, PutsTheSeparatorBetweenItems) {
  EXPECT_EQ(join(Texts{}, ", "), "");
  EXPECT_EQ(join(Texts{"a"}, ", "), "a");
  EXPECT_EQ(join(Texts{"", "b", ""}, ", "), ", b, ");
}

}  // namespace
}  // namespace vond::test
