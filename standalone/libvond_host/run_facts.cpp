#include "vond/facts/run_facts.h"

#include "standalone/facts/counts.h"
#include "standalone/facts/verdict.h"
#include "standalone/libvond_host/current_facts.h"
#include "standalone/libvond_host/issue_facts.h"
#include "standalone/version.h"

namespace vond {
namespace standalone {
namespace {

IssueFacts* current_issue_facts = nullptr;

std::string word_of(ReportFacts::Acknowledgement::State state) {
  switch (state) {
    case ReportFacts::Acknowledgement::State::EXPIRED:
      return "expired";
    case ReportFacts::Acknowledgement::State::UNUSED:
      return "unused";
    default:
      return "active";
  }
}

}  // namespace

IssueFactsConnection::IssueFactsConnection(IssueFacts& facts) { current_issue_facts = &facts; }

IssueFactsConnection::~IssueFactsConnection() { current_issue_facts = nullptr; }

}  // namespace standalone

namespace facts {

using standalone::current_issue_facts;
using standalone::report_facts;

int version() { return VOND_FACTS_VERSION; }

std::string tool_version() { return standalone::VERSION; }

std::int64_t written_at() { return report_facts().written_at; }

std::string verdict() { return standalone::verdict_word(standalone::verdict_of(report_facts())); }

std::vector<std::string> doubts() { return standalone::verdict_doubts(report_facts()); }

std::vector<Input> inputs() {
  std::vector<Input> inputs;
  for (const auto& input : report_facts().inputs) {
    inputs.push_back({input.name, input.age});
  }
  return inputs;
}

std::int64_t collected_at() { return report_facts().collected_at; }

std::vector<std::string> parts() { return report_facts().parts; }

bool has_whole_inputs() {
  const standalone::ReportFacts& facts = report_facts();
  return standalone::names_of_inputs(facts, &standalone::ReportFacts::Input::is_cut_off).empty() &&
         standalone::names_of_useless_inputs(facts).empty() && facts.parts_missing.empty();
}

std::uint64_t findings_read() { return report_facts().findings_read; }

std::uint64_t lines_rejected() { return report_facts().lines_rejected; }

std::size_t nodes_seen() { return report_facts().nodes_seen; }

std::optional<std::size_t> nodes_examined() {
  const auto& examination = report_facts().examination;
  return examination ? std::optional(examination->nodes_examined) : std::nullopt;
}

std::vector<std::string> examined_nodes() {
  const auto& examination = report_facts().examination;
  return examination ? examination->names : std::vector<std::string>();
}

std::optional<std::size_t> nodes_expected() {
  const auto& expectation = report_facts().expectation;
  return expectation ? std::optional(expectation->nodes_expected) : std::nullopt;
}

std::vector<std::string> nodes_not_examined() {
  const auto& expectation = report_facts().expectation;
  return expectation ? expectation->silent : std::vector<std::string>();
}

std::vector<std::string> nodes_not_expected() {
  const auto& expectation = report_facts().expectation;
  return expectation ? expectation->not_expected : std::vector<std::string>();
}

std::vector<Rack> racks() {
  std::vector<Rack> racks;
  racks.reserve(report_facts().racks.size());
  for (const auto& [name, nodes] : report_facts().racks) {
    racks.push_back({name, nodes});
  }
  return racks;
}

std::vector<Acknowledgement> acknowledgements() {
  const auto& acknowledged = report_facts().acknowledged;
  std::vector<Acknowledgement> entries;
  if (acknowledged) {
    for (const auto& entry : acknowledged->entries) {
      entries.push_back({entry.id, entry.nodes, entry.until, entry.reason, entry.by,
                         standalone::word_of(entry.state)});
    }
  }
  return entries;
}

std::vector<std::string> acknowledged_nodes() {
  const auto& acknowledged = report_facts().acknowledged;
  return acknowledged ? acknowledged->nodes : std::vector<std::string>();
}

std::optional<std::size_t> issues_acknowledged() {
  const auto& acknowledged = report_facts().acknowledged;
  return acknowledged && !acknowledged->is_ignored ? std::optional(acknowledged->issues)
                                                   : std::nullopt;
}

int severity(const postprocessor::CollapsedAnalysisOutput& issue) {
  return current_issue_facts == nullptr ? -1 : current_issue_facts->severity(issue);
}

Patterns patterns(const postprocessor::CollapsedAnalysisOutput& issue) {
  return current_issue_facts == nullptr ? Patterns{} : current_issue_facts->patterns(issue);
}

std::vector<Place> places(const postprocessor::CollapsedAnalysisOutput& issue) {
  return current_issue_facts == nullptr ? std::vector<Place>() : current_issue_facts->places(issue);
}

std::optional<Change> change(const postprocessor::CollapsedAnalysisOutput& issue) {
  return current_issue_facts == nullptr ? std::nullopt : current_issue_facts->change(issue);
}

std::optional<std::int64_t> first_seen(const postprocessor::CollapsedAnalysisOutput& issue) {
  return current_issue_facts == nullptr ? std::nullopt : current_issue_facts->first_seen(issue);
}

std::optional<Since> since() {
  return current_issue_facts == nullptr ? std::nullopt : current_issue_facts->since();
}

void for_each_finding(const std::function<void(const Finding&)>& visit) {
  if (current_issue_facts != nullptr) {
    current_issue_facts->for_each_finding(visit);
  }
}

}  // namespace facts
}  // namespace vond
