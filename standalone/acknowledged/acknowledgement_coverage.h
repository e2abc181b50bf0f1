#pragma once

#include <algorithm>
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

  /// Calls `visit` with the number of each entry of that id that holds and covers the severity on
  /// the node, "" for a finding without nodes.
  template <typename Visit>
  void for_each_holding(std::string_view id, int severity, std::string_view node,
                        const Visit& visit) const {
    for_each_in(holding_, id, severity, node, visit);
  }

  /// As above, of the entries that held once.
  template <typename Visit>
  void for_each_expired(std::string_view id, int severity, std::string_view node,
                        const Visit& visit) const {
    for_each_in(expired_, id, severity, node, visit);
  }

  /// Whether there are entries of that id, those that have expired included.
  bool knows(std::string_view id) const { return holding_.knows(id) || expired_.knows(id); }

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
  /// Numbers of entries, in the order of the file, to be found by id and node.
  class Index {
   public:
    void add(std::size_t number, const Acknowledgement& entry);
    bool knows(std::string_view id) const { return of_ids_.contains(id); }

    template <typename Visit>
    void for_each(std::string_view id, std::string_view node, const Visit& visit) const {
      const auto of_id = of_ids_.find(id);
      if (of_id == of_ids_.end()) {
        return;
      }
      std::for_each(of_id->second.everywhere.begin(), of_id->second.everywhere.end(), visit);
      const auto of_node = of_id->second.of_nodes.find(node);
      if (of_node != of_id->second.of_nodes.end()) {
        std::for_each(of_node->second.begin(), of_node->second.end(), visit);
      }
    }

   private:
    struct OfId {
      std::vector<std::size_t> everywhere;
      std::unordered_map<std::string_view, std::vector<std::size_t>> of_nodes;
    };

    std::unordered_map<std::string_view, OfId> of_ids_;
  };
  /// The highest severity that is covered, by node.
  using LimitByNode = std::map<std::string, int, std::less<>>;

  static constexpr int NOTHING_COVERED = -1;

  template <typename Visit>
  void for_each_in(const Index& index, std::string_view id, int severity, std::string_view node,
                   const Visit& visit) const {
    index.for_each(id, node, [&](std::size_t number) {
      if (severity <= entries_[number].up_to) {
        visit(number);
      }
    });
  }

  void note_with_observations(const Acknowledgement& entry);

  const std::vector<Acknowledgement>& entries_;
  Index holding_;
  Index expired_;
  /// The highest severity of entries that hold and cover observations with their diagnosis: of
  /// those of every node, and by node.
  int everywhere_with_observations_ = NOTHING_COVERED;
  std::unordered_map<std::string_view, int> with_observations_;
  /// What diagnoses cover, by the ids of observations.
  std::map<std::string, LimitByNode, std::less<>> observations_;
};

}  // namespace vond::standalone
