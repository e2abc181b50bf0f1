#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/support/captured_output_log.h"
#include "tests/support/captured_standard_error.h"
#include "tests/support/fake_host.h"
#include "tests/support/records.h"

namespace vond::test {

/// 80 hyphens.
inline const std::string RULE =
    "----------------------------------------"
    "----------------------------------------\n";

/// Starts every test with a fresh fake host and an empty destination of the output log.
class FakeHostTest : public ::testing::Test {
 protected:
  FakeHostTest();
  ~FakeHostTest() override;

  static FakeHost& host() { return fake_host(); }

  /// Runs the report on a record; returns what `run` returned.
  static int run(Data data);

  CapturedOutputLog output;
  CapturedStandardError standard_error;
};

/// Returns a record with a diagnosis that an observation supports, both critical and of the one
/// definition, "root", which fails.
Data make_record_with_issues();

}  // namespace vond::test
