#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "tests/contract/vocabulary_files.h"
#include "tests/support/allocations.h"
#include "vond/vocabulary/month_names.h"

namespace {

using namespace vond::vocabulary;
using vond::nodelist_method_t;
using vond::ScaleType;
using vond::postprocessor::Severity;
using vond::provider::encoding;
using vond::test::allocation_ordinal;
using vond::test::bands_of_first_file;
using vond::test::bands_of_second_file;
using vond::test::memory_of_first_file;

using Numbers = std::map<std::string, int>;
using Row = std::tuple<int, int, Severity>;

static_assert(std::is_same_v<decltype(SEVERITY_BANDS), std::map<std::string, Row>>);

template <typename Table>
Numbers as_numbers(const Table& table) {
  Numbers numbers;
  for (const auto& [name, value] : table) {
    numbers[name] = static_cast<int>(value);
  }
  return numbers;
}

TEST(SeverityBands, AreTheThreeOfTheScale) {
  const SeverityBandTable expected = {{"informational", {0, 24, static_cast<Severity>(0)}},
                                      {"warning", {25, 74, static_cast<Severity>(4)}},
                                      {"critical", {75, 100, static_cast<Severity>(8)}}};
  EXPECT_EQ(SEVERITY_BANDS, expected);
}

TEST(SeverityBands, SortedAsTuplesDescendingAreTheOrderOfReports) {
  std::vector<std::string> names;
  for (const SeverityBand& band : descending_bands(SEVERITY_BANDS)) {
    names.push_back(std::get<3>(band));
  }
  EXPECT_EQ(names, (std::vector<std::string>{"critical", "warning", "informational"}));
}

TEST(SeverityBands, AreOrderedByLowerBoundThenUpperBoundThenSeverityThenName) {
  const SeverityBandTable table = {{"a", {1, 2, Severity::WARNING}},
                                   {"b", {1, 2, Severity::WARNING}},
                                   {"c", {1, 2, Severity::CRITICAL}},
                                   {"d", {1, 3, Severity::INFORMATIONAL}},
                                   {"e", {0, 9, Severity::CRITICAL}}};
  std::vector<std::string> names;
  for (const SeverityBand& band : descending_bands(table)) {
    names.push_back(std::get<3>(band));
  }
  EXPECT_EQ(names, (std::vector<std::string>{"d", "c", "b", "a", "e"}));
}

TEST(SeverityBands, GrowByARowOfZerosInOneFileAlone) {
  const SeverityBandTable before = bands_of_second_file();
  EXPECT_EQ(bands_of_first_file()["catastrophic"], Row(0, 0, static_cast<Severity>(0)));
  EXPECT_EQ(bands_of_first_file().size(), 4U);
  EXPECT_EQ(bands_of_second_file(), before);
  EXPECT_EQ(before.size(), 3U);
  bands_of_first_file().erase("catastrophic");
}

TEST(Vocabulary, HasTheLogLevelsOfTheSystemLog) {
  EXPECT_EQ(LOG_LEVELS, (Numbers{{"alert", 1},
                                 {"critical", 2},
                                 {"error", 3},
                                 {"warning", 4},
                                 {"notice", 5},
                                 {"info", 6},
                                 {"debug", 7}}));
}

TEST(Vocabulary, HasTheColumnsOfTheResultDatabase) {
  EXPECT_EQ(COLUMN_INDICES, (Numbers{{"rowid", 0},
                                     {"Provider", 1},
                                     {"Hostname", 2},
                                     {"num_nodes", 3},
                                     {"node_names", 4},
                                     {"Exit_status", 5},
                                     {"Timestamp", 6},
                                     {"Duration", 7},
                                     {"Encoding", 8},
                                     {"STDOUT", 9},
                                     {"STDERR", 10},
                                     {"OptionID", 11},
                                     {"version", 12},
                                     {"Username", 13},
                                     {"Unique_timestamp", 14}}));
}

TEST(Vocabulary, HasTheEncodings) {
  static_assert(std::is_same_v<decltype(ENCODINGS)::mapped_type, encoding>);
  EXPECT_EQ(as_numbers(ENCODINGS), (Numbers{{"none", 0}, {"base64", 1}, {"raw", 2}}));
}

TEST(Vocabulary, HasTheNodeListMethods) {
  static_assert(std::is_same_v<decltype(NODELIST_METHODS)::mapped_type, nodelist_method_t>);
  const std::vector<std::string> names(std::begin(NODELIST_METHOD_NAMES),
                                       std::end(NODELIST_METHOD_NAMES));
  EXPECT_EQ(names, (std::vector<std::string>{"NONE", "ROTATE_RIGHT", "ROTATE_LEFT", "ROUND_ROBIN",
                                             "RANDOM"}));
  EXPECT_EQ(as_numbers(NODELIST_METHODS), (Numbers{{"none", 0},
                                                   {"rotate_right", 1},
                                                   {"rotate_left", 2},
                                                   {"round_robin", 3},
                                                   {"random", 4}}));
}

TEST(Vocabulary, HasTheScaleTypes) {
  static_assert(std::is_same_v<decltype(SCALE_TYPES)::mapped_type, ScaleType>);
  EXPECT_EQ(as_numbers(SCALE_TYPES),
            (Numbers{{"constant", 0}, {"linear", 1}, {"squared", 2}, {"logarithmic", 3}}));
}

TEST(Vocabulary, HasTheStringConstants) {
  EXPECT_EQ(DEFAULT_SUBCLUSTER, "default-subcluster");
  EXPECT_EQ(ROLE_BOOT, "boot");
  EXPECT_EQ(ROLE_COMPUTE, "compute");
  EXPECT_EQ(ROLE_ENHANCED, "enhanced");
  EXPECT_EQ(ROLE_EXTERNAL, "external");
  EXPECT_EQ(ROLE_HEAD, "head");
  EXPECT_EQ(ROLE_JOB_SCHEDULE, "job_schedule");
  EXPECT_EQ(ROLE_LOGIN, "login");
  EXPECT_EQ(ROLE_NETWORK_ADDRESS, "network_address");
  EXPECT_EQ(ROLE_STORAGE, "storage");
  EXPECT_EQ(PROVIDER_ERROR_CODE, "provider-error-code");
}

TEST(MonthNames, AreTwelveAndTheSecondIsFebuary) {
  EXPECT_EQ(MONTH_NAMES,
            (std::vector<std::string>{"January", "Febuary", "March", "April", "May", "June", "July",
                                      "August", "September", "October", "November", "December"}));
}

TEST(Vocabulary, IsBuiltInTheOrderOfDefinition) {
  std::size_t previous = 0;
  for (const auto& [name, memory] : memory_of_first_file()) {
    const std::size_t ordinal = allocation_ordinal(memory);
    EXPECT_GT(ordinal, previous) << name;
    previous = ordinal;
  }
}

}  // namespace
