// Allocations that fail inside the functions of the tree that report exceptions.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fwd_output.h"
#include "tests/extensions/vond_output_log/fake_host_test.h"
#include "tests/support/allocations.h"
#include "vond/log/error_log.h"
#include "vond_output_log.h"

namespace vond::test {
namespace {

using vond_output_log::FwdOutputFunctions;

/// Longer than any string without memory of its own.
const std::string LONG(40, 'x');

/// More than everything else in these tests needs at once.
constexpr std::size_t LARGE = 500000;

class AllocationFailureTest : public FakeHostTest {
 protected:
  /// Lets the n-th allocation of `call` fail. Returns the result and whether there was one.
  static std::pair<int, bool> call_with_failure(const std::function<int()>& call, std::size_t n) {
    const FailingAllocation failing(n);
    const int result = call();
    return {result, failing.happened()};
  }

  /// Calls `call` again and again, letting its first, second … allocation fail, until it asks for
  /// no more; every failure must be reported and make the result 1. Returns the number of
  /// failures.
  static int fail_each_allocation(const std::function<int()>& call) {
    for (int n = 1;; ++n) {
      const CapturedStandardError report;
      const auto [result, failed] = call_with_failure(call, static_cast<std::size_t>(n));
      if (!failed) {
        EXPECT_EQ(result, 0);
        EXPECT_EQ(report.text(), "");
        return n - 1;
      }
      EXPECT_EQ(result, 1) << "allocation " << n;
      EXPECT_EQ(report.text(), "std::bad_alloc\n") << "allocation " << n;
    }
  }

