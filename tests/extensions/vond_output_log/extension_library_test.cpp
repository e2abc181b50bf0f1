// The text report as a host meets it: a library, its factory and a record.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <new>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/support/allocations.h"
#include "tests/support/captured_output_log.h"
#include "tests/support/captured_standard_error.h"
#include "tests/support/grouping_locale.h"
#include "tests/support/records.h"
#include "vond/postprocessor/postprocessor_extension.h"

namespace vond::test {
namespace {

using postprocessor::IssuesByMask;
using postprocessor::PostprocessorExtension;

using Factory = PostprocessorExtension*(Data&);
using Extension = std::unique_ptr<PostprocessorExtension>;

static_assert(std::has_virtual_destructor_v<PostprocessorExtension>);
static_assert(std::is_abstract_v<PostprocessorExtension>);
static_assert(
    std::is_base_of_v<util::NonDeepCopyable<PostprocessorExtension>, PostprocessorExtension>);
static_assert(std::is_empty_v<util::NonDeepCopyable<PostprocessorExtension>>);
static_assert(!std::is_polymorphic_v<util::NonDeepCopyable<PostprocessorExtension>>);
// The record follows the table of the virtual operations, and nothing follows the record.
static_assert(sizeof(PostprocessorExtension) == sizeof(void*) + sizeof(Data));

const std::string RULE =
    "----------------------------------------"
    "----------------------------------------\n";

class ExtensionLibraryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    library_ = dlopen(VOND_OUTPUT_LOG_PATH, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library_, nullptr) << dlerror();
    factory_ = reinterpret_cast<Factory*>(dlsym(library_, "create"));
    ASSERT_NE(factory_, nullptr) << dlerror();
  }
  void TearDown() override {
    if (library_ != nullptr) {
      dlclose(library_);
    }
  }

  Extension create(Data& data) const { return Extension(factory_(data)); }

  void close_library() {
    dlclose(library_);
    library_ = nullptr;
  }

  CapturedOutputLog output;

 private:
  void* library_ = nullptr;
  Factory* factory_ = nullptr;
};

/// Returns a record with a critical diagnosis of the only child of the root.
Data make_record_of_one_issue() {
  Data data = make_record();
  add_issue(data, 24,
            make_issue({.id = "D",
                        .message = "The link is down.",
                        .remedy = "Replace the cable.",
                        .nodes = {"n1", "n2"},
                        .definitions = {"R/F"}}));
  data.fwd_root->roots = {
      make_definition({.name = "R", .passed = false},
                      {{make_definition({.name = "R/F", .passed = false, .counts = {{24, 1}}})}})};
  return data;
}

const std::string SECTIONS_AND_TREE =
    "Issues contributing to FAIL\n"
    "\n"
    "CRITICAL:\n"
    "Diagnoses\n"
    "1. D (appears on 2 nodes)\n"
    "   Message: The link is down.\n"
    "   Remedy: Replace the cable.\n"
    "   Nodes: n[1-2]\n"
    "   Category: FUNCTIONALITY\n"
    "   Framework Definition: R/F\n"
    "\n" +
    RULE +
    "Other issues (not contributing to FAIL)\n"
    "No issues detected.\n"
    "\n" +
    RULE +
    "Issues (repeated from above) ordered in the framework definition hierarchy\n"
    "\n"
    "R: FAIL\n"
    "`-- F: FAIL\n"
    "       1 CRITICAL     (1 diagnosis     0 observation)\n"
    "       \n"
    "       CRITICAL:\n"
    "       Diagnoses\n"
    "       1. D (appears on 2 nodes)\n"
    "          Message:               The link is down.\n"
    "          Remedy:                Replace the cable.\n"
    "          Nodes:                 n[1-2]\n"
    "       \n";

/// Returns the report from its first section to the end of its tree, as far as it is the expected
/// one; the blocks around that are the host's.
std::string sections_and_tree(const std::string& report) {
  const std::size_t start = report.find("Issues contributing to FAIL\n");
  return start == std::string::npos ? report : report.substr(start, SECTIONS_AND_TREE.size());
}

