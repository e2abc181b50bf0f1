// The JSON report of records that the stand-alone host would not make, and before another reader.
#include <gtest/gtest.h>
#include <simdjson.h>

#include <filesystem>
#include <string>

#include "standalone/libvond_host/current_facts.h"
#include "tests/support/captured_output_log.h"
#include "tests/support/records.h"
#include "vond_json.h"

namespace {

namespace fs = std::filesystem;

using vond::test::CapturedOutputLog;

class JsonReportTest : public testing::Test {
 protected:
  void TearDown() override { vond::standalone::report_facts() = {}; }

  /// Returns the report on `data`, parsed. It lives until the next call.
  simdjson::dom::element report_on(vond::test::Data data) {
    const CapturedOutputLog output;
    EXPECT_EQ(vond_json::VondJson(data).run(), 0);
    text = output.text();
    return parser.parse(text);
  }

  simdjson::dom::parser parser;
  std::string text;
};

TEST_F(JsonReportTest, EveryApprovedReportIsReadBySimdjson) {
  std::size_t reports = 0;
  for (const auto& file : fs::directory_iterator(GOLDEN_FOLDER)) {
    if (file.path().extension() != ".received") {
      EXPECT_TRUE(bool(parser.load(file.path().string())["complete"])) << file.path();
      ++reports;
    }
  }
  EXPECT_GT(reports, 5U);
}

TEST_F(JsonReportTest, OfAnEmptyRecordHasEveryKey) {
  const auto report = report_on({});
  EXPECT_EQ(report["issues"].get_array().size(), 0U);
  EXPECT_EQ(report["definitions"].get_array().size(), 0U);
  EXPECT_EQ(std::uint64_t(report["counts"]["critical"]["diagnoses"]), 0U);
  EXPECT_TRUE(bool(report["complete"]));
}

TEST_F(JsonReportTest, EndsInCompleteAndALineEnd) {
  report_on(vond::test::make_record());
  EXPECT_TRUE(text.ends_with("\n\"complete\": true}\n"));
}

TEST_F(JsonReportTest, AnIssueThatIsFiledTwiceIsToldOnce) {
  auto data = vond::test::make_record();
  const auto issue = vond::test::make_issue({.id = "twice"});
  vond::test::add_issue(data, 8 | vond::postprocessor::FAIL_BIT, issue);
  vond::test::add_issue(data, 0, issue);
  const auto report = report_on(data);
  ASSERT_EQ(report["issues"].get_array().size(), 1U);
  EXPECT_EQ(std::string_view(report["issues"].at(0)["band"]), "critical");
}

TEST_F(JsonReportTest, EntriesWithoutAnIssueCountForNothing) {
  auto data = vond::test::make_record();
  vond::test::add_issue(data, 8 | vond::postprocessor::FAIL_BIT, nullptr);
  const auto report = report_on(data);
  EXPECT_EQ(report["issues"].get_array().size(), 0U);
  EXPECT_EQ(std::uint64_t(report["counts"]["critical"]["diagnoses"]), 0U);
}

TEST_F(JsonReportTest, AnIssueWithoutOutputsHasEmptyTexts) {
  auto data = vond::test::make_record();
  vond::test::add_issue(data, 0, vond::test::make_issue_without_outputs());
  const auto issue = report_on(data)["issues"].at(0);
  EXPECT_EQ(std::string_view(issue["id"]), "");
  EXPECT_EQ(std::string_view(issue["message"]), "");
  EXPECT_EQ(std::uint64_t(issue["node_count"]), 0U);
}

TEST_F(JsonReportTest, TextsOfAnyHostBecomeValidJson) {
  auto data = vond::test::make_record();
  vond::test::add_issue(data, 0, vond::test::make_issue({.id = "\xFF\"\n", .message = "a\tb\xC3"}));
  const auto issue = report_on(data)["issues"].at(0);
  EXPECT_EQ(std::string_view(issue["id"]), "\xEF\xBF\xBD\"\n");
  EXPECT_EQ(std::string_view(issue["message"]), "a\tb\xEF\xBF\xBD");
}

}  // namespace
