#include "standalone/report/findings_by_pattern.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "standalone/model/severity_scale.h"
#include "standalone/patterns/pattern_summaries.h"
#include "standalone/patterns/text_marks.h"
#include "standalone/report/joined_issues.h"
#include "standalone/text/ascii.h"

namespace vond::standalone {
namespace {

/// Returns the name of the one node that a finding names, "" when it names none or several.
std::string_view own_node(const std::vector<std::string_view>& nodes) {
  const bool is_one = !nodes.empty() && std::all_of(nodes.begin() + 1, nodes.end(),
                                                    [&](auto node) { return node == nodes[0]; });
  return is_one ? nodes[0] : std::string_view();
}

bool may_name(const BasicTexts<std::string_view>& texts, std::string_view node) {
  return TextPattern::may_name(texts.message, node) || TextPattern::may_name(texts.remedy, node);
}

void append_places(CollapsedOutput& output, const PatternIssue& findings) {
  std::size_t nodes = 0;
  std::size_t row_ids = 0;
  findings.for_each([&](const PatternGroup::Occurrence& finding) {
    nodes += finding.nodes.size();
    row_ids += finding.row_ids.size();
  });
  output.nodes.reserve(nodes);
  output.row_ids.reserve(row_ids);
  findings.for_each([&output](const PatternGroup::Occurrence& finding) {
    output.nodes.insert(output.nodes.end(), finding.nodes.begin(), finding.nodes.end());
    output.row_ids.insert(output.row_ids.end(), finding.row_ids.begin(), finding.row_ids.end());
  });
}

}  // namespace

void FindingsByPattern::add(const Finding& finding, std::span<const StringInterner::Id> nodes) {
  const auto [number, entry] = place_of(finding);
  Gathered& group = groups_[number];
  group.severity = std::max(group.severity, finding.wording.severity);
  group.findings.add(entry, nodes, finding.row_ids, finding.count);
  if (finding.first_seen) {
    group.findings.note_first_seen(entry, nodes, *finding.first_seen);
  }
}

FindingsByPattern::Place FindingsByPattern::place_of(const Finding& finding) {
  return finding.pattern_number != Finding::UNKNOWN_PATTERN ? place_of_pattern(finding)
                                                            : place_of_wording(finding);
}

FindingsByPattern::Place FindingsByPattern::place_of_pattern(const Finding& finding) {
  if (const auto* const group = known_patterns_.find(finding.pattern_number)) {
    return {*group, entry_of(*group, finding.wording.severity, finding.values)};
  }
  const Place place = read_place(finding, own_node(finding.nodes));
  known_patterns_.remember(finding.pattern_number, place.group);
  return place;
}

FindingsByPattern::Place FindingsByPattern::place_of_wording(const Finding& finding) {
  const std::string_view node = own_node(finding.nodes);
  const KnownPlace* const known = known_wordings_.find(finding.wording_number);
  if (known != nullptr && !known->texts_have_digits && has_digit(text_marks::short_form(node))) {
    return known->place;
  }
  // What is known was said without a node's name, and belongs elsewhere if it names this node.
  const bool can_be_known = !may_name(finding.wording.texts, node);
  if (known != nullptr && can_be_known) {
    return known->place;
  }
  const Place place = read_place(finding, node);
  if (can_be_known) {
    // Without the node every word with a digit is a value.
    known_wordings_.remember(finding.wording_number, {place, !text_.values().empty()});
  }
  return place;
}

FindingsByPattern::Place FindingsByPattern::read_place(const Finding& finding,
                                                       std::string_view own_node) {
  const auto& [message, remedy, category] = finding.wording.texts;
  text_.read(own_node, {message, remedy});
  wording_with_pattern_ = finding.wording;
  wording_with_pattern_.severity = band_of(finding.wording.severity).upper_bound;
  wording_with_pattern_.texts = {text_.pattern(), {}, category};
  const WordingTable::Number number = wordings_.number_of(wording_with_pattern_);
  if (number == groups_.size()) {
    groups_.push_back({PatternGroup(text_.pattern()), 0});
  }
  return {number, entry_of(number, finding.wording.severity, text_.values())};
}

PatternGroup::Entry FindingsByPattern::entry_of(WordingTable::Number group, int severity,
                                                std::span<const std::string_view> values) {
  value_ids_.clear();
  for (const std::string_view value : values) {
    value_ids_.push_back(values_.id_of(value));
  }
  return groups_[group].findings.entry_of(value_ids_, severity, values_);
}

std::vector<CollapsedIssue> FindingsByPattern::finish(const StringInterner& node_names) {
  known_wordings_ = {};
  known_patterns_ = {};
  const NodeNames names = [&node_names](auto node) -> std::string_view { return node_names[node]; };
  std::vector<CollapsedIssue> issues = take_joined(names);
  PatternSummaries summaries(values_, names);
  for (CollapsedIssue& issue : issues) {
    CollapsedOutput& output = issue.outputs[0];
    append_places(output, *issue.findings);
    std::vector<std::string> shown = summaries.shown_texts(*issue.findings);
    output.texts.message = std::move(shown[0]);
    output.texts.remedy = std::move(shown[1]);
  }
  return issues;
}

/// Returns the issues without what is shown of their findings.
std::vector<CollapsedIssue> FindingsByPattern::take_joined(const NodeNames& node_names) {
  std::vector<OwnedWording> wordings = wordings_.take();
  std::vector<Gathered> groups = std::exchange(groups_, {});
  JoinedIssues joined(wordings.size());
  for (std::size_t number = 0; number < wordings.size(); ++number) {
    auto& [type, id, band, texts, definitions, based_on] = wordings[number];
    auto& [findings, severity] = groups[number];
    findings.settle();
    CollapsedIssue issue{
        type, std::move(id), severity, std::move(definitions), std::move(based_on), {}, 0};
    issue.outputs.push_back({severity, {{}, {}, std::move(texts.category)}, {}, {}, 0});
    issue.findings.emplace(std::move(texts.message), std::move(findings), values_, node_names);
    joined.add(std::move(issue));
  }
  return joined.take();
}

}  // namespace vond::standalone
