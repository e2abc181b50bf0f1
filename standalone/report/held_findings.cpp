#include "standalone/report/held_findings.h"

#include <limits>
#include <string_view>

namespace vond::standalone {

void HeldFindings::add(const Finding& finding) {
  for (const std::string_view node : finding.nodes) {
    nodes_.push_back(node_names_.id_of(node));
  }
  row_ids_.insert(row_ids_.end(), finding.row_ids.begin(), finding.row_ids.end());
  findings_.push_back({wordings_.number_of(finding),
                       {nodes_.size(), row_ids_.size()},
                       finding.count,
                       finding.first_seen});
}

void HeldFindings::restore(const Held& held, const OwnedWording& wording, const Ends& begin,
                           Finding& finding) const {
  const auto& [type, id, severity, texts, definitions, based_on] = wording;
  finding.wording = {type,
                     id,
                     severity,
                     {texts.message, texts.remedy, texts.category},
                     {definitions.begin(), definitions.end()},
                     {based_on.begin(), based_on.end()}};
  finding.nodes.clear();
  for (std::size_t at = begin.nodes; at < held.ends.nodes; ++at) {
    finding.nodes.emplace_back(node_names_[nodes_[at]]);
  }
  finding.row_ids.assign(row_ids_.begin() + static_cast<std::ptrdiff_t>(begin.row_ids),
                         row_ids_.begin() + static_cast<std::ptrdiff_t>(held.ends.row_ids));
  finding.count = held.count;
  finding.first_seen = held.first_seen;
  // Readers count from the lowest number, so that these meet none of theirs.
  finding.wording_number = std::numeric_limits<std::uint64_t>::max() - held.wording;
}

}  // namespace vond::standalone
