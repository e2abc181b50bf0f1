#include "standalone/report/run_history.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "standalone/facts/verdict.h"
#include "standalone/model/type_names.h"
#include "standalone/report/facts_of_run.h"
#include "standalone/report/issue_sightings.h"
#include "standalone/text/messages.h"
#include "standalone/text/utc_time.h"

namespace vond::standalone {
namespace {

std::optional<std::time_t> known(std::time_t time) {
  return time == UNKNOWN_TIME ? std::nullopt : std::optional(time);
}

/// Returns when the oldest of a run's findings were collected.
std::time_t time_of(const CheckRun& run) {
  std::optional<std::time_t> oldest;
  for (std::size_t i = 0; i < run.inputs().size(); ++i) {
    const auto collected = run.collected()[i].oldest();
    oldest = earliest(oldest, collected ? collected : run.inputs()[i].changed_at);
  }
  return oldest.value_or(UNKNOWN_TIME);
}

std::string_view word_of(Change change) {
  switch (change) {
    case Change::NEW:
      return "new";
    case Change::WORSE:
      return "worse";
    case Change::REWORDED:
      return "reworded";
    case Change::BETTER:
      return "better";
    case Change::SAME:
      break;
  }
  return "same";
}

}  // namespace

void RunHistory::add_earlier(CheckRun& run) {
  const ReportFacts facts = facts_of_reading(run, written_at_);
  add_remarks(facts);
  RunSightings sightings = sightings_of_run(run);
  const std::vector<CollapsedIssue> issues = run.collapser().finish();
  sightings.issues = sightings_of(issues, run.collapser().node_names(), names_);
  set_acknowledged_apart(issues, sightings);
  runs_.push_back(std::move(sightings));
}

/// Notes what makes the earlier run, of one input, incomplete.
void RunHistory::add_remarks(const ReportFacts& facts) {
  const std::string& name = facts.inputs.front().name;
  if (facts.inputs.front().is_cut_off) {
    remarks_.push_back(name + " is cut off");
  }
  if (facts.lines_rejected != 0) {
    remarks_.push_back(name + ": " + count_of(facts.lines_rejected, "line was", "lines were") +
                       " left out");
  }
  if (!facts.parts_twice.empty()) {
    remarks_.push_back(name + ": " + count_of(facts.parts_twice.size(), "part is", "parts are") +
                       " there twice");
  }
  if (facts.findings_read == 0 && !facts.examination) {
    remarks_.push_back(name + " has no findings, and does not tell who was examined");
  }
}

/// Sets apart what was acknowledged at the time of the run: where it still is, it takes no part,
/// and where it no longer is, it counts as new. `issues` are those of the run.
void RunHistory::set_acknowledged_apart(const std::vector<CollapsedIssue>& issues,
                                        RunSightings& run) const {
  if (acknowledged_.empty()) {
    return;
  }
  AcknowledgementCoverage coverage(acknowledged_,
                                   run.time == UNKNOWN_TIME ? written_at_ : run.time);
  for (std::size_t number = 0; number < issues.size(); ++number) {
    tell_diagnosis(issues[number], run.issues[number], coverage);
  }
  for (SeenIssue& issue : run.issues) {
    run.acknowledged.push_back({issue.condition, issue.band, take_covered(issue, coverage)});
  }
}

void RunHistory::tell_diagnosis(const CollapsedIssue& issue, const SeenIssue& seen,
                                AcknowledgementCoverage& coverage) const {
  if (issue.type != postprocessor::DIAGNOSES) {
    return;
  }
  const std::vector<std::string_view> based_on(issue.based_on.begin(), issue.based_on.end());
  for (const Sighting& sighting : seen.sightings) {
    coverage.add_diagnosis(issue.id, seen.band, names_.node_name(sighting.node), based_on);
  }
}

std::vector<Sighting> RunHistory::take_covered(SeenIssue& issue,
                                               const AcknowledgementCoverage& coverage) const {
  const auto [type, id] = names_.condition(issue.condition);
  const bool is_diagnosis = type == postprocessor::DIAGNOSES;
  const auto is_left = [&, id = id](const Sighting& sighting) {
    const std::string& node = names_.node_name(sighting.node);
    return !coverage.covers(id, issue.band, node) &&
           (is_diagnosis || !coverage.covers_with_diagnosis(id, issue.band, node));
  };
  auto& sightings = issue.sightings;
  const auto covered = std::stable_partition(sightings.begin(), sightings.end(), is_left);
  std::vector<Sighting> taken(covered, sightings.end());
  sightings.erase(covered, sightings.end());
  return taken;
}

/// Returns what a run tells beside its issues.
RunSightings RunHistory::sightings_of_run(const CheckRun& run) {
  RunSightings sightings;
  sightings.time = time_of(run);
  if (run.examination().is_known()) {
    sightings.examined.emplace();
    for (const std::string& node : run.examination().examined_names()) {
      sightings.examined->push_back(names_.node(node));
    }
    if (verdict_doubts(facts_of_reading(run, written_at_)).empty()) {
      sightings.examined->push_back(SeenNames::NO_NODE);
    }
  }
  return sightings;
}

void RunHistory::compare(const CheckRun& run, ReportRecord& record) {
  earlier_.emplace(std::exchange(runs_, {}));
  RunSightings sightings = sightings_of_run(run);
  sightings.issues = record.take_sightings();
  if (const AcknowledgedFindings* const acknowledged = run.acknowledged()) {
    sightings.acknowledged =
        sightings_of(acknowledged->issues(), acknowledged->node_names(), names_);
  }
  comparison_ = standalone::compare(*earlier_, sightings, names_);
  issues_ = std::move(sightings.issues);
  for (SeenIssue& issue : issues_) {
    issue.sightings = {};
  }
}

std::vector<std::string> RunHistory::node_names(const Numbers& nodes) const {
  std::vector<std::string> names;
  names.reserve(nodes.size());
  for (const SeenNames::Number node : nodes) {
    if (node != SeenNames::NO_NODE) {
      names.push_back(names_.node_name(node));
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

facts::Change RunHistory::change(std::size_t number) const {
  const auto& [change, added, healed, first_seen] = comparison_.issues[number];
  return {std::string(word_of(change)), node_names(added), node_names(healed)};
}

std::optional<std::time_t> RunHistory::first_seen(std::size_t number) const {
  return known(comparison_.issues[number].first_seen);
}

facts::Since RunHistory::since() const {
  return {known(earlier_->newest()),
          count_issues(Change::NEW),
          count_issues(Change::WORSE),
          count_issues(Change::REWORDED),
          count_issues(Change::SAME),
          count_issues(Change::BETTER),
          past_issues(comparison_.gone),
          past_issues(comparison_.not_looked_at),
          node_names(comparison_.nodes_not_looked_at)};
}

std::vector<facts::PastIssue> RunHistory::past_issues(
    const std::vector<PastCondition>& conditions) const {
  std::vector<facts::PastIssue> issues;
  issues.reserve(conditions.size());
  for (const PastCondition& past : conditions) {
    const auto [type, id] = names_.condition(past.condition);
    issues.push_back({std::string(type_name(type)), std::string(id), node_names(past.nodes)});
  }
  return issues;
}

Changes RunHistory::summary() const {
  Changes changes;
  changes.time = known(earlier_->newest());
  changes.kinds = {issues_of_kind(Change::NEW),
                   issues_of_kind(Change::WORSE),
                   issues_of_kind(Change::REWORDED),
                   {std::string(word_of(Change::SAME)), count_issues(Change::SAME), {}},
                   {std::string(word_of(Change::BETTER)), count_issues(Change::BETTER), {}},
                   gone()};
  changes.not_looked_at = comparison_.not_looked_at.size();
  changes.nodes_not_looked_at = node_names(comparison_.nodes_not_looked_at);
  changes.remarks = remarks_;
  return changes;
}

std::size_t RunHistory::count_issues(Change change) const {
  return static_cast<std::size_t>(
      std::count_if(comparison_.issues.begin(), comparison_.issues.end(),
                    [change](const IssueChange& issue) { return issue.change == change; }));
}

Changes::Kind RunHistory::issues_of_kind(Change change) const {
  Changes::Kind kind{std::string(word_of(change)), count_issues(change), {}};
  for (std::size_t number = 0;
       number < comparison_.issues.size() && kind.items.size() < Changes::MOST_ITEMS; ++number) {
    if (comparison_.issues[number].change == change) {
      kind.items.push_back(item_of_issue(number));
    }
  }
  return kind;
}

Changes::Item RunHistory::item_of_issue(std::size_t number) const {
  const auto& [change, added, healed, first_seen] = comparison_.issues[number];
  const SeenIssue& issue = issues_[number];
  return {std::string(names_.condition(issue.condition).id), issue.band, node_names(added),
          node_names(healed), known(first_seen)};
}

Changes::Kind RunHistory::gone() const {
  Changes::Kind kind{"gone", comparison_.gone.size(), {}};
  for (const PastCondition& past : comparison_.gone) {
    if (kind.items.size() == Changes::MOST_ITEMS) {
      break;
    }
    kind.items.push_back({std::string(names_.condition(past.condition).id),
                          past.band,
                          {},
                          node_names(past.nodes),
                          known(past.first_seen)});
  }
  return kind;
}

bool RunHistory::is_known(std::size_t number) const {
  const Change change = comparison_.issues[number].change;
  return change == Change::SAME || change == Change::BETTER;
}

bool RunHistory::is_new(std::size_t number) const {
  return comparison_.issues[number].change == Change::NEW;
}

RunHistory::NodesByTime RunHistory::by_first_seen(postprocessor::TypeCode type,
                                                  const std::string& id,
                                                  const std::vector<std::string>& nodes,
                                                  std::optional<std::time_t> time) const {
  const auto condition = names_.find(type, id);
  const auto time_on = [&](std::optional<SeenNames::Number> node) {
    return condition && node ? earliest(time, known(earlier_->first_seen(*condition, *node)))
                             : time;
  };
  NodesByTime by_time;
  if (nodes.empty()) {
    by_time[time_on(SeenNames::NO_NODE)];
  }
  for (const std::string& name : nodes) {
    by_time[time_on(names_.find_node(name))].push_back(name);
  }
  return by_time;
}

}  // namespace vond::standalone