  FwdOutputFunctions tree;
  std::string text;
};

TEST_F(AllocationFailureTest, OfAHeaderIsReported) {
  const Issue issue = make_issue({.id = LONG, .nodes = {"n1", LONG}});
  const int failures =
      fail_each_allocation([&] { return tree.format_fwd_header(text, 1, LONG, " ", issue); });
  EXPECT_GT(failures, 0);
  EXPECT_EQ(text, LONG + "1.  " + LONG + " (appears on 2 nodes)");
}

TEST_F(AllocationFailureTest, OfASegmentIsReported) {
  const std::string spacer(23, ' ');
  const int failures = fail_each_allocation(
      [&] { return tree.format_fwd_segment(text, "   ", spacer, "Message:", LONG, 0); });
  EXPECT_GT(failures, 0);
  EXPECT_EQ(text, "   Message:               " + LONG);
}

TEST_F(AllocationFailureTest, OfACountLineIsReported) {
  const int failures = fail_each_allocation([&] {
    // The name without memory of its own, so that the call alone allocates.
    text = "CRITICAL";
    return tree.format_fwd_issue_num(text, LONG, "     ", 3, 1);
  });
  EXPECT_GT(failures, 0);
  EXPECT_EQ(text, LONG + "4 CRITICAL     (3 diagnoses     1 observation)\n");
}

TEST_F(AllocationFailureTest, OfTheSelectionIsReported) {
  Data data = make_record();
  for (const unsigned mask : {24U, 25U, 26U}) {
    (*data.issues_by_mask)[mask].assign(3, make_issue({.id = "id", .definitions = {"name"}}));
  }
  const Node definition = make_definition({.name = "name"});
  std::vector<Issue> diagnoses;
  std::vector<Issue> observations;
  const std::string critical = "critical";
  const int failures = fail_each_allocation([&] {
    diagnoses = {};
    observations = {};
    return tree.get_details_by_severity(data, diagnoses, observations, critical, *definition->fwd);
  });
  EXPECT_GT(failures, 3);
  EXPECT_EQ(diagnoses.size(), 3U);
  EXPECT_EQ(observations.size(), 6U);
}

TEST_F(AllocationFailureTest, OfTheSelectionLeavesTheListsAsFarAsTheyWereFilled) {
  Data data = make_record();
  (*data.issues_by_mask)[24] = {make_issue({.id = "id", .definitions = {"name"}})};
  (*data.issues_by_mask)[25].assign(LARGE, make_issue({.id = "id", .definitions = {"name"}}));
  std::vector<Issue> diagnoses;
  std::vector<Issue> observations = {nullptr};
  const FailingLargeAllocations failing(LARGE);
  EXPECT_EQ(tree.get_details_by_severity(data, diagnoses, observations, "critical",
                                         *make_definition({.name = "name"})->fwd),
            1);
  EXPECT_EQ(diagnoses.size(), 1U);
  EXPECT_EQ(observations.size(), 0U);
}

TEST_F(AllocationFailureTest, IsReportedAsAnErrorByEveryOperation) {
  Data data = make_record();
  const Issue issue = make_issue({.id = LONG, .definitions = {"name"}});
  add_issue(data, 24, issue);
  const Node definition = make_definition({.name = "name"});
  const std::string critical = "critical";
  const std::string spacer(23, ' ');
  std::vector<Issue> list;
  const std::map<std::string, std::function<int()>> operations = {
      {"format_fwd_issue_num",
       [&] { return tree.format_fwd_issue_num(text, LONG, "     ", 3, 1); }},
      {"format_fwd_header", [&] { return tree.format_fwd_header(text, 1, LONG, " ", issue); }},
      {"format_fwd_segment",
       [&] { return tree.format_fwd_segment(text, LONG, spacer, "Message:", LONG, 0); }},
      {"get_details_by_severity",
       [&] { return tree.get_details_by_severity(data, list, list, critical, *definition->fwd); }}};
  for (const auto& [name, operation] : operations) {
    // The error priority is 3: at level 2 nothing is reported.
    for (const int level : {2, 3}) {
      log::LOG_LEVEL = level;
      text = "CRITICAL";
      text.shrink_to_fit();
      const CapturedStandardError report;
      EXPECT_EQ(call_with_failure(operation, 1), std::make_pair(1, true)) << name;
      EXPECT_EQ(report.text(), level == 3 ? "std::bad_alloc\n" : "") << name;
    }
  }
}

TEST_F(AllocationFailureTest, OfAHeaderEndsTheTreeBehindTheLinesThatAreWritten) {
  Data data = make_record();
  (*data.issues_by_mask)[24] = {
      make_issue({.id = "A", .definitions = {"root"}}),
      make_issue({.id = std::string(2 * LARGE, 'x'), .definitions = {"root"}}),
      make_issue({.id = "C", .definitions = {"root"}})};
  data.fwd_root->roots = {make_definition({.name = "root"}), make_definition({.name = "other"})};
  const FailingLargeAllocations failing(LARGE);
  EXPECT_EQ(tree.print_full_tree(data), 1);
  EXPECT_EQ(standard_error.text(), "std::bad_alloc\n");
  EXPECT_EQ(output.text(),
            "Issues (repeated from above) ordered in the framework definition hierarchy\n"
            "\n"
            "short root: PASS\n"
            "   CRITICAL:\n"
            "   Diagnoses\n"
            "   1. A (appears on 0 node)\n"
            "\n"
            "      Nodes:                 []\n");
}

TEST_F(AllocationFailureTest, OfTheSelectionEndsTheReportWithoutItsEndBlock) {
  Data data = make_record();
  // The sections' counts stay 0, so that the tree alone looks at the issues.
  (*data.issues_by_mask)[24].assign(LARGE, make_issue({.id = "id", .definitions = {"root"}}));
  data.fwd_root->roots = {make_definition({.name = "root", .counts = {{24, 1}}})};
  const FailingLargeAllocations failing(LARGE);
  vond_output_log::VondOutputLog extension(data);
  EXPECT_EQ(extension.run(), 1);
  EXPECT_EQ(standard_error.text(), "std::bad_alloc\n");
  const std::string tree_text =
      "short root: PASS\n"
      "   1 CRITICAL     (1 diagnosis     0 observation)\n"
      "   \n";
  const std::string written = output.text();
  ASSERT_GT(written.size(), tree_text.size());
  EXPECT_EQ(written.substr(written.size() - tree_text.size()), tree_text);
}

TEST_F(AllocationFailureTest, OfACountLineEndsTheTreeBehindTheDefinitionsLine) {
  Data data = make_record();
  data.fwd_root->roots = {make_definition({.name = "root", .counts = {{24, 3}, {27, 1}}}),
                          make_definition({.name = "other"})};
  // Behind the band's name, which is short, the count line is the first that needs memory.
  std::unique_ptr<FailingAllocation> failing;
  host().on_call = [&failing](const std::string& operation) {
    if (operation == "upper") {
      failing = std::make_unique<FailingAllocation>(1);
    }
  };
  EXPECT_EQ(tree.print_full_tree(data), 1);
  failing.reset();
  EXPECT_EQ(standard_error.text(), "std::bad_alloc\n");
  EXPECT_EQ(output.text(),
            "Issues (repeated from above) ordered in the framework definition hierarchy\n"
            "\n"
            "short root: PASS\n");
}

}  // namespace
}  // namespace vond::test
