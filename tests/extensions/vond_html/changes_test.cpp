#include <gmock/gmock.h>

#include <map>
#include <string>

#include "page_fixture.h"
#include "standalone/libvond_host/issue_facts.h"

namespace vond::test {
namespace {

using testing::HasSubstr;
using testing::Not;

/// Changes of issues by their ids; those that are not named are the same.
class Changes : public standalone::IssueFacts {
 public:
  using Issue = postprocessor::CollapsedAnalysisOutput;

  std::map<std::string, facts::Change> changes;
  facts::Since counts;

  int severity(const Issue& /*issue*/) const override { return 0; }
  facts::Patterns patterns(const Issue& /*issue*/) const override { return {}; }
  std::vector<facts::Place> places(const Issue& /*issue*/) override { return {}; }
  std::optional<facts::Change> change(const Issue& issue) const override {
    const auto known = changes.find(issue.get_id());
    return known == changes.end() ? facts::Change{"same", {}, {}} : known->second;
  }
  std::optional<std::int64_t> first_seen(const Issue& /*issue*/) const override { return {}; }
  std::optional<facts::Since> since() const override { return counts; }
  void for_each_finding(
      const std::function<void(const facts::Finding&)>& /*visit*/) const override {}
};

class ChangesTest : public PageTest {
 protected:
  std::string changes_section() { return section("changes"); }

  Changes changes;
  standalone::IssueFactsConnection connection{changes};
};

TEST_F(ChangesTest, NewIssuesAreNamedHoweverManyWorseOnesThereAre) {
  add_issues(data, 24, "known", 250);
  add_issue(data, 4, make_issue({.id = "fresh", .nodes = {"n1"}}));
  changes.changes["fresh"] = {"new", {"n1"}, {}};
  changes.counts.new_issues = 1;
  const std::string text = changes_section();
  EXPECT_THAT(text, HasSubstr("<h3>New: 1</h3>"));
  EXPECT_THAT(text, HasSubstr("WARNING </span></span> <bdi>fresh</bdi> on <code"));
  EXPECT_THAT(text, Not(HasSubstr(" more")));
}

TEST_F(ChangesTest, WhatHasNoPlaceCanBeAskedFor) {
  for (int i = 0; i < 21; ++i) {
    const std::string id = "i" + std::to_string(i);
    add_issue(data, 24, make_issue({.id = id}));
    changes.changes[id] = {i == 0 ? "worse" : "new", {}, {}};
  }
  changes.counts.worse = 1;
  changes.counts.new_issues = 23;
  const std::string text = changes_section();
  EXPECT_THAT(text, HasSubstr("<a href=\"#issue-21\"><bdi>i20</bdi></a>"));
  EXPECT_THAT(text,
              HasSubstr("<li><span data-filter=\"change=new\">and 3 more</span></li>\n</ul>"));
  EXPECT_THAT(text, HasSubstr("<h3>Worse: 1</h3>"));
  EXPECT_THAT(text, Not(HasSubstr("change=worse")));
}

TEST_F(ChangesTest, AnIssueThatIsFiledTwiceIsNamedOnce) {
  const auto issue = make_issue({.id = "twice"});
  add_issue(data, 24, issue);
  add_issue(data, 4, issue);
  changes.changes["twice"] = {"new", {}, {}};
  changes.counts.new_issues = 1;
  const std::string text = changes_section();
  EXPECT_EQ(text.find("twice"), text.rfind("twice"));
}

}  // namespace
}  // namespace vond::test
