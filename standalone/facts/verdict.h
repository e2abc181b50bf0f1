#pragma once

#include <string>
#include <vector>

#include "standalone/facts/report_facts.h"

namespace vond::standalone {

/// What a report says of the cluster in one word.
enum class Verdict {
  /// Nothing contributes to FAIL, and nothing puts that in doubt.
  PASS,
  /// An issue contributes to FAIL.
  FAIL,
  /// Nothing contributes to FAIL as far as one can see, and that is not far enough.
  UNKNOWN,
};

/// Returns the verdict of a report; every output and the exit status go by it.
Verdict verdict_of(const ReportFacts& facts);

/// Returns "PASS", "FAIL" or "UNKNOWN".
std::string verdict_word(Verdict verdict);

/// Returns what puts a PASS in doubt, such as "2 of 48 expected nodes were not examined"; a report
/// that fails may have doubts, too. Without any the report knows all that it should.
std::vector<std::string> verdict_doubts(const ReportFacts& facts);

}  // namespace vond::standalone
