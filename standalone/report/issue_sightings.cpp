#include "standalone/report/issue_sightings.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "standalone/model/severity_scale.h"
#include "standalone/patterns/text_pattern.h"

namespace vond::standalone {
namespace {

using Number = SeenNames::Number;

/// Gathers the sightings of an issue, one for each node and pattern.
class SightingCollector {
 public:
  SightingCollector(const StringInterner& node_names, SeenNames& names) : names_(names) {
    nodes_.reserve(node_names.size());
    for (StringInterner::Id id = 0; id < node_names.size(); ++id) {
      nodes_.push_back(names.node(node_names[id]));
    }
    places_.resize(names.nodes());
  }

  void start_pattern(std::string_view pattern) {
    pattern_ = names_.pattern(pattern);
    ++turn_;
  }

  /// `nodes` are numbers of the collapser.
  void add(std::span<const std::uint32_t> nodes, std::optional<std::time_t> first_seen) {
    const std::time_t time = first_seen.value_or(UNKNOWN_TIME);
    for (const std::uint32_t node : nodes) {
      add_node(nodes_[node], time);
    }
    if (nodes.empty()) {
      add_node(SeenNames::NO_NODE, time);
    }
  }

  std::vector<Sighting> take() {
    ++turn_;
    return std::exchange(sightings_, {});
  }

 private:
  /// Where the sighting of a node and pattern stands.
  struct Place {
    std::size_t turn = 0;
    std::size_t sighting = 0;
  };

  void add_node(Number node, std::time_t first_seen) {
    Place& place = places_[node];
    if (place.turn == turn_) {
      std::time_t& known = sightings_[place.sighting].first_seen;
      known = std::min(known, first_seen);
      return;
    }
    place = {turn_, sightings_.size()};
    sightings_.push_back({node, pattern_, first_seen});
  }

  SeenNames& names_;
  /// By the collapser's numbers.
  std::vector<Number> nodes_;
  /// By node.
  std::vector<Place> places_;
  std::size_t turn_ = 0;
  Number pattern_ = 0;
  std::vector<Sighting> sightings_;
};

void collect(const PatternIssue& findings, SightingCollector& collector) {
  const std::string* last = nullptr;
  findings.for_each_with_pattern(
      [&](const std::string& pattern, const PatternGroup::Occurrence& finding) {
        if (&pattern != last) {
          collector.start_pattern(pattern);
          last = &pattern;
        }
        collector.add(finding.nodes, finding.first_seen);
      });
}

void collect(const CollapsedOutput& output, const StringInterner& node_names,
             SightingCollector& collector) {
  TextPattern text;
  text.read(output.distinct_nodes == 1 ? std::string_view(node_names[output.nodes[0]]) : "",
            {output.texts.message, output.texts.remedy});
  collector.start_pattern(text.pattern());
  collector.add(output.nodes, output.first_seen);
}

}  // namespace

std::vector<SeenIssue> sightings_of(const std::vector<CollapsedIssue>& issues,
                                    const StringInterner& node_names, SeenNames& names) {
  SightingCollector collector(node_names, names);
  std::vector<SeenIssue> seen;
  seen.reserve(issues.size());
  for (const CollapsedIssue& issue : issues) {
    if (issue.findings) {
      collect(*issue.findings, collector);
    } else {
      for (const CollapsedOutput& output : issue.outputs) {
        collect(output, node_names, collector);
      }
    }
    seen.push_back({names.condition(issue.type, issue.id), band_of(issue.severity).upper_bound,
                    collector.take()});
  }
  return seen;
}

}  // namespace vond::standalone
