#pragma once

#include <cstddef>
#include <ctime>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "standalone/acknowledged/acknowledgement.h"
#include "standalone/acknowledged/acknowledgement_coverage.h"
#include "standalone/comparison/comparison.h"
#include "standalone/facts/report_facts.h"
#include "standalone/report/check_run.h"
#include "standalone/report/report_record.h"
#include "vond/facts/run_facts.h"

namespace vond::standalone {

/// The earlier runs that a run is compared with, and what differs.
class RunHistory {
 public:
  /// `acknowledged` holds, or held, at times; `written_at` is the report's time.
  RunHistory(std::vector<Acknowledgement> acknowledged, std::time_t written_at)
      : acknowledged_(std::move(acknowledged)), written_at_(written_at) {}

  /// Takes the issues out of an earlier run, which has one input and was read with all that is
  /// acknowledged.
  void add_earlier(CheckRun& run);

  /// To number what the run's record says was seen.
  SeenNames& names() { return names_; }

  /// Compares `run`, whose record took sightings with names(), with all earlier ones. To be called
  /// once; everything below needs it.
  void compare(const CheckRun& run, ReportRecord& record);

  /// Returns what has become of the issue of this number.
  facts::Change change(std::size_t number) const;

  /// Returns when the issue of this number was first seen on one of its nodes, where that is known.
  std::optional<std::time_t> first_seen(std::size_t number) const;

  facts::Since since() const;

  Changes summary() const;

  /// Whether the issue is no worse than it was: it is the same or better.
  bool is_known(std::size_t number) const;
  /// Whether no node had the issue's type and id.
  bool is_new(std::size_t number) const;

  using NodesByTime = std::map<std::optional<std::time_t>, std::vector<std::string>>;

  /// Returns nodes, in their order, by the time when a type and id were first seen there: before
  /// this run or, as this run says of all of them, at `time`; no time where nothing tells. For no
  /// node the one time of what names none.
  NodesByTime by_first_seen(postprocessor::TypeCode type, const std::string& id,
                            const std::vector<std::string>& nodes,
                            std::optional<std::time_t> time) const;

 private:
  using Numbers = std::vector<SeenNames::Number>;

  void add_remarks(const ReportFacts& facts);
  RunSightings sightings_of_run(const CheckRun& run);
  void set_acknowledged_apart(const std::vector<CollapsedIssue>& issues, RunSightings& run) const;
  void tell_diagnosis(const CollapsedIssue& issue, const SeenIssue& seen,
                      AcknowledgementCoverage& coverage) const;
  std::vector<Sighting> take_covered(SeenIssue& issue,
                                     const AcknowledgementCoverage& coverage) const;
  std::vector<std::string> node_names(const Numbers& nodes) const;
  std::vector<facts::PastIssue> past_issues(const std::vector<PastCondition>& conditions) const;
  Changes::Item item_of_issue(std::size_t number) const;
  Changes::Kind issues_of_kind(Change change) const;
  Changes::Kind gone() const;
  std::size_t count_issues(Change change) const;

  std::vector<Acknowledgement> acknowledged_;
  std::time_t written_at_;
  SeenNames names_;
  std::vector<RunSightings> runs_;
  std::vector<std::string> remarks_;
  std::optional<EarlierSightings> earlier_;
  /// The conditions and bands of the run's issues.
  std::vector<SeenIssue> issues_;
  Comparison comparison_;
};

}  // namespace vond::standalone
