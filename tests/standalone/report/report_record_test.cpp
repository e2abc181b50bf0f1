#include "standalone/report/report_record.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "standalone/input/input_error.h"
#include "tests/standalone/support/findings.h"
#include "tests/support/allocations.h"

namespace {

using vond::Fwd;
using vond::FwdHierarchy;
using vond::FwdNode;
using vond::analysis::AnalysisOutput;
using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::DIAGNOSES;
using vond::postprocessor::MISSING_DATA;
using vond::postprocessor::OBSERVATIONS;
using vond::postprocessor::PostprocessorExtensionData;
using vond::postprocessor::Type;
using vond::postprocessor::TypeCode;
using vond::standalone::CollapseBy;
using vond::standalone::Collapser;
using vond::standalone::DefinitionSpec;
using vond::standalone::InputError;
using vond::standalone::RecordOptions;
using vond::standalone::ReportRecord;
using vond::test::FindingParts;
using vond::test::make_finding;

using Findings = std::vector<FindingParts>;
using Strings = std::vector<std::string>;
using Issue = std::shared_ptr<CollapsedAnalysisOutput>;
using Counts = std::map<unsigned, int>;

RecordOptions with_threshold(int fail_threshold) {
  RecordOptions options;
  options.fail_threshold = fail_threshold;
  return options;
}

RecordOptions with_definitions(const std::vector<DefinitionSpec>& definitions) {
  RecordOptions options = with_threshold(75);
  options.definitions = definitions;
  return options;
}

std::unique_ptr<ReportRecord> make_record(const Findings& findings,
                                          const RecordOptions& options = with_threshold(75),
                                          CollapseBy collapse_by = CollapseBy::TEXT) {
  Collapser collapser(collapse_by);
  for (const FindingParts& finding : findings) {
    collapser.add(make_finding(finding));
  }
  return std::make_unique<ReportRecord>(collapser, options);
}

template <typename Map>
Counts counts_of(const Map& map) {
  Counts counts;
  for (const auto& [mask, count] : map) {
    counts[static_cast<unsigned>(mask.to_ulong())] = count;
  }
  return counts;
}

/// One line a mask: "24: id id", in the order of masks.
std::string index_of(const PostprocessorExtensionData& record) {
  std::string text;
  for (const auto& [mask, issues] : *record.issues_by_mask) {
    text += std::to_string(mask.to_ulong()) + ":";
    for (const Issue& issue : issues) {
      text += " " + issue->get_id();
    }
    text += "\n";
  }
  return text;
}

std::vector<Issue> issues_of(const PostprocessorExtensionData& record) {
  std::vector<Issue> all;
  for (const auto& [mask, issues] : *record.issues_by_mask) {
    all.insert(all.end(), issues.begin(), issues.end());
  }
  return all;
}

/// Returns the only issue with that id.
Issue find_issue(const PostprocessorExtensionData& record, const std::string& id) {
  Issue found;
  for (const Issue& issue : issues_of(record)) {
    if (issue->get_id() != id) {
      continue;
    }
    EXPECT_EQ(found, nullptr) << id << " is there twice";
    found = issue;
  }
  EXPECT_NE(found, nullptr) << id << " is not there";
  return found ? found : std::make_shared<CollapsedAnalysisOutput>();
}

/// Returns what is told about related issues of a type, as "id id", by address as sets order them.
std::string related(const Issue& issue, Type type) {
  std::string text;
  for (const Issue& other : issue->related_issues[type]) {
    text += (text.empty() ? "" : " ") + other->get_id();
  }
  return text;
}

const Fwd* find_below(const FwdNode& node, const std::string& name) {
  if (node.fwd->name == name) {
    return node.fwd.get();
  }
  for (const auto& group : node.child_groups) {
    for (const auto& child : group.children) {
      if (const Fwd* const found = find_below(*child, name)) {
        return found;
      }
    }
  }
  return nullptr;
}

Fwd find_definition(const PostprocessorExtensionData& record, const std::string& name) {
  for (const auto& root : record.fwd_root->roots) {
    if (const Fwd* const found = find_below(*root, name)) {
      return *found;
    }
  }
  ADD_FAILURE() << name << " is not there";
  return {};
}

/// One issue of every type in every band. "D100" is a diagnosis of severity 100.
Findings one_of_each() {
  return {{.type = DIAGNOSES, .id = "D100", .severity = 100},
          {.type = DIAGNOSES, .id = "D74", .severity = 74},
          {.type = DIAGNOSES, .id = "D24", .severity = 24},
          {.type = OBSERVATIONS, .id = "O75", .severity = 75},
          {.type = OBSERVATIONS, .id = "O25", .severity = 25},
          {.type = OBSERVATIONS, .id = "O0", .severity = 0},
          {.type = MISSING_DATA, .id = "M80", .severity = 80},
          {.type = MISSING_DATA, .id = "M50", .severity = 50},
          {.type = MISSING_DATA, .id = "M10", .severity = 10}};
}

// ---- No findings -------------------------------------------------------------------------------

TEST(Record, OfNoFindingsIsCompleteAndPasses) {
  const auto record = make_record({});
  const PostprocessorExtensionData& data = record->data();
  EXPECT_FALSE(record->has_failed());
  EXPECT_EQ(counts_of(data.counts_by_mask), (Counts{{0, 0}, {3, 0}, {16, 0}, {19, 0}}));
  ASSERT_NE(data.issues_by_mask, nullptr);
  EXPECT_TRUE(data.issues_by_mask->empty());
  ASSERT_NE(data.fwd_root, nullptr);
  EXPECT_TRUE(data.fwd_root->roots.empty());
  EXPECT_TRUE(record->unknown_definitions().empty());
  EXPECT_TRUE(record->unknown_based_on().empty());
}

TEST(Record, OfNoFindingsHasItsDefinitionsAndTheyPass) {
  const auto record = make_record({}, with_definitions({{"a", false, {}}, {"b", true, {}}}));
  ASSERT_EQ(record->data().fwd_root->roots.size(), 2U);
  EXPECT_TRUE(find_definition(record->data(), "a").passed);
  EXPECT_TRUE(find_definition(record->data(), "b").skipped);
}

TEST(Record, AnEmptyListOfDefinitionsIsOne) {
  const auto record = make_record({{.definitions = {"a/b"}}}, with_definitions({}));
  ASSERT_EQ(record->data().fwd_root->roots.size(), 1U);
  EXPECT_EQ(record->data().fwd_root->roots[0]->fwd->name, "a/b");
  EXPECT_EQ(record->unknown_definitions(), Strings{"a/b"});
}

TEST(Record, TakesItsSettingsFromTheOptions) {
  RecordOptions options;
  options.fail_threshold = 25;
  options.line_width = 120;
  options.log_level = "debug";
  const auto record = make_record({}, options);
  EXPECT_EQ(record->data().fail_threshold, 25);
  EXPECT_EQ(record->data().line_width, 120);
  EXPECT_EQ(record->data().log_level, "debug");
}

// ---- Issues ------------------------------------------------------------------------------------

TEST(Record, AnIssueSaysWhatItsFindingsSay) {
  const auto record = make_record({{.type = DIAGNOSES,
                                    .id = "disk#sda",
                                    .severity = 80,
                                    .category = "STORAGE",
                                    .message = "Disk is full.",
                                    .remedy = "Empty it.",
                                    .nodes = {"n2", "n1"},
                                    .row_ids = {4, 2},
                                    .definitions = {"s/disk", "s"}},
                                   {.type = DIAGNOSES,
                                    .id = "disk#sda",
                                    .severity = 80,
                                    .category = "STORAGE",
                                    .message = "Disk is full.",
                                    .remedy = "Empty it.",
                                    .nodes = {"n3", "n1"},
                                    .row_ids = {3},
                                    .definitions = {"s", "s/disk"}}});
  const Issue issue = find_issue(record->data(), "disk#sda");
  ASSERT_EQ(issue->outputs.size(), 1U);
  const AnalysisOutput& output = *issue->outputs[0];
  EXPECT_EQ(output.identifier, "disk#sda");
  EXPECT_EQ(output.category, "STORAGE");
  EXPECT_EQ(output.message, "Disk is full.");
  EXPECT_EQ(output.remedy, "Empty it.");
  EXPECT_EQ(output.node_names, (Strings{"n2", "n1", "n3", "n1"}));
  EXPECT_EQ(output.row_ids, (std::vector<int>{2, 3, 4}));
  EXPECT_EQ(issue->get_row_id(), (std::vector<int>{2, 3, 4}));
  EXPECT_EQ(issue->fwd_names, (std::set<std::string>{"s", "s/disk"}));
  EXPECT_TRUE(issue->related_issues.empty());
}

TEST(Record, ByPatternIssuesGiveBackWhatTheirFindingsSaid) {
  Collapser collapser(CollapseBy::PATTERN);
  collapser.add(make_finding({.id = "b", .message = "at 1", .nodes = {"n1"}, .row_ids = {7}}));
  collapser.add(make_finding({.id = "b", .message = "at 2", .nodes = {"n2"}}));
  collapser.add(make_finding({.id = "a", .severity = 90, .message = "down", .nodes = {"n2"}}));
  const ReportRecord record(collapser, with_threshold(75));
  const auto name = [&](auto node) -> std::string_view { return collapser.node_names()[node]; };
  ASSERT_EQ(record.findings().size(), 2U);
  const auto of_first = record.findings()[0].originals(name);
  ASSERT_EQ(of_first.size(), 1U);
  EXPECT_EQ(of_first[0].texts, (Strings{"down", ""}));
  const auto of_second = record.findings()[1].originals(name);
  ASSERT_EQ(of_second.size(), 2U);
  EXPECT_EQ(of_second[0].texts, (Strings{"at 1", ""}));
  EXPECT_EQ(of_second[0].row_ids, std::vector<int>{7});
  EXPECT_EQ(of_second[1].texts, (Strings{"at 2", ""}));
  EXPECT_EQ(find_issue(record.data(), "b")->outputs[0]->message, "at 1 [n1] or 2 [n2]");
}

TEST(Record, AnIssueCollapsedByIdHasAllItsOutputs) {
  const auto record = make_record({{.message = "b", .nodes = {"n1"}, .definitions = {"x"}},
                                   {.message = "a", .nodes = {"n2"}, .definitions = {"y"}}},
                                  with_threshold(75), CollapseBy::ID);
  const Issue issue = find_issue(record->data(), "id");
  ASSERT_EQ(issue->outputs.size(), 2U);
  EXPECT_EQ(issue->outputs[0]->identifier, "id");
  EXPECT_EQ(issue->outputs[0]->message, "a (and 1 other message)");
  EXPECT_EQ(issue->outputs[0]->node_names, Strings{"n2"});
  EXPECT_EQ(issue->outputs[1]->identifier, "id");
  EXPECT_EQ(issue->outputs[1]->message, "b");
  EXPECT_EQ(issue->outputs[1]->node_names, Strings{"n1"});
  EXPECT_EQ(issue->fwd_names, (std::set<std::string>{"x", "y"}));
  EXPECT_EQ(counts_of(record->data().counts_by_mask), (Counts{{0, 0}, {3, 1}, {16, 0}, {19, 0}}));
}

// ---- Masks -------------------------------------------------------------------------------------

TEST(IssueIndex, WithThreshold75CriticalIssuesFail) {
  const auto record = make_record(one_of_each(), with_threshold(75));
  EXPECT_EQ(index_of(record->data()),
            "0: D24\n"
            "1: O0\n"
            "2: M10\n"
            "4: D74\n"
            "5: O25\n"
            "6: M50\n"
            "24: D100\n"
            "25: O75\n"
            "26: M80\n");
  EXPECT_EQ(counts_of(record->data().counts_by_mask), (Counts{{0, 2}, {3, 4}, {16, 1}, {19, 2}}));
  EXPECT_TRUE(record->has_failed());
}

TEST(IssueIndex, WithThreshold25WarningsFailToo) {
  const auto record = make_record(one_of_each(), with_threshold(25));
  EXPECT_EQ(index_of(record->data()),
            "0: D24\n"
            "1: O0\n"
            "2: M10\n"
            "20: D74\n"
            "21: O25\n"
            "22: M50\n"
            "24: D100\n"
            "25: O75\n"
            "26: M80\n");
  EXPECT_EQ(counts_of(record->data().counts_by_mask), (Counts{{0, 1}, {3, 2}, {16, 2}, {19, 4}}));
}

TEST(IssueIndex, WithThreshold0EverythingFails) {
  const auto record = make_record(one_of_each(), with_threshold(0));
  EXPECT_EQ(index_of(record->data()),
            "16: D24\n"
            "17: O0\n"
            "18: M10\n"
            "20: D74\n"
            "21: O25\n"
            "22: M50\n"
            "24: D100\n"
            "25: O75\n"
            "26: M80\n");
  EXPECT_EQ(counts_of(record->data().counts_by_mask), (Counts{{0, 0}, {3, 0}, {16, 3}, {19, 6}}));
}

TEST(IssueIndex, WithThreshold100TheWholeCriticalBandFails) {
  // The band decides, by its upper bound, not the issue's own severity.
  const auto record = make_record(one_of_each(), with_threshold(100));
  EXPECT_EQ(index_of(record->data()), index_of(make_record(one_of_each())->data()));
  EXPECT_EQ(counts_of(record->data().counts_by_mask), (Counts{{0, 2}, {3, 4}, {16, 1}, {19, 2}}));
}

TEST(IssueIndex, ABandFailsWhenItsUpperBoundIsTheThreshold) {
  const Findings lowest = {{.severity = 0}};
  EXPECT_TRUE(make_record(lowest, with_threshold(24))->has_failed());
  EXPECT_FALSE(make_record(lowest, with_threshold(25))->has_failed());
  const Findings warning = {{.severity = 25}};
  EXPECT_TRUE(make_record(warning, with_threshold(74))->has_failed());
  EXPECT_FALSE(make_record(warning, with_threshold(75))->has_failed());
}

TEST(IssueIndex, EntriesAreInTheOrderOfTheReport) {
  const auto record = make_record({{.id = "e", .severity = 60},
                                   {.id = "d", .severity = 60},
                                   {.id = "c", .severity = 60, .nodes = {"n1"}},
                                   {.id = "b", .severity = 60, .nodes = {"n1", "n2"}},
                                   {.id = "z", .severity = 74},
                                   {.id = "a", .severity = 25, .nodes = {"n1", "n2", "n3"}},
                                   {.type = DIAGNOSES, .id = "y", .severity = 60}});
  EXPECT_EQ(index_of(record->data()),
            "4: y\n"
            "5: z b c d e a\n");
}

TEST(IssueIndex, HasNoEntryForWhatIsNotThere) {
  const auto record = make_record({{.type = DIAGNOSES, .id = "d", .severity = 80}});
  EXPECT_EQ(index_of(record->data()), "24: d\n");
  EXPECT_EQ(counts_of(record->data().counts_by_mask), (Counts{{0, 0}, {3, 0}, {16, 1}, {19, 0}}));
}

TEST(IssueIndex, CountsIssuesNotFindings) {
  const auto record = make_record({{.nodes = {"n1"}}, {.nodes = {"n2"}}, {.message = "other"}});
  EXPECT_EQ(counts_of(record->data().counts_by_mask), (Counts{{0, 0}, {3, 2}, {16, 0}, {19, 0}}));
}

// ---- Verdict -----------------------------------------------------------------------------------

TEST(Verdict, EveryTypeMayFail) {
  for (const TypeCode type : {DIAGNOSES, OBSERVATIONS, MISSING_DATA}) {
    EXPECT_TRUE(make_record({{.type = type, .severity = 75}})->has_failed()) << int{type};
    EXPECT_FALSE(make_record({{.type = type, .severity = 74}})->has_failed()) << int{type};
  }
}

TEST(Verdict, AnIssueWithoutDefinitionsFailsToo) {
  const auto record = make_record({{.severity = 100}}, with_definitions({{"a", false, {}}}));
  EXPECT_TRUE(record->has_failed());
  EXPECT_TRUE(find_definition(record->data(), "a").passed);
}

TEST(Verdict, AnIssueOfASkippedDefinitionFailsToo) {
  const auto record = make_record({{.severity = 100, .definitions = {"child"}}},
                                  with_definitions({{"root", false, {{{"child", true, {}}}}}}));
  EXPECT_TRUE(record->has_failed());
  EXPECT_TRUE(find_definition(record->data(), "child").skipped);
  EXPECT_TRUE(find_definition(record->data(), "root").passed);
}

// ---- Definitions -------------------------------------------------------------------------------

TEST(Definitions, CountTheIssuesThatNameThem) {
  Findings findings = one_of_each();
  for (FindingParts& finding : findings) {
    finding.definitions = {"a"};
  }
  const auto record = make_record(findings, with_threshold(75));
  EXPECT_EQ(counts_of(find_definition(record->data(), "a").issue_counts),
            (Counts{{0, 1}, {3, 2}, {4, 1}, {7, 2}, {24, 1}, {27, 2}}));
}

TEST(Definitions, CountUnderTheFailBitThatTheThresholdGives) {
  Findings findings = one_of_each();
  for (FindingParts& finding : findings) {
    finding.definitions = {"a"};
  }
  const auto record = make_record(findings, with_threshold(0));
  EXPECT_EQ(counts_of(find_definition(record->data(), "a").issue_counts),
            (Counts{{16, 1}, {19, 2}, {20, 1}, {23, 2}, {24, 1}, {27, 2}}));
}

TEST(Definitions, CountAnIssueUnderEveryDefinitionThatItNamesOnce) {
  const auto record =
      make_record({{.id = "x", .definitions = {"a", "b", "a"}}, {.id = "y", .definitions = {"b"}}});
  EXPECT_EQ(counts_of(find_definition(record->data(), "a").issue_counts), (Counts{{7, 1}}));
  EXPECT_EQ(counts_of(find_definition(record->data(), "b").issue_counts), (Counts{{7, 2}}));
}

TEST(Definitions, DoNotCountTheIssuesOfTheirChildrenOrParents) {
  const auto record = make_record({{.definitions = {"a/b"}}});
  EXPECT_TRUE(find_definition(record->data(), "a").issue_counts.empty());
  EXPECT_EQ(counts_of(find_definition(record->data(), "a/b").issue_counts), (Counts{{7, 1}}));
}

TEST(Definitions, ThatNoIssueNamesCountNothing) {
  const auto record =
      make_record({{.definitions = {"a"}}}, with_definitions({{"a", false, {}}, {"b", false, {}}}));
  EXPECT_TRUE(find_definition(record->data(), "b").issue_counts.empty());
}

TEST(Definitions, FailWithWhatContributesToFail) {
  const Findings findings = {{.id = "x", .severity = 60, .definitions = {"root/a"}},
                             {.id = "y", .severity = 20, .definitions = {"root/b"}}};
  const auto strict = make_record(findings, with_threshold(74));
  EXPECT_FALSE(find_definition(strict->data(), "root/a").passed);
  EXPECT_TRUE(find_definition(strict->data(), "root/b").passed);
  EXPECT_FALSE(find_definition(strict->data(), "root").passed);
  const auto lenient = make_record(findings, with_threshold(75));
  EXPECT_TRUE(find_definition(lenient->data(), "root/a").passed);
  EXPECT_TRUE(find_definition(lenient->data(), "root").passed);
}

TEST(Definitions, ThatTheFileLacksAreToldAndBecomeRoots) {
  const auto record = make_record({{.severity = 80, .definitions = {"z", "a", "b/c"}}},
                                  with_definitions({{"b", false, {}}, {"a", false, {}}}));
  EXPECT_EQ(record->unknown_definitions(), (Strings{"b/c", "z"}));
  Strings roots;
  for (const auto& root : record->data().fwd_root->roots) {
    roots.push_back(root->fwd->name);
  }
  EXPECT_EQ(roots, (Strings{"b", "a", "b/c", "z"}));
  EXPECT_FALSE(find_definition(record->data(), "b/c").passed);
  EXPECT_TRUE(find_definition(record->data(), "b").passed);
}

TEST(Definitions, AreNeverUnknownWithoutAFile) {
  const auto record = make_record({{.definitions = {"z", "a/b"}}});
  EXPECT_TRUE(record->unknown_definitions().empty());
}

// ---- Related issues ----------------------------------------------------------------------------

TEST(RelatedIssues, ADiagnosisAndWhatItIsBasedOnKnowEachOther) {
  const auto record = make_record({{.type = DIAGNOSES, .id = "d", .based_on = {"o", "m"}},
                                   {.id = "o"},
                                   {.type = MISSING_DATA, .id = "m"},
                                   {.id = "stranger"}});
  const Issue diagnosis = find_issue(record->data(), "d");
  EXPECT_EQ(related(diagnosis, Type::OBSERVATION), "m o");
  EXPECT_EQ(related(diagnosis, Type::DIAGNOSIS), "");
  for (const std::string id : {"o", "m"}) {
    EXPECT_EQ(related(find_issue(record->data(), id), Type::DIAGNOSIS), "d");
    EXPECT_EQ(related(find_issue(record->data(), id), Type::OBSERVATION), "");
  }
  EXPECT_EQ(related(find_issue(record->data(), "stranger"), Type::DIAGNOSIS), "");
  EXPECT_TRUE(record->unknown_based_on().empty());
}

TEST(RelatedIssues, AreTheVeryIssuesOfTheIndex) {
  const auto record = make_record({{.type = DIAGNOSES, .id = "d", .based_on = {"o"}}, {.id = "o"}});
  const Issue diagnosis = find_issue(record->data(), "d");
  const Issue observation = find_issue(record->data(), "o");
  EXPECT_EQ(*diagnosis->related_issues[Type::OBSERVATION].begin(), observation);
  EXPECT_EQ(*observation->related_issues[Type::DIAGNOSIS].begin(), diagnosis);
  EXPECT_EQ(diagnosis->related_issues[Type::OBSERVATION].count(observation), 1U);
}

TEST(RelatedIssues, AnIdStandsForAllIssuesThatHaveIt) {
  const auto record = make_record({{.type = DIAGNOSES, .id = "d", .based_on = {"o"}},
                                   {.id = "o", .severity = 90, .message = "1"},
                                   {.id = "o", .severity = 50, .message = "2"},
                                   {.type = MISSING_DATA, .id = "o", .severity = 10}});
  EXPECT_EQ(related(find_issue(record->data(), "d"), Type::OBSERVATION), "o o o");
  for (const Issue& issue : issues_of(record->data())) {
    if (issue->get_id() != "o") {
      continue;
    }
    EXPECT_EQ(related(issue, Type::DIAGNOSIS), "d");
  }
}

TEST(RelatedIssues, AnIdWithAQualifierIsAnotherId) {
  const auto record =
      make_record({{.type = DIAGNOSES, .id = "d", .based_on = {"o"}}, {.id = "o#1"}});
  EXPECT_EQ(related(find_issue(record->data(), "d"), Type::OBSERVATION), "");
  EXPECT_EQ(record->unknown_based_on(), Strings{"o"});
}

TEST(RelatedIssues, OneObservationMayHaveManyDiagnosesInTheOrderOfTheReport) {
  Findings findings = {{.id = "o"}};
  for (const std::string_view id : {"c", "a", "d", "b"}) {
    findings.push_back({.type = DIAGNOSES, .id = id, .based_on = {"o"}});
  }
  findings.push_back({.type = DIAGNOSES, .id = "z", .severity = 100, .based_on = {"o"}});
  findings.push_back({.type = DIAGNOSES, .id = "y", .nodes = {"n1"}, .based_on = {"o"}});
  const auto record = make_record(findings);
  EXPECT_EQ(related(find_issue(record->data(), "o"), Type::DIAGNOSIS), "z y a b c d");
}

TEST(RelatedIssues, NeverADiagnosisOfADiagnosis) {
  const auto record = make_record(
      {{.type = DIAGNOSES, .id = "d", .based_on = {"e", "d"}}, {.type = DIAGNOSES, .id = "e"}});
  for (const Issue& issue : issues_of(record->data())) {
    EXPECT_EQ(related(issue, Type::OBSERVATION), "");
    EXPECT_EQ(related(issue, Type::DIAGNOSIS), "");
  }
  EXPECT_EQ(record->unknown_based_on(), (Strings{"d", "e"}));
}

TEST(RelatedIssues, ADiagnosisMayShareItsIdWithWhatItIsBasedOn) {
  const auto record =
      make_record({{.type = DIAGNOSES, .id = "x", .severity = 80, .based_on = {"x"}},
                   {.id = "x", .severity = 80}});
  const auto& index = *record->data().issues_by_mask;
  const Issue diagnosis = index.at(24).at(0);
  const Issue observation = index.at(25).at(0);
  EXPECT_EQ(diagnosis->related_issues[Type::OBSERVATION], std::set<Issue>{observation});
  EXPECT_EQ(observation->related_issues[Type::DIAGNOSIS], std::set<Issue>{diagnosis});
  EXPECT_TRUE(diagnosis->related_issues[Type::DIAGNOSIS].empty());
  EXPECT_TRUE(observation->related_issues[Type::OBSERVATION].empty());
}

TEST(RelatedIssues, AnObservationIsBasedOnNothing) {
  const auto record = make_record({{.id = "a", .based_on = {"b"}}, {.id = "b"}});
  for (const std::string id : {"a", "b"}) {
    EXPECT_EQ(related(find_issue(record->data(), id), Type::OBSERVATION), "");
    EXPECT_EQ(related(find_issue(record->data(), id), Type::DIAGNOSIS), "");
  }
}

TEST(RelatedIssues, IdsThatNobodyReportedAreToldOnceInByteOrder) {
  const auto record = make_record({{.type = DIAGNOSES, .id = "d", .based_on = {"z", "a", "o"}},
                                   {.type = DIAGNOSES, .id = "e", .based_on = {"z", "B"}},
                                   {.id = "o"}});
  EXPECT_EQ(record->unknown_based_on(), (Strings{"B", "a", "z"}));
  EXPECT_EQ(related(find_issue(record->data(), "d"), Type::OBSERVATION), "o");
}

TEST(RelatedIssues, OfDiagnosesCollapsedByIdAreThoseOfAll) {
  const auto record = make_record({{.type = DIAGNOSES, .id = "d", .based_on = {"p"}},
                                   {.type = DIAGNOSES, .id = "d", .based_on = {"o"}},
                                   {.id = "o"},
                                   {.id = "p"}},
                                  with_threshold(75), CollapseBy::ID);
  EXPECT_EQ(related(find_issue(record->data(), "d"), Type::OBSERVATION), "o p");
}

TEST(Record, AddressesOfIssuesAreInTheOrderOfTheReport) {
  Findings findings;
  Strings ids;
  for (int number = 100; number < 200; ++number) {
    ids.push_back("i" + std::to_string(number));
  }
  for (auto id = ids.rbegin(); id != ids.rend(); ++id) {
    findings.push_back({.id = *id});
  }
  const auto record = make_record(findings);
  const auto& issues = record->data().issues_by_mask->at(5);
  ASSERT_EQ(issues.size(), 100U);
  EXPECT_EQ(issues[0]->get_id(), "i100");
  const std::set<Issue> by_address(issues.begin(), issues.end());
  EXPECT_EQ(std::vector<Issue>(by_address.begin(), by_address.end()), issues);
}

// ---- Life --------------------------------------------------------------------------------------

/// Findings whose issues refer to each other.
Findings related_findings() {
  return {{.type = DIAGNOSES,
           .id = "d",
           .severity = 80,
           .nodes = {"n1"},
           .definitions = {"a/b"},
           .based_on = {"o", "p"}},
          {.type = DIAGNOSES, .id = "e", .based_on = {"o"}},
          {.id = "o", .nodes = {"n1"}, .definitions = {"a/c"}},
          {.type = MISSING_DATA, .id = "p"}};
}

/// Whatever a record shares with its copies.
struct Watched {
  explicit Watched(const PostprocessorExtensionData& record) {
    for (const Issue& issue : issues_of(record)) {
      issues.push_back(issue);
      outputs.insert(outputs.end(), issue->outputs.begin(), issue->outputs.end());
    }
    hierarchy = record.fwd_root;
    definition = record.fwd_root->roots.at(0)->fwd;
    index = record.issues_by_mask;
  }

