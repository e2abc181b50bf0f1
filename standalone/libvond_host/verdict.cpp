#include "standalone/libvond_host/verdict.h"

#include <cstddef>

#include "standalone/text/messages.h"

namespace vond::standalone {
namespace {

using namespace postprocessor;
using log::OutputLog;

int count_under(const PostprocessorExtensionData& data, unsigned mask) {
  const auto count = data.counts_by_mask.find(SeverityMask(mask));
  return count == data.counts_by_mask.end() ? 0 : count->second;
}

bool has_failed(const PostprocessorExtensionData& data) {
  return count_under(data, FAIL_BIT | DIAGNOSES) + count_under(data, FAIL_BIT | ALL_OBSERVATIONS) >
         0;
}

/// Returns what keeps the verdict from being the whole truth, "" when nothing does.
std::string doubt_about_verdict(const ReportFacts& facts) {
  std::string doubt;
  const std::size_t unexamined = facts.expected_and_not_examined.size();
  if (unexamined != 0) {
    doubt += ", and " + count_of(unexamined, "expected node was", "expected nodes were") +
             " not examined";
  }
  if (facts.lines_rejected != 0) {
    doubt += ", and " + count_of(facts.lines_rejected, "line of input is", "lines of input are") +
             " left out";
  }
  return doubt;
}

}  // namespace

void add_verdict(const std::string& lead, const ReportFacts& facts,
                 const PostprocessorExtensionData& data, ReportBlock& block) {
  const bool failed = has_failed(data);
  const std::string doubt = doubt_about_verdict(facts);
  const OutputLog::Colors passed_color = doubt.empty() ? OutputLog::GREEN : OutputLog::YELLOW;
  block.add_line(failed ? OutputLog::RED : passed_color, lead + (failed ? "FAIL" : "PASS") + doubt);
}

}  // namespace vond::standalone