TEST_F(ExtensionLibraryTest, WritesTheReportOfAnIssueFromEndToEnd) {
  for (const int width : {0, 80}) {
    Data data = make_record_of_one_issue();
    data.line_width = width;
    EXPECT_EQ(create(data)->run(), 0);
    const std::string report = output.take();
    EXPECT_EQ(sections_and_tree(report), SECTIONS_AND_TREE);
    // The host's header comes first, and a rule ends it.
    EXPECT_LT(report.find(RULE), report.find("Issues contributing to FAIL\n"));
  }
}

TEST_F(ExtensionLibraryTest, WritesTheSameBytesUnderALocaleThatGroupsDigits) {
  Data data = make_record_of_one_issue();
  data.line_width = 80;
  data.log_level = "info";
  const auto& output_of_issue = data.issues_by_mask->at(24)[0]->outputs[0];
  output_of_issue->row_ids = {1234, 5678};
  for (int node = 100; node < 150; ++node) {
    output_of_issue->node_names.push_back("n" + std::to_string(node));
  }
  add_issues(data, 1, "O", 12);
  EXPECT_EQ(create(data)->run(), 0);
  const std::string report = output.take();
  EXPECT_NE(report.find("1. D (appears on 52 nodes)\n"), std::string::npos);
  const GroupingLocale locale;
  EXPECT_EQ(create(data)->run(), 0);
  EXPECT_EQ(output.take(), report);
}

TEST_F(ExtensionLibraryTest, CreatingAndDeletingWritesNothing) {
  Data data = make_record_of_one_issue();
  { const Extension extension = create(data); }
  EXPECT_EQ(output.text(), "");
}

TEST_F(ExtensionLibraryTest, ReportIsOfTheRecordAsItWasWhenTheExtensionWasCreated) {
  Data data = make_record_of_one_issue();
  const Extension extension = create(data);
  data = Data();
  EXPECT_EQ(extension->run(), 0);
  EXPECT_EQ(sections_and_tree(output.text()), SECTIONS_AND_TREE);
}

TEST_F(ExtensionLibraryTest, ReportSeesChangesOfThePointees) {
  Data data = make_record_of_one_issue();
  const Extension extension = create(data);
  data.issues_by_mask->at(24)[0]->outputs[0]->identifier = "changed";
  EXPECT_EQ(extension->run(), 0);
  EXPECT_NE(output.text().find("1. changed (appears on 2 nodes)\n"), std::string::npos);
}

TEST_F(ExtensionLibraryTest, LeavesTheEnginesRecordAsItIs) {
  Data data = make_record_of_one_issue();
  const auto counts = data.counts_by_mask;
  const auto* const issues = data.issues_by_mask.get();
  create(data)->run();
  EXPECT_EQ(data.counts_by_mask, counts);
  EXPECT_EQ(data.issues_by_mask.get(), issues);
  EXPECT_EQ(data.issues_by_mask.use_count(), 1);
}

TEST_F(ExtensionLibraryTest, TwoExtensionsOfOneRecordShareItsIssuesAndNothingElse) {
  Data data = make_record_of_one_issue();
  const std::weak_ptr<IssuesByMask> issues = data.issues_by_mask;
  Extension first = create(data);
  data.fail_threshold = 101;
  data.counts_by_mask = {};
  const Extension second = create(data);
  EXPECT_EQ(issues.use_count(), 3);
  EXPECT_EQ(first->run(), 0);
  EXPECT_EQ(sections_and_tree(output.take()), SECTIONS_AND_TREE);
  first.reset();
  EXPECT_EQ(issues.use_count(), 2);
  const CapturedStandardError standard_error;
  EXPECT_EQ(second->run(), 1);
  EXPECT_EQ(standard_error.text(), "Error getting number of issues.\n");
}

TEST_F(ExtensionLibraryTest, RecordWithEmptyPointersIsTaken) {
  Data data;
  data.counts_by_mask = {{0, 0}, {3, 0}, {16, 0}, {19, 0}};
  const Extension extension = create(data);
  EXPECT_NE(extension, nullptr);
}

