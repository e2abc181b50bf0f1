#pragma once

#include <cstddef>
#include <ctime>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "standalone/acknowledged/acknowledgement.h"

namespace vond::standalone {

/// What the entries of a file cover at one time. A pair of a finding and a node is covered by
/// entries of its id and, where it is no diagnosis, by diagnoses that rest on it.
class AcknowledgementCoverage {
 public:
  /// Keeps a reference to `entries`.
  AcknowledgementCoverage(const std::vector<Acknowledgement>& entries, std::time_t at);

  /// Numbers of entries, in the order of the file.
  using Entries = std::vector<std::size_t>;

  /// Returns the entries of that id: those that hold, and those that held once.
  const Entries& holding(std::string_view id) const { return find(holding_, id); }
  const Entries& expired(std::string_view id) const { return find(expired_, id); }

  /// Tells of a diagnosis on a node, "" for one without nodes. Where it is acknowledged with its
  /// observations these are covered, too.
  void add_diagnosis(std::string_view id, int severity, std::string_view node,
                     const std::vector<std::string_view>& based_on);

  /// Whether an entry of its own covers a finding on a node, "" for one without nodes.
  bool covers(std::string_view id, int severity, std::string_view node) const;

  /// Whether a diagnosis covers an observation, or a check without data, on a node. Ask when all
  /// diagnoses were told.
  bool covers_with_diagnosis(std::string_view id, int severity, std::string_view node) const;

  /// Whether covers_with_diagnosis() may be true, whatever diagnoses there are.
  bool may_cover_with_diagnosis(int severity, std::string_view node) const;

 private:
  using EntriesById = std::unordered_map<std::string_view, Entries>;
  /// The highest severity that is covered, by node.
  using LimitByNode = std::map<std::string, int, std::less<>>;

  static const Entries& find(const EntriesById& entries, std::string_view id);

  const std::vector<Acknowledgement>& entries_;
  EntriesById holding_;
  EntriesById expired_;
  /// Those that hold and cover observations with their diagnosis.
  std::vector<const Acknowledgement*> with_observations_;
  /// What diagnoses cover, by the ids of observations.
  std::map<std::string, LimitByNode, std::less<>> observations_;
};

}  // namespace vond::standalone
