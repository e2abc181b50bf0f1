#include "standalone/libvond_host/end_block.h"

#include "standalone/libvond_host/verdict.h"

namespace vond::standalone {

ReportBlock end_block(const ReportFacts& facts,
                      const postprocessor::PostprocessorExtensionData& data) {
  ReportBlock block(data.line_width);
  block.add_rule();
  add_verdict("End of report. Verdict: ", facts, data, block);
  return block;
}

}  // namespace vond::standalone
