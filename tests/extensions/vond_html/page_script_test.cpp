#include <gmock/gmock.h>

#include <string>

#include "page_fixture.h"

namespace vond::test {
namespace {

using testing::HasSubstr;
using testing::Not;

/// What the script of the page reads.
class PageScriptTest : public PageTest {
 protected:
  std::string document() {
    const std::string begin = "<script type=\"application/json\" id=\"data\">";
    return between(written(), begin, "</script>").substr(begin.size());
  }
};

TEST_F(PageScriptTest, OfAnEmptyRecordThereIsNothingToShow) {
  data.issues_by_mask.reset();
  EXPECT_THAT(document(), HasSubstr("\"groups\":[],\"issues\":[],\"left_out\":0,"
                                    "\"definitions\":[]}"));
}

TEST_F(PageScriptTest, IssueHasWhatIsNotEmpty) {
  add_issue(data, 24, make_issue({.id = "a", .nodes = {"n2", "n1"}, .definitions = {"d"}}));
  EXPECT_THAT(document(), HasSubstr("{\"id\":\"a\",\"band\":0,\"type\":\"diagnosis\","
                                    "\"fails\":true,"));
  EXPECT_THAT(document(), HasSubstr("\"nodes\":[0,-1],\"folded\":\"n[1-2]\","
                                    "\"definitions\":[0]}"));
  EXPECT_THAT(document(), HasSubstr("\"definitions\":[\"d\"]}"));
}

TEST_F(PageScriptTest, NothingInItEndsItsElement) {
  add_issue(data, 24, make_issue({.id = "</script><script>alert(1)</script>", .nodes = {"<!--"}}));
  EXPECT_THAT(document(), Not(HasSubstr("<")));
  EXPECT_THAT(document(), HasSubstr("\\u003c/script>\\u003cscript>alert(1)"));
  EXPECT_THAT(document(), HasSubstr("\"\\u003c!--\""));
}

TEST_F(PageScriptTest, IssueThatIsFiledTwiceIsThereOnce) {
  const auto issue = make_issue({.id = "twice"});
  add_issue(data, 24, issue);
  add_issue(data, 4, issue);
  const std::string text = document();
  EXPECT_EQ(text.find("\"twice\""), text.rfind("\"twice\""));
}

TEST_F(PageScriptTest, StatesOfNodesAreACharacterEach) {
  facts().examination = {
      .nodes_examined = 3, .not_examined_with_findings = {}, .names = {"n1", "n2", "n3", "n6"}};
  facts().expectation = {
      .nodes_expected = 5, .silent = {"n4", "n5"}, .not_expected = {}, .alike = {}};
  facts().acknowledged = {.issues = 1, .nodes = {"n1", "n4", "n5", "n6"}};
  add_issue(data, 24, make_issue({.id = "a", .nodes = {"n1", "n4"}}));
  add_issue(data, 4, make_issue({.id = "b", .nodes = {"n1", "n2"}}));
  EXPECT_THAT(document(), HasSubstr("{\"name\":\"n\",\"states\":\"01-A?+\",\"nodes\":["));
}

TEST_F(PageScriptTest, RelatedIssuesAreNamedByTheirNumbers) {
  const auto observation = make_issue({.id = "o"});
  const auto diagnosis = make_issue({.id = "d"});
  relate(diagnosis, observation);
  add_issue(data, 24, diagnosis);
  add_issue(data, 25, observation);
  EXPECT_THAT(document(), HasSubstr("\"based_on\":[2]"));
  EXPECT_THAT(document(), HasSubstr("\"explained_by\":[1]"));
  forget_relations({diagnosis, observation});
}

TEST_F(PageScriptTest, RowIdsAreThereAtTheLogLevelsThatShowThem) {
  add_issue(data, 24, make_issue({.id = "a", .row_ids = {3, 4}}));
  EXPECT_THAT(document(), Not(HasSubstr("row_ids")));
  data.log_level = "debug";
  EXPECT_THAT(document(), HasSubstr("\"row_ids\":[3,4]"));
}

TEST_F(PageScriptTest, LongTextsAreCut) {
  auto issue = make_issue({.id = "a"});
  issue->outputs.front()->message = std::string(2'000'000, 'x');
  add_issue(data, 24, issue);
  EXPECT_LT(document().size(), 20'000);
}

}  // namespace
}  // namespace vond::test