  std::size_t alive() const {
    std::size_t count = 0;
    for (const auto& issue : issues) {
      count += issue.expired() ? 0 : 1;
    }
    for (const auto& output : outputs) {
      count += output.expired() ? 0 : 1;
    }
    return count + (hierarchy.expired() ? 0 : 1) + (definition.expired() ? 0 : 1) +
           (index.expired() ? 0 : 1);
  }

  std::vector<std::weak_ptr<CollapsedAnalysisOutput>> issues;
  std::vector<std::weak_ptr<AnalysisOutput>> outputs;
  std::weak_ptr<FwdHierarchy> hierarchy;
  std::weak_ptr<Fwd> definition;
  std::weak_ptr<void> index;
};

TEST(Record, NothingOutlivesTheRecord) {
  auto record = make_record(related_findings());
  const Watched watched(record->data());
  ASSERT_EQ(watched.issues.size(), 4U);
  EXPECT_EQ(watched.alive(), 11U);
  record.reset();
  EXPECT_EQ(watched.alive(), 0U);
}

TEST(Record, NothingOutlivesTheRecordAndTheCopiesOfItsData) {
  auto record = make_record(related_findings());
  const Watched watched(record->data());
  std::optional<PostprocessorExtensionData> copy = record->data();
  record.reset();
  EXPECT_EQ(watched.alive(), 11U);
  copy.reset();
  EXPECT_EQ(watched.alive(), 0U);
}

TEST(Record, NothingOutlivesTheRecordWhenACopyGoesFirst) {
  auto record = make_record(related_findings());
  const Watched watched(record->data());
  { const PostprocessorExtensionData copy = record->data(); }
  EXPECT_EQ(watched.alive(), 11U);
  record.reset();
  EXPECT_EQ(watched.alive(), 0U);
}

TEST(Record, OneIssueThatSomebodyHoldsOutlivesEverythingElse) {
  auto record = make_record(related_findings());
  Issue held = find_issue(record->data(), "o");
  const Watched watched(record->data());
  record.reset();
  EXPECT_EQ(held->get_id(), "o");
  EXPECT_EQ(held->outputs[0]->node_names, Strings{"n1"});
  held.reset();
  EXPECT_EQ(watched.alive(), 0U);
}

TEST(Record, ACopyThatOutlivesTheRecordStaysReadable) {
  auto record = make_record(related_findings());
  const PostprocessorExtensionData copy = record->data();
  record.reset();
  EXPECT_EQ(index_of(copy),
            "4: e\n"
            "5: o\n"
            "6: p\n"
            "24: d\n");
  EXPECT_EQ(counts_of(copy.counts_by_mask), (Counts{{0, 1}, {3, 2}, {16, 1}, {19, 0}}));
  EXPECT_EQ(find_issue(copy, "d")->outputs.at(0)->node_names, Strings{"n1"});
  EXPECT_FALSE(find_definition(copy, "a").passed);
  EXPECT_EQ(find_definition(copy, "a/b").node->fwd->name, "a/b");
  // What issues are related to is not among what a copy keeps: it would keep them for ever.
  EXPECT_EQ(related(find_issue(copy, "d"), Type::OBSERVATION), "");
}

TEST(Record, NothingOutlivesARecordThatCannotBeMade) {
  std::string deep = "d";
  for (int level = 2; level <= 257; ++level) {
    deep += "/d";
  }
  Findings findings = related_findings();
  findings.push_back({.id = "deep", .definitions = {deep}});
  const std::size_t allocations = vond::test::live_allocations();
  try {
    make_record(findings);
    FAIL() << "no error";
  } catch (const InputError&) {
  }
  EXPECT_EQ(vond::test::live_allocations(), allocations);
}

TEST(Record, TakesTheIssuesOutOfTheCollapser) {
  Collapser collapser;
  collapser.add(make_finding({.id = "a"}));
  ReportRecord first(collapser, with_threshold(75));
  ReportRecord second(collapser, with_threshold(75));
  EXPECT_EQ(index_of(first.data()), "5: a\n");
  EXPECT_EQ(index_of(second.data()), "");
}

}  // namespace
