#include "definition_details.h"

#include "detail_block.h"
#include "issue_selection.h"
#include "statement.h"

namespace vond_output_log {

using vond::postprocessor::IssueList;
using vond::postprocessor::IssuesByMask;
using vond::vocabulary::descending_bands;
using vond::vocabulary::SeverityBand;

int DefinitionDetails::print(const vond::Fwd& fwd, const std::string& child_prefix, int width,
                             std::string& text) {
  const IssuesByMask* issues = nullptr;
  if (report_selection_errors([&] { issues = issues_.find(fwd.name); }) == 1) {
    return 1;
  }
  const BandLookup lookup(bands_, data_.fail_threshold);
  DetailBlock block(strings_, summaries_, child_prefix, width, text);
  const auto bands = descending_bands(bands_);
  IssueList diagnoses;
  IssueList observations;
  for (const SeverityBand& band : bands) {
    const std::string& name = vond::vocabulary::band_name(band);
    const auto find = [&](IssueList& found, unsigned char type_code) {
      const IssueList* entry = issues == nullptr ? nullptr : lookup.find(*issues, name, type_code);
      if (entry != nullptr) {
        found = *entry;
      }
    };
    if (select_band(diagnoses, observations, find) == 1 ||
        block.print_band(diagnoses, observations, name) == 1) {
      return 1;
    }
    // The last band has its spacer too; that is wanted.
    if (bands.size() > 1 && !(diagnoses.empty() && observations.empty())) {
      write(child_prefix);
      write_line_end();
    }
  }
  return 0;
}

}  // namespace vond_output_log
