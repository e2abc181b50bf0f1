#include "standalone/model/type_names.h"

#include <gtest/gtest.h>

namespace {

using vond::postprocessor::ALL_OBSERVATIONS;
using vond::postprocessor::DIAGNOSES;
using vond::postprocessor::MISSING_DATA;
using vond::postprocessor::OBSERVATIONS;
using vond::standalone::type_name;
using vond::standalone::type_names;
using vond::standalone::type_of_name;

TEST(TypeNames, AreWhatFindingsCallTypes) {
  EXPECT_EQ(type_name(DIAGNOSES), "diagnosis");
  EXPECT_EQ(type_name(OBSERVATIONS), "observation");
  EXPECT_EQ(type_name(MISSING_DATA), "missing_data");
}

TEST(TypeNames, CallTheTypeOfCountsAnObservation) {
  EXPECT_EQ(type_name(ALL_OBSERVATIONS), "observation");
}

TEST(TypeNames, NameEachTypeThatAFindingCanHaveOnce) {
  EXPECT_EQ(type_names(),
            (std::vector<std::string_view>{"diagnosis", "observation", "missing_data"}));
  for (const std::string_view name : type_names()) {
    ASSERT_TRUE(type_of_name(name)) << name;
    EXPECT_EQ(type_name(*type_of_name(name)), name);
  }
}

TEST(TypeNames, AreMatchedByteForByte) {
  for (const char* name : {"", "Diagnosis", "diagnosis ", "observations", "missing-data"}) {
    EXPECT_EQ(type_of_name(name), std::nullopt) << name;
  }
}

}  // namespace
