#include "standalone/libvond_host/blocks/summary.h"

#include <vector>

#include "standalone/facts/counts.h"
#include "standalone/facts/verdict.h"
#include "standalone/libvond_host/blocks/acknowledged_lines.h"
#include "standalone/libvond_host/blocks/band_table.h"
#include "standalone/libvond_host/blocks/block_writing.h"
#include "standalone/libvond_host/blocks/change_lines.h"
#include "standalone/libvond_host/blocks/failing_definitions.h"
#include "standalone/libvond_host/blocks/limited_text.h"
#include "standalone/libvond_host/blocks/verdict_lines.h"
#include "standalone/text/messages.h"

namespace vond::standalone {
namespace {

using log::OutputLog;

/// Returns the bands with the lines of those that fail and of the next one that has issues.
std::vector<BandRow> rows_of(const std::vector<SeverityBand>& bands) {
  std::vector<BandRow> rows;
  bool is_next_shown = false;
  for (const SeverityBand& band : bands) {
    rows.push_back({.band = &band});
    if (!band.is_empty() && !is_next_shown) {
      rows.back().lines = choose_lines(band);
      is_next_shown = !band.contributes_to_fail;
    }
  }
  return rows;
}

/// Returns "", or what explains why a report fails without a definition that fails.
std::string count_findings_without_definition(const ReportFacts& facts) {
  if (facts.findings_without_definition == 0) {
    return {};
  }
  return count_of(facts.findings_without_definition, "finding names", "findings name") +
         " no definition";
}

void write_failing_definitions(const ReportFacts& facts, const PostprocessorExtensionData& data) {
  const FailingDefinitions failing(data.fwd_root ? *data.fwd_root : FwdHierarchy());
  const std::string without_definition = count_findings_without_definition(facts);
  const std::string lead = "  Failing definitions: ";
  if (failing.size() == 0) {
    write_line(OutputLog::NONE,
               lead + "none" + (without_definition.empty() ? "" : "; " + without_definition),
               data.line_width);
    return;
  }
  write_unwrapped_line(
      OutputLog::RED, limited_list({.lead = lead, .width = data.line_width}, failing.size(),
                                   [&failing](std::size_t count) { return failing.first(count); }));
  if (!without_definition.empty()) {
    write_line(OutputLog::NONE, "  " + without_definition, data.line_width);
  }
}

}  // namespace

void write_summary(const ReportFacts& facts, const PostprocessorExtensionData& data) {
  const std::vector<SeverityBand> bands = severity_bands(data);
  write_unwrapped_line(OutputLog::NONE, "Summary");
  write_verdict(facts, bands, data.line_width);
  write_band_table(rows_of(bands), data.line_width);
  write_failing_definitions(facts, data);
  write_acknowledged(facts, data.line_width);
  write_changes(facts);
  write_rule();
}

void write_end(const ReportFacts& facts, const PostprocessorExtensionData& data) {
  const std::vector<SeverityBand> bands = severity_bands(data);
  write_rule();
  // The last line says all there is to say of a PASS.
  if (verdict_of(facts) != Verdict::PASS) {
    write_verdict(facts, bands, data.line_width);
  }
  if (const SeverityBand* band = worst_failing_band(bands)) {
    write_band_table({{.band = band, .lines = choose_lines(*band)}}, data.line_width);
  }
  write_last_line(facts);
}

}  // namespace vond::standalone
