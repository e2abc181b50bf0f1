#include "issue_values.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/support/captured_output_log.h"

namespace vond::test {
namespace {

using testing::IsEmpty;
using testing::SizeIs;
using vond::facts::Place;
using vond_html::spread_of;

Place numbers(const std::vector<std::string>& values) {
  Place place{.kind = "number", .unit = "C", .values = {}};
  for (const std::string& value : values) {
    place.values.push_back({.value = value, .nodes = {"n"}});
  }
  return place;
}

std::string written(const std::vector<Place>& places) {
  CapturedOutputLog output;
  extension::StatementWriter statement;
  extension::JsonWriter json(statement, extension::JsonWriter::Place::PAGE);
  vond_html::write_places(json, places);
  statement.finish();
  return output.text();
}

TEST(IssueValues, SpreadCountsNodesInPartsOfEqualWidth) {
  Place place = numbers({"0C", "10C", "40C"});
  place.values[1].nodes = {"a", "b", "c"};
  const auto spread = spread_of(place);
  ASSERT_THAT(spread, SizeIs(40));
  EXPECT_EQ(spread[0], 1);
  EXPECT_EQ(spread[10], 3);
  EXPECT_EQ(spread[39], 1);
}

TEST(IssueValues, CommasAndPlusSignsBelongToNumbers) {
  const auto spread = spread_of(numbers({"+0", "1,000", "+4,000B"}));
  ASSERT_THAT(spread, SizeIs(40));
  EXPECT_EQ(spread[0], 1);
  EXPECT_EQ(spread[10], 1);
  EXPECT_EQ(spread[39], 1);
}

TEST(IssueValues, NumbersMayHaveTheMinusSignOfTypography) {
  EXPECT_EQ(spread_of(numbers({"\u2212.5", "0", "1"})), spread_of(numbers({"-0.5", "0", "1"})));
  EXPECT_THAT(spread_of(numbers({"\u2212.5", "0", "1"})), SizeIs(40));
}

TEST(IssueValues, OneNumberAloneHasNoSpread) {
  EXPECT_THAT(spread_of(numbers({"5C"})), IsEmpty());
  EXPECT_THAT(spread_of(numbers({})), IsEmpty());
}

TEST(IssueValues, TextsHaveNoSpread) {
  EXPECT_THAT(spread_of(numbers({"1", "none"})), IsEmpty());
  Place texts = numbers({"1", "2"});
  texts.kind = "text";
  EXPECT_THAT(spread_of(texts), IsEmpty());
}

TEST(IssueValues, TheGreatestNumbersSpread) {
  const auto spread = spread_of(numbers({"-1.7e308", "0", "1.7e308"}));
  ASSERT_THAT(spread, SizeIs(40));
  EXPECT_EQ(spread[0] + spread[20] + spread[39], 3);
}

TEST(IssueValues, OfManyValuesThoseAtTheEndsStandThere) {
  std::vector<std::string> values;
  for (int i = 10; i < 30; ++i) {
    values.push_back(std::to_string(i));
  }
  const std::string json = written({numbers(values)});
  EXPECT_THAT(json, testing::HasSubstr("\"left_out\":10,\"values\":[[\"10\",\"n\"]"));
  EXPECT_THAT(json, testing::HasSubstr("[\"14\",\"n\"],[\"25\",\"n\"]"));
}

TEST(IssueValues, NamesOfNodesStandOnce) {
  EXPECT_THAT(written({{.kind = "node", .unit = "", .values = {{"cn1", {"cn1"}}}}}),
              testing::HasSubstr("\"values\":[[\"cn1\"]]"));
}

}  // namespace
}  // namespace vond::test
