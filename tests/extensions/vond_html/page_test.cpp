#include <gmock/gmock.h>

#include <string>

#include "page_fixture.h"

namespace vond::test {
namespace {

using testing::HasSubstr;
using testing::Not;

std::size_t count(const std::string& text, const std::string& part) {
  std::size_t found = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++found;
  }
  return found;
}

using Acknowledgement = standalone::ReportFacts::Acknowledgement;

Acknowledgement entry(const std::string& id, std::time_t until, Acknowledgement::State state) {
  return {.id = id, .nodes = {}, .until = until, .reason = "r", .by = "", .state = state};
}

TEST_F(PageTest, OfAnEmptyRecordSaysThatThereAreNoIssues) {
  data.fwd_root.reset();
  data.issues_by_mask.reset();
  const std::string text = written();
  EXPECT_THAT(text, HasSubstr("<p>No issues detected.</p>"));
  EXPECT_THAT(text, HasSubstr("</footer>\n</body>\n</html>\n"));
}

TEST_F(PageTest, IsTheSameForTheSameRecord) {
  add_issues(data, 24, "i", 3);
  EXPECT_EQ(written(), written());
}

TEST_F(PageTest, PolicyComesBeforeTheStyleAndAllowsNothingElse) {
  const std::string text = written();
  EXPECT_THAT(text, HasSubstr("<head><meta charset=\"utf-8\">\n"
                              "<meta http-equiv=\"Content-Security-Policy\" "
                              "content=\"default-src 'none'; style-src 'sha256-"));
  EXPECT_EQ(count(text, "<style>"), 1);
  for (const char* forbidden : {"style=\"", "src=\"", "url(", "@import", "import "}) {
    EXPECT_THAT(text, Not(HasSubstr(forbidden)));
  }
}

TEST_F(PageTest, ScriptIsOneThatThePolicyNames) {
  const std::string text = written();
  EXPECT_THAT(text, HasSubstr("; script-src 'sha256-"));
  EXPECT_EQ(count(text, "<script>"), 1);
  EXPECT_EQ(count(text, "<script "), 1);
  EXPECT_EQ(count(text, "</script>"), 2);
}

TEST_F(PageTest, VerdictComesWithItsReasonAndNodes) {
  facts().failed = true;
  add_issue(data, 24, make_issue({.id = "a", .nodes = {"n2", "n1"}}));
  add_issue(data, 25, make_issue({.id = "b", .nodes = {"n1"}}));
  const std::string text = written();
  EXPECT_THAT(text, HasSubstr("<div class=\"verdict fail\"><h1>Cluster health: <strong><span "
                              "class=\"shape\" aria-hidden=\"true\">✖</span> FAIL</strong>"));
  EXPECT_THAT(text, HasSubstr("2 nodes with CRITICAL issues: <code class=\"nodes\" "
                              "dir=\"ltr\">n[1-2]</code>"));
}

TEST_F(PageTest, IssuesThatNameNoNodeAreAReasonToo) {
  facts().failed = true;
  add_issue(data, 24, make_issue({.id = "a"}));
  EXPECT_THAT(written(), HasSubstr("<p class=\"reason\">CRITICAL issues that name no node</p>"));
}

TEST_F(PageTest, WhatIsInDoubtIsToldWithItsNodes) {
  EXPECT_EQ(section("doubts"), "");
  facts().lines_rejected = 3;
  facts().examination = {.nodes_examined = 1, .not_examined_with_findings = {}};
  facts().expectation = {
      .nodes_expected = 3, .silent = {"cn1", "cn2"}, .not_expected = {"x"}, .alike = {}};
  const std::string text = section("doubts");
  EXPECT_THAT(text, HasSubstr("<li>2 of 3 expected nodes were not examined</li>"));
  EXPECT_THAT(text, HasSubstr("<li>3 lines of input were left out</li>"));
  EXPECT_THAT(text,
              HasSubstr("<li>Not examined: <code class=\"nodes\" dir=\"ltr\">cn[1-2]</code>"));
  EXPECT_THAT(text, HasSubstr("<li>Examined and not expected: "));
}

TEST_F(PageTest, OldInputsStandOut) {
  facts().inputs = {{.name = "new", .age = 86400}, {.name = "old", .age = 86401}, {.name = "-"}};
  EXPECT_THAT(written(),
              HasSubstr("<dt>Inputs</dt>\n<dd><bdi>new</bdi> (1 day old); <bdi>old</bdi> "
                        "<strong class=\"remark\">(1 day old)</strong>; "
                        "<bdi>-</bdi></dd>"));
}

TEST_F(PageTest, ManyInputsAreCounted) {
  facts().inputs.assign(12, {.name = "a"});
  EXPECT_THAT(written(), HasSubstr("<bdi>a</bdi> and 2 more</dd>"));
}

TEST_F(PageTest, CausesComeWithWhatTheyExplain) {
  const Issue cause = make_issue({.id = "cause", .message = "m", .nodes = {"n1"}});
  const Issue effect = make_issue({.id = "effect", .nodes = {"n2", "n3"}});
  relate(cause, effect);
  add_issue(data, 24, cause);
  add_issue(data, 25, effect);
  add_issue(data, 25, make_issue({.id = "alone"}));
  add_issue(data, 26, make_issue({.id = "unknown"}));
  const std::string text = section("band-critical");
  EXPECT_THAT(text, HasSubstr(": 1 diagnosis, 2 observations (1 explained), 1 without data</h3>"));
  EXPECT_THAT(text, HasSubstr("explains 1 observation on 2 nodes: <a "
                              "href=\"#issue-2\"><bdi>effect</bdi></a></p>"));
  EXPECT_THAT(text, HasSubstr("<h4>Observations that nothing explains</h4>\n<ul><li><a "
                              "href=\"#issue-3\"><bdi>alone</bdi></a></li>\n</ul>"));
  EXPECT_THAT(text, HasSubstr("<h4>Checks without data</h4>\n<ul><li><a href=\"#issue-4\">"));
  forget_relations({cause, effect});
}

TEST_F(PageTest, BandWithoutIssuesHasNothingToLeadTo) {
  EXPECT_EQ(section("causes"), "");
  add_issue(data, 24, make_issue({.id = "a"}));
  const std::string text = written();
  EXPECT_THAT(text, HasSubstr("<a class=\"tile critical\" href=\"#band-critical\">"));
  EXPECT_THAT(text, HasSubstr("<div class=\"tile warning\"><span class=\"count\">0</span>"));
  EXPECT_THAT(text, Not(HasSubstr("id=\"band-warning\"")));
}

TEST_F(PageTest, CausesThatHaveNoRoomAreCounted) {
  add_issues(data, 24, "d", 22);
  add_issues(data, 25, "o", 11);
  const std::string text = section("band-critical");
  EXPECT_THAT(
      text,
      HasSubstr(
          "<bdi>d20</bdi></a></li>\n<li><span data-filter=\"band=critical&amp;type=diagnosis\">and "
          "2 more</span></li>"));
  EXPECT_THAT(text,
              HasSubstr("<bdi>o10</bdi></a></li>\n<li><span "
                        "data-filter=\"band=critical&amp;type=observation&amp;explained=no\">and "
                        "1 more</span></li>"));
}

TEST_F(PageTest, DiagnosesAndObservationsLeadToEachOther) {
  const Issue cause = make_issue({.id = "cause"});
  const Issue effect = make_issue({.id = "effect"});
  relate(cause, effect);
  add_issue(data, 24, cause);
  add_issue(data, 9, effect);
  const std::string text = written();
  EXPECT_THAT(between(text, "<article id=\"issue-1\"", "</article>"),
              HasSubstr("<dt>Based on</dt>\n<dd dir=\"auto\"><a href=\"#issue-2\">"));
  EXPECT_THAT(between(text, "<article id=\"issue-2\"", "</article>"),
              HasSubstr("<dt>Explained by</dt>\n<dd dir=\"auto\"><a href=\"#issue-1\">"));
  forget_relations({cause, effect});
}

TEST_F(PageTest, IssueTellsAllThatIsKnownOfIt) {
  data.log_level = "info";
  add_issue(data, 4,
            make_issue({.id = "disk",
                        .category = "storage",
                        .message = "full",
                        .remedy = "delete",
                        .nodes = {"n1", "n2"},
                        .row_ids = {7, 9},
                        .definitions = {"a/b"}}));
  EXPECT_EQ(between(written(), "<article", "</article>"),
            "<article id=\"issue-1\" class=\"issue warning\"><h4>1. <span class=\"band warning\">"
            "<span class=\"shape\" aria-hidden=\"true\">▲</span> WARNING</span> "
            "<b><bdi>disk</bdi></b> <span class=\"type\">diagnosis</span></h4>\n"
            "<p class=\"message\" dir=\"auto\">full</p>\n"
            "<dl><div><dt>Remedy</dt>\n<dd dir=\"auto\">delete</dd>\n</div>\n"
            "<div><dt>2 nodes</dt>\n<dd dir=\"auto\"><code class=\"nodes\" dir=\"ltr\">n[1-2]"
            "</code></dd>\n</div>\n"
            "<div><dt>Category</dt>\n<dd dir=\"auto\">storage</dd>\n</div>\n"
            "<div><dt>Definition</dt>\n<dd dir=\"auto\"><bdi>a/b</bdi></dd>\n</div>\n"
            "<div><dt>Database row ids</dt>\n<dd dir=\"auto\">7, 9</dd>\n</div>\n"
            "</dl>\n");
}

TEST_F(PageTest, RowIdsAreForTheLogLevelsThatAskForThem) {
  add_issue(data, 4, make_issue({.id = "a", .row_ids = {7}}));
  EXPECT_THAT(section("issues"), Not(HasSubstr("row ids")));
}

TEST_F(PageTest, HasTheWorstIssuesAndTellsWhereTheOthersAre) {
  add_issues(data, 0, "harmless", 150);
  add_issues(data, 24, "bad", 100);
  const std::string text = written();
  EXPECT_EQ(count(text, "<article "), 200);
  EXPECT_THAT(text, HasSubstr("<bdi>bad100</bdi></b>"));
  EXPECT_THAT(text, HasSubstr("<bdi>harmless100</bdi></b>"));
  EXPECT_THAT(text, Not(HasSubstr("<bdi>harmless101</bdi></b>")));
  EXPECT_THAT(text, HasSubstr("50 more issues are not on this page"));
}

TEST_F(PageTest, IssueThatIsFiledTwiceStandsOnce) {
  const Issue issue = make_issue({.id = "a"});
  add_issue(data, 24, issue);
  add_issue(data, 8, issue);
  EXPECT_EQ(count(written(), "<article "), 1);
}

TEST_F(PageTest, LinksLeadToIssuesOnThePageAlone) {
  const Issue cause = make_issue({.id = "cause"});
  const Issue effect = make_issue({.id = "beyond"});
  relate(cause, effect);
  add_issue(data, 24, cause);
  add_issues(data, 25, "o", 199);
  add_issue(data, 25, effect);
  const std::string text = written();
  EXPECT_THAT(text, HasSubstr("<dt>Based on</dt>\n<dd dir=\"auto\"><bdi>beyond</bdi></dd>"));
  EXPECT_THAT(text, Not(HasSubstr("href=\"#issue-201\"")));
  forget_relations({cause, effect});
}

TEST_F(PageTest, GroupsOfIssuesHaveAHeading) {
  add_issue(data, 24, make_issue({.id = "a"}));
  add_issue(data, 26, make_issue({.id = "b"}));
  add_issue(data, 4, make_issue({.id = "c"}));
  const std::string text = section("issues");
  EXPECT_EQ(count(text, "<h3>"), 2);
  EXPECT_THAT(text, HasSubstr("<h3>CRITICAL, contributing to FAIL</h3>"));
  EXPECT_THAT(text, HasSubstr("<h3>WARNING</h3>"));
}

TEST_F(PageTest, HostileTextsAreTextEverywhere) {
  const std::string hostile = "</style><script>alert(1)</script><!-- \"'&";
  data.fwd_root->roots = {make_definition({.name = hostile, .passed = false})};
  add_issue(data, 24,
            make_issue({.id = hostile,
                        .category = hostile,
                        .message = hostile,
                        .remedy = hostile,
                        .nodes = {hostile},
                        .definitions = {hostile}}));
  facts().inputs = {{.name = hostile}};
  facts().acknowledged = {
      .issues = 1,
      .entries = {{.id = hostile, .nodes = {hostile}, .reason = hostile, .by = hostile}}};
  const std::string text = written();
  EXPECT_EQ(count(text, "<script"), 2);
  EXPECT_EQ(count(text, "</script"), 2);
  EXPECT_THAT(text, Not(HasSubstr("<!--")));
  EXPECT_EQ(count(text, "</style>"), 1);
  EXPECT_GE(count(text, "&lt;script&gt;alert(1)&lt;/script&gt;"), 12);
}

TEST_F(PageTest, TextsWithoutMeasureAreCut) {
  const std::string megabyte(1000000, 'x');
  data.fwd_root->roots = {make_definition({.name = megabyte, .passed = false})};
  add_issue(data, 24,
            make_issue({.id = megabyte,
                        .category = megabyte,
                        .message = megabyte,
                        .remedy = megabyte,
                        .nodes = {megabyte},
                        .definitions = {megabyte}}));
  const std::string text = written();
  EXPECT_LT(text.size(), 200000);
  EXPECT_THAT(text, HasSubstr("All of them are in the list (-e list)."));
}

TEST_F(PageTest, WhatIsAcknowledgedStandsInTheOrderOfItsEndAndBeforeWhatHoldsNoMore) {
  using State = standalone::ReportFacts::Acknowledgement::State;
  constexpr std::time_t NOW = 1763699400;
  constexpr std::time_t DAY = 86400;
  EXPECT_EQ(section("acknowledged"), "");
  facts().acknowledged = {
      .issues = 2,
      .entries = {entry("late", NOW + 8 * DAY, State::ACTIVE),
                  entry("soon", NOW + 3 * DAY, State::ACTIVE),
                  entry("today", NOW + 1, State::ACTIVE), entry("over", 1, State::EXPIRED),
                  entry("vain", NOW - 1, State::UNUSED)}};
  facts().acknowledged->entries[1].nodes = {"n1", "n2"};
  facts().acknowledged->entries[1].by = "me";
  EXPECT_EQ(
      section("acknowledged"),
      "<section id=\"acknowledged\"><h2>Acknowledged: 2 issues</h2>\n"
      "<ul><li><strong class=\"remark\">ends within a day</strong> <b><bdi>today</bdi></b> on "
      "every node until <time datetime=\"2025-11-21T04:30:01Z\">2025-11-21 04:30:01 UTC"
      "</time>: <bdi>r</bdi></li>\n"
      "<li><strong class=\"remark\">ends in 3 days</strong> <b><bdi>soon</bdi></b> on <code "
      "class=\"nodes\" dir=\"ltr\">n[1-2]</code> until <time "
      "datetime=\"2025-11-24T04:30:00Z\">2025-11-24 04:30:00 UTC</time>: <bdi>r</bdi> "
      "(<bdi>me</bdi>)</li>\n"
      "<li><b><bdi>late</bdi></b> on every node until <time "
      "datetime=\"2025-11-29T04:30:00Z\">2025-11-29 04:30:00 UTC</time>: <bdi>r</bdi></li>\n"
      "<li><strong class=\"remark\">covers nothing</strong> <b><bdi>vain</bdi></b> on every "
      "node until <time datetime=\"2025-11-21T04:29:59Z\">2025-11-21 04:29:59 UTC</time>: "
      "<bdi>r</bdi></li>\n"
      "<li><strong class=\"remark\">expired</strong> <b><bdi>over</bdi></b> on every "
      "node until <time datetime=\"1970-01-01T00:00:01Z\">1970-01-01 00:00:01 UTC</time>: "
      "<bdi>r</bdi></li>\n"
      "</ul>\n");
}

TEST_F(PageTest, WhatIsAcknowledgedAndHasEndedSinceTheReportWasBegunSaysSo) {
  using State = standalone::ReportFacts::Acknowledgement::State;
  constexpr std::time_t NOW = 1763699400;
  for (const std::time_t until : {NOW - 1, NOW - 300000}) {
    facts().acknowledged = {.issues = 1, .entries = {entry("over", until, State::ACTIVE)}};
    EXPECT_THAT(section("acknowledged"),
                HasSubstr("<strong class=\"remark\">ended meanwhile</strong> <b><bdi>over</bdi>"));
  }
  facts().acknowledged = {.issues = 1, .entries = {entry("last", NOW, State::ACTIVE)}};
  EXPECT_THAT(section("acknowledged"), HasSubstr("<strong class=\"remark\">ends within a day<"));
}

TEST_F(PageTest, WhatHasExpiredTakesNoPlaceFromWhatHolds) {
  using State = standalone::ReportFacts::Acknowledgement::State;
  facts().acknowledged = {.issues = 1, .entries = {}};
  for (int i = 0; i < 60; ++i) {
    facts().acknowledged->entries.push_back(entry("over", i, State::EXPIRED));
  }
  facts().acknowledged->entries.push_back(entry("holds", 1863699400, State::ACTIVE));
  const std::string text = section("acknowledged");
  EXPECT_THAT(text, HasSubstr("<ul><li><b><bdi>holds</bdi></b>"));
  EXPECT_EQ(count(text, "<bdi>over</bdi>"), 50);
  EXPECT_THAT(text, HasSubstr("<li>and 10 more, expired</li>"));
}

TEST_F(PageTest, AgesAreRemarkedOnWhenClocksDoNotExplainThem) {
  facts().inputs = {{.name = "a", .age = -60},
                    {.name = "b", .age = -61},
                    {.name = "c", .age = 86400},
                    {.name = "d", .age = 86401}};
  const std::string text = written();
  EXPECT_THAT(text, HasSubstr("<bdi>a</bdi> (1 minute in the future); <bdi>b</bdi> <strong "
                              "class=\"remark\">(1 minute in the future)</strong>; <bdi>c</bdi> "
                              "(1 day old); <bdi>d</bdi> <strong class=\"remark\">(1 day old)"));
}

TEST_F(PageTest, SeveralInputsThatAreOlderThanThePageTellWhenTheOldestWasCollected) {
  facts().inputs = {{.name = "a"}, {.name = "b"}};
  EXPECT_THAT(written(), Not(HasSubstr("<dt>Collected</dt>")));
  facts().collected_at = 1763699400 - 60;
  EXPECT_THAT(written(), Not(HasSubstr("<dt>Collected</dt>"))) << "clocks differ by as much";
  facts().collected_at = 1763699400 - 120;
  EXPECT_THAT(written(),
              HasSubstr("<dt>Collected</dt>\n<dd><time datetime=\"2025-11-21T04:28:00Z\">"
                        "2025-11-21 04:28:00 UTC</time> (2 minutes old)</dd>"));
  facts().inputs.pop_back();
  EXPECT_THAT(written(), Not(HasSubstr("<dt>Collected</dt>"))) << "its own age tells it";
}

TEST_F(PageTest, NodesWithAcknowledgedIssuesAreNotTakenForHealthy) {
  facts().nodes_seen = 1;
  facts().examination = {
      .nodes_examined = 3, .not_examined_with_findings = {}, .names = {"n1", "n2", "n3"}};
  facts().acknowledged = {.issues = 1, .nodes = {"n1", "n2"}};
  EXPECT_THAT(written(), HasSubstr("3 examined, 1 with issues, 2 with acknowledged ones"));
}

TEST_F(PageTest, WhatIsAcknowledgedIsLinkedFromTheFirstScreen) {
  EXPECT_THAT(written(), Not(HasSubstr("<dt>Acknowledged</dt>")));
  facts().acknowledged = {.issues = 1,
                          .entries = {entry("a", 1763699400, Acknowledgement::State::ACTIVE)}};
  EXPECT_THAT(written(),
              HasSubstr("<dt>Acknowledged</dt>\n<dd><a href=\"#acknowledged\">1 issue</a></dd>"));
}

TEST_F(PageTest, ShapesOfBandsHaveTheirNameForThoseWhoDoNotSeeThem) {
  data.fwd_root->roots = {make_definition({.name = "a", .passed = false})};
  add_issue(data, 24, make_issue({.id = "i", .definitions = {"a"}}));
  EXPECT_THAT(written(), HasSubstr("<span class=\"own\"><span class=\"band critical\"><span "
                                   "class=\"shape\" aria-hidden=\"true\">◆</span><span "
                                   "class=\"unseen\">CRITICAL </span></span>1</span>"));
}

TEST_F(PageTest, WithoutAnEarlierRunNothingHasChanged) { EXPECT_EQ(section("changes"), ""); }

}  // namespace
}  // namespace vond::test
