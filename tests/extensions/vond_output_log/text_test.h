#pragma once

#include <gtest/gtest.h>

#include <string>

#include "fwd_output.h"
#include "tests/support/captured_output_log.h"
#include "tests/support/records.h"

namespace vond::test {

/// Starts every test with an empty destination of the output log and a record without findings.
class TextTest : public ::testing::Test {
 protected:
  CapturedOutputLog output;
  Data data = make_record();
  vond_output_log::FwdOutputFunctions tree;
  /// Scratch.
  std::string buffer;
};

}  // namespace vond::test
