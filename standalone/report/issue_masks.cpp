#include "standalone/report/issue_masks.h"

#include "standalone/model/severity_scale.h"

namespace vond::standalone {

using postprocessor::ALL_OBSERVATIONS;
using postprocessor::DIAGNOSES;
using postprocessor::SeverityMask;
using postprocessor::TypeCode;

namespace {

unsigned count_code(TypeCode type) { return type == DIAGNOSES ? DIAGNOSES : ALL_OBSERVATIONS; }

unsigned band_bits(const CollapsedIssue& issue) {
  return static_cast<unsigned>(band_of(issue.severity).severity);
}

unsigned fail_bit(int severity, int fail_threshold) {
  return postprocessor::fail_bit(band_of(severity).upper_bound, fail_threshold);
}

}  // namespace

bool contributes_to_fail(int severity, int fail_threshold) {
  return fail_bit(severity, fail_threshold) != 0;
}

SeverityMask file_mask(const CollapsedIssue& issue, int fail_threshold) {
  return fail_bit(issue.severity, fail_threshold) | band_bits(issue) | issue.type;
}

SeverityMask definition_count_mask(const CollapsedIssue& issue, int fail_threshold) {
  return fail_bit(issue.severity, fail_threshold) | band_bits(issue) | count_code(issue.type);
}

SeverityMask total_count_mask(const CollapsedIssue& issue, int fail_threshold) {
  return fail_bit(issue.severity, fail_threshold) | count_code(issue.type);
}

}  // namespace vond::standalone