TEST_F(ExtensionLibraryTest, DeletingReleasesEveryPointee) {
  Data data = make_record();
  for (auto* pointer : {&data.host_shared_1, &data.host_shared_2, &data.host_shared_3,
                        &data.host_shared_4, &data.host_shared_5, &data.host_shared_6,
                        &data.host_shared_7, &data.host_shared_8, &data.host_shared_9}) {
    *pointer = std::make_shared<int>(1);
  }
  const std::vector<std::weak_ptr<void>> pointees = {
      data.host_shared_1, data.host_shared_2, data.host_shared_3, data.host_shared_4,
      data.fwd_root,      data.host_shared_5, data.host_shared_6, data.issues_by_mask,
      data.host_shared_7, data.host_shared_8, data.host_shared_9};
  Extension extension = create(data);
  data = Data();
  for (const auto& pointee : pointees) {
    EXPECT_EQ(pointee.use_count(), 1);
  }
  extension.reset();
  for (const auto& pointee : pointees) {
    EXPECT_TRUE(pointee.expired());
  }
}

/// Shows where the base keeps its record.
class ExtensionWithData : public PostprocessorExtension {
 public:
  using PostprocessorExtension::PostprocessorExtension;
  int run() override { return 0; }
  std::ptrdiff_t offset_of_data() const {
    return reinterpret_cast<const char*>(&data) - reinterpret_cast<const char*>(this);
  }
};

TEST(ExtensionLayout, IsATableAndTheRecord) {
  Data data;
  EXPECT_EQ(ExtensionWithData(data).offset_of_data(), 8);
  EXPECT_EQ(sizeof(ExtensionWithData), 8 + sizeof(Data));
}

TEST_F(ExtensionLibraryTest, VirtualOperationsAreTwoDestructorsAndRun) {
  using Run = int(PostprocessorExtension*);
  Data data = make_record();
  // Not to be called a second time by name: slot 2 must be run().
  const Extension extension = create(data);
  Run** const table = *reinterpret_cast<Run***>(extension.get());
  EXPECT_EQ(table[2](extension.get()), 0);
  EXPECT_NE(output.text().find("Issues contributing to FAIL\n"), std::string::npos);
}

TEST_F(ExtensionLibraryTest, AllocationFailureLeavesTheFactoryAndNothingBehind) {
  Data data = make_record_of_one_issue();
  data.host_string_list = {"a string that is too long for a string without allocation"};
  data.host_option_map = {{"option", {{"key", "value"}}}};
  const CapturedStandardError standard_error;
  const std::size_t live = live_allocations();
  bool failed = true;
  int failures = 0;
  while (failed) {
    const FailingAllocation failing(static_cast<std::size_t>(failures) + 1);
    try {
      create(data);
    } catch (const std::bad_alloc&) {
      ++failures;
    }
    failed = failing.happened();
    EXPECT_EQ(live_allocations(), live);
  }
  EXPECT_GT(failures, 3);
  EXPECT_EQ(data.issues_by_mask.use_count(), 1);
  EXPECT_EQ(output.text(), "");
  EXPECT_EQ(standard_error.text(), "");
}

TEST_F(ExtensionLibraryTest, IsGoneWhenItIsClosedAndMayBeLoadedAgain) {
  Data data = make_record_of_one_issue();
  EXPECT_EQ(create(data)->run(), 0);
  const std::string report = output.take();
  close_library();
  EXPECT_EQ(dlopen(VOND_OUTPUT_LOG_PATH, RTLD_NOW | RTLD_NOLOAD), nullptr);
  SetUp();
  EXPECT_EQ(create(data)->run(), 0);
  EXPECT_EQ(output.take(), report);
}

TEST_F(ExtensionLibraryTest, GivesBackItsTablesWhenItIsClosed) {
  close_library();
  const std::size_t live = live_allocations();
  SetUp();
  EXPECT_GT(live_allocations(), live);
  close_library();
  EXPECT_EQ(live_allocations(), live);
}

}  // namespace
}  // namespace vond::test
