#include "standalone/report/acknowledgement_filter.h"

#include <algorithm>
#include <utility>

namespace vond::standalone {
namespace {

using postprocessor::DIAGNOSES;

/// Stands for the place of a finding without nodes.
constexpr std::string_view NO_NODE;

/// Calls `visit` with each node of the finding.
template <typename Visit>
void for_each_node(const Finding& finding, const Visit& visit) {
  if (finding.nodes.empty()) {
    visit(NO_NODE);
  }
  std::for_each(finding.nodes.begin(), finding.nodes.end(), visit);
}

/// Returns the finding as it is with these nodes alone. Its wording is the same; the pattern and
/// the values of its texts may not be, for they depend on the nodes.
Finding with_nodes(const Finding& finding, const std::vector<std::string_view>& nodes) {
  return {.wording = finding.wording,
          .nodes = nodes,
          .row_ids = finding.row_ids,
          .count = finding.count,
          .first_seen = finding.first_seen,
          .wording_number = finding.wording_number};
}

}  // namespace

AcknowledgementFilter::AcknowledgementFilter(AcknowledgedFindings& acknowledged, Taker take_left)
    : acknowledged_(acknowledged),
      take_left_(std::move(take_left)),
      coverage_(acknowledged.entries(), acknowledged.time()) {}

void AcknowledgementFilter::add(const Finding& finding) {
  if (finding.wording.type == DIAGNOSES) {
    tell_diagnosis(finding);
    part(finding);
  } else if (has_to_wait(finding)) {
    held_.add(finding);
  } else {
    part(finding);
  }
}

void AcknowledgementFilter::finish() {
  held_.release([this](const Finding& finding) { part(finding); });
}

void AcknowledgementFilter::tell_diagnosis(const Finding& finding) {
  const auto& [type, id, severity, texts, definitions, based_on] = finding.wording;
  if (coverage_.knows(id)) {
    for_each_node(finding,
                  [&, &id = id, &severity = severity, &based_on = based_on](std::string_view node) {
                    coverage_.add_diagnosis(id, severity, node, based_on);
                  });
  }
}

/// Whether a diagnosis that is still to come decides about the finding.
bool AcknowledgementFilter::has_to_wait(const Finding& finding) const {
  const Wording& wording = finding.wording;
  bool waits = false;
  for_each_node(finding, [&](std::string_view node) {
    waits = waits || (coverage_.may_cover_with_diagnosis(wording.severity, node) &&
                      !coverage_.covers(wording.id, wording.severity, node));
  });
  return waits;
}

void AcknowledgementFilter::part(const Finding& finding) {
  covered_nodes_.clear();
  left_nodes_.clear();
  for_each_node(finding, [&](std::string_view node) {
    const bool is_covered = take_note(finding.wording, node);
    (is_covered ? covered_nodes_ : left_nodes_).push_back(node);
  });
  if (covered_nodes_.empty()) {
    take_left_(finding);
  } else if (left_nodes_.empty()) {
    acknowledged_.add(finding);
  } else {
    acknowledged_.add(with_nodes(finding, covered_nodes_));
    take_left_(with_nodes(finding, left_nodes_));
  }
}

/// Returns whether the pair is covered, and notes which entries do that or would.
bool AcknowledgementFilter::take_note(const Wording& wording, std::string_view node) {
  bool is_covered = false;
  coverage_.for_each_holding(wording.id, wording.severity, node, [&](std::size_t number) {
    acknowledged_.note_use(number);
    is_covered = true;
  });
  if (is_covered || (wording.type != DIAGNOSES &&
                     coverage_.covers_with_diagnosis(wording.id, wording.severity, node))) {
    return true;
  }
  coverage_.for_each_expired(wording.id, wording.severity, node,
                             [&](std::size_t number) { acknowledged_.note_return(number); });
  return false;
}

}  // namespace vond::standalone
