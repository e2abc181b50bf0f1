#pragma once

#include <cstddef>
#include <ctime>
#include <set>
#include <string>
#include <vector>

#include "standalone/acknowledged/acknowledgement.h"
#include "standalone/report/collapser.h"

namespace vond::standalone {

/// What was taken out of a run because it is acknowledged.
class AcknowledgedFindings {
 public:
  /// Entries hold for the whole run when they hold at `at`, however long the run takes.
  AcknowledgedFindings(std::vector<Acknowledgement> entries, std::time_t at,
                       CollapseBy collapse_by);

  /// In the order of the file.
  const std::vector<Acknowledgement>& entries() const { return entries_; }

  /// The time that decides which entries hold.
  std::time_t time() const { return at_; }
  bool holds(std::size_t entry) const { return entries_[entry].holds_at(at_); }

  /// Adds a finding on those of its nodes where it is acknowledged.
  void add(const Finding& finding) { collapser_.add(finding); }

  /// Notes that an entry, by its number, covers something; or that it would if it still held, and
  /// nothing else covers that.
  void note_use(std::size_t entry) { uses_[entry].covers = true; }
  void note_return(std::size_t entry) { uses_[entry].is_back = true; }

  bool is_used(std::size_t entry) const { return uses_[entry].covers; }
  bool is_back(std::size_t entry) const { return uses_[entry].is_back; }

  /// Makes issues of the findings, when all were added.
  void finish() { issues_ = collapser_.finish(); }

  /// The issues that a report on these findings alone would have, in its order. Needs this object.
  const std::vector<CollapsedIssue>& issues() const { return issues_; }
  /// The nodes of these issues.
  const StringInterner& node_names() const { return collapser_.node_names(); }

  /// Returns the ids of the issues that are no diagnoses.
  std::set<std::string, std::less<>> ids_of_observations() const;

 private:
  struct Use {
    bool covers = false;
    bool is_back = false;
  };

  std::vector<Acknowledgement> entries_;
  std::time_t at_;
  /// By the numbers of the entries.
  std::vector<Use> uses_;
  Collapser collapser_;
  std::vector<CollapsedIssue> issues_;
};

}  // namespace vond::standalone
