#include "standalone/report/record_issue_facts.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "standalone/model/type_names.h"
#include "standalone/patterns/placeholders.h"
#include "standalone/patterns/text_pattern.h"
#include "standalone/text/utc_time.h"

namespace vond::standalone {

using Issue = postprocessor::CollapsedAnalysisOutput;

namespace {

std::string kind_word(Placeholder::Kind kind) {
  switch (kind) {
    case Placeholder::Kind::NUMBER:
      return "number";
    case Placeholder::Kind::TIME:
      return "time";
    case Placeholder::Kind::NODE:
      return "node";
    default:
      return "text";
  }
}

NodeNames names_in(const StringInterner& interner) {
  return [&interner](auto node) -> std::string_view { return interner[node]; };
}

/// Returns the names, sorted: numbers of nodes are in the order of the input.
std::vector<std::string> names_of(const std::vector<std::uint32_t>& nodes,
                                  const NodeNames& node_names) {
  std::vector<std::string> names;
  names.reserve(nodes.size());
  for (const std::uint32_t node : nodes) {
    names.emplace_back(node_names(node));
  }
  std::sort(names.begin(), names.end());
  return names;
}

facts::Place fact_of(Placeholder placeholder, const NodeNames& node_names) {
  facts::Place place{kind_word(placeholder.kind), std::move(placeholder.unit), {}};
  place.values.reserve(placeholder.values.size());
  for (auto& [text, nodes] : placeholder.values) {
    place.values.push_back({std::move(text), names_of(nodes, node_names)});
  }
  return place;
}

}  // namespace

RecordIssueFacts::RecordIssueFacts(const ReportRecord& record, const StringInterner& node_names,
                                   const StringInterner& names_of_kept, const RunHistory* history)
    : record_(record),
      node_names_(names_in(node_names)),
      names_of_kept_(names_in(names_of_kept)),
      history_(history) {}

int RecordIssueFacts::severity(const Issue& issue) const {
  const std::optional<std::size_t> number = record_.number_of(issue);
  return number ? record_.severities()[*number] : -1;
}

facts::Patterns RecordIssueFacts::patterns(const Issue& issue) const {
  if (const PatternIssue* const findings = findings_of(issue)) {
    std::vector<std::string> texts = shown_patterns(*findings);
    return {std::move(texts[0]), std::move(texts[1])};
  }
  return issue.outputs.empty()
             ? facts::Patterns{}
             : facts::Patterns{issue.outputs[0]->message, issue.outputs[0]->remedy};
}

std::vector<facts::Place> RecordIssueFacts::places(const Issue& issue) {
  const PatternIssue* const findings = findings_of(issue);
  if (findings == nullptr) {
    return {};
  }
  if (!summaries_) {
    summaries_.emplace(findings->table(), node_names_);
  }
  std::vector<facts::Place> places;
  for (Placeholder& placeholder : placeholders_of(*findings, *summaries_, node_names_)) {
    places.push_back(fact_of(std::move(placeholder), node_names_));
  }
  return places;
}

std::optional<facts::Change> RecordIssueFacts::change(const Issue& issue) const {
  const std::optional<std::size_t> number = record_.number_of(issue);
  return number && history_ != nullptr ? std::optional(history_->change(*number)) : std::nullopt;
}

std::optional<std::int64_t> RecordIssueFacts::first_seen(const Issue& issue) const {
  const std::optional<std::size_t> number = record_.number_of(issue);
  if (!number) {
    return std::nullopt;
  }
  return history_ != nullptr ? history_->first_seen(*number) : record_.first_seen(*number);
}

std::optional<facts::Since> RecordIssueFacts::since() const {
  return history_ != nullptr ? std::optional(history_->since()) : std::nullopt;
}

void RecordIssueFacts::for_each_finding(
    const std::function<void(const facts::Finding&)>& visit) const {
  if (!record_.keeps_findings()) {
    // Findings without any would pass for those of a healthy cluster.
    throw std::logic_error("findings are kept for the output \"findings\" alone");
  }
  record_.for_each_source(
      [&](const ReportRecord::FindingSource& source, const PatternIssue& findings) {
        for (OriginalTexts& original : findings.originals(names_of_kept_)) {
          facts::Finding finding{std::string(type_name(source.type)),
                                 source.id,
                                 original.severity,
                                 source.category,
                                 std::move(original.texts[0]),
                                 std::move(original.texts[1]),
                                 source.definitions,
                                 source.based_on,
                                 names_of(original.nodes, names_of_kept_),
                                 std::move(original.row_ids),
                                 original.count,
                                 original.first_seen};
          if (history_ != nullptr) {
            visit_by_first_seen(source.type, std::move(finding), visit);
          } else {
            visit(finding);
          }
        }
      });
}

/// Calls `visit` with the finding, once for each time at which it was first seen on some of its
/// nodes.
void RecordIssueFacts::visit_by_first_seen(
    postprocessor::TypeCode type, facts::Finding finding,
    const std::function<void(const facts::Finding&)>& visit) const {
  auto by_time = history_->by_first_seen(type, finding.id, finding.nodes, finding.first_seen);
  // One node alone would be taken for the one that the texts name.
  const auto may_become_own_node = [&finding](const auto& nodes_at) {
    const auto& nodes = nodes_at.second;
    return nodes.size() == 1 && (TextPattern::may_name(finding.message, nodes[0]) ||
                                 TextPattern::may_name(finding.remedy, nodes[0]));
  };
  if (finding.nodes.size() > 1 &&
      std::any_of(by_time.begin(), by_time.end(), may_become_own_node)) {
    for (const auto& [time, nodes] : by_time) {
      finding.first_seen = earliest(finding.first_seen, time);
    }
    visit(finding);
    return;
  }
  for (auto& [time, nodes] : by_time) {
    finding.first_seen = time;
    finding.nodes = std::move(nodes);
    visit(finding);
    // The rest is more of it.
    finding.count = 0;
    finding.row_ids.clear();
  }
}

const PatternIssue* RecordIssueFacts::findings_of(const Issue& issue) const {
  const std::optional<std::size_t> number = record_.number_of(issue);
  return number && !record_.findings().empty() ? &record_.findings()[*number] : nullptr;
}

}  // namespace vond::standalone
