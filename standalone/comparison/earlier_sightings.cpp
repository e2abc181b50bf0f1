#include "standalone/comparison/earlier_sightings.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vond::standalone {
namespace {

/// Whether `left` is the newer run; one without a time is the oldest.
bool is_newer(const RunSightings& left, const RunSightings& right) {
  if (left.time == UNKNOWN_TIME || right.time == UNKNOWN_TIME) {
    return left.time != UNKNOWN_TIME && right.time == UNKNOWN_TIME;
  }
  return left.time > right.time;
}

bool is_before(const EarlierSightings::Entry& left, const EarlierSightings::Entry& right) {
  return left.node < right.node;
}

}  // namespace

EarlierSightings::EarlierSightings(std::vector<RunSightings> runs) {
  std::stable_sort(runs.begin(), runs.end(), is_newer);
  if (!runs.empty()) {
    newest_ = runs.front().time;
  }
  for (auto first = runs.begin(); first != runs.end();) {
    // Which of two runs of one time comes first must not matter.
    const auto end = std::find_if(first, runs.end(),
                                  [&](const RunSightings& run) { return run.time != first->time; });
    std::for_each(first, end, [this](const RunSightings& run) { add(run); });
    std::for_each(first, end, [this](const RunSightings& run) { settle(run); });
    std::for_each(first, end, [](RunSightings& run) { run = {}; });
    first = end;
  }
  for (Table* const table : {&entries_, &acknowledged_}) {
    for (std::vector<Entry>& entries : *table) {
      // Most runs name nodes in one order.
      if (!std::is_sorted(entries.begin(), entries.end(), is_before)) {
        std::sort(entries.begin(), entries.end(), is_before);
      }
    }
  }
}

void EarlierSightings::add(const RunSightings& run) {
  for (const SeenIssue& issue : run.issues) {
    add(issue, run.time, entries_);
  }
  for (const SeenIssue& issue : run.acknowledged) {
    add(issue, run.time, acknowledged_);
  }
}

void EarlierSightings::add(const SeenIssue& issue, std::time_t run_time, Table& table) const {
  if (issue.condition >= table.size()) {
    table.resize(issue.condition + std::size_t{1});
  }
  for (const auto& [node, pattern, first_seen] : issue.sightings) {
    if (!is_settled(node)) {
      const bool is_known = first_seen != UNKNOWN_TIME;
      table[issue.condition].push_back(
          {node, pattern, issue.band, is_known ? first_seen : run_time});
    }
  }
}

void EarlierSightings::settle(const RunSightings& run) {
  if (run.examined) {
    for (const SeenNames::Number node : *run.examined) {
      settle(node);
    }
    return;
  }
  for (const auto* issues : {&run.issues, &run.acknowledged}) {
    for (const SeenIssue& issue : *issues) {
      for (const Sighting& sighting : issue.sightings) {
        settle(sighting.node);
      }
    }
  }
}

void EarlierSightings::settle(SeenNames::Number node) {
  if (node >= settled_.size()) {
    settled_.resize(std::max<std::size_t>(node + std::size_t{1}, 2 * settled_.size()));
  }
  settled_[node] = 1;
}

std::span<const EarlierSightings::Entry> EarlierSightings::find(const Table& table,
                                                                SeenNames::Number condition) {
  return condition < table.size() ? std::span<const Entry>(table[condition])
                                  : std::span<const Entry>();
}

std::time_t EarlierSightings::first_seen(SeenNames::Number condition,
                                         SeenNames::Number node) const {
  std::time_t earliest = UNKNOWN_TIME;
  for (const Table* const table : {&entries_, &acknowledged_}) {
    const std::span<const Entry> entries = find(*table, condition);
    const auto [begin, end] = std::equal_range(entries.begin(), entries.end(),
                                               Entry{node, 0, 0, UNKNOWN_TIME}, is_before);
    for (auto entry = begin; entry != end; ++entry) {
      earliest = std::min(earliest, entry->first_seen);
    }
  }
  return earliest;
}

}  // namespace vond::standalone
