#include "standalone/report/issue_sightings.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "standalone/model/severity_scale.h"
#include "standalone/patterns/text_marks.h"
#include "standalone/patterns/text_pattern.h"
#include "standalone/text/ascii.h"

namespace vond::standalone {
namespace {

using Number = SeenNames::Number;

/// The patterns that the texts of findings have on one node or another. A node's own name is a
/// value there, however many nodes the finding has: what is left of these differs from run to run.
class NodePatterns {
 public:
  explicit NodePatterns(SeenNames& names) : names_(names) {}

  void read(std::string message, std::string remedy) {
    message_ = std::move(message);
    remedy_ = std::move(remedy);
    text_.read({}, {message_, remedy_});
    common_ = names_.pattern(text_.pattern());
    has_digits_ = !text_.values().empty();
  }

  Number on(std::string_view node) {
    // Without a node every word with a digit is a value.
    if (!has_digits_ && has_digit(text_marks::short_form(node))) {
      return common_;
    }
    if (!TextPattern::may_name(message_, node) && !TextPattern::may_name(remedy_, node)) {
      return common_;
    }
    text_.read(node, {message_, remedy_});
    return names_.pattern(text_.pattern());
  }

 private:
  SeenNames& names_;
  TextPattern text_;
  std::string message_;
  std::string remedy_;
  Number common_ = 0;
  bool has_digits_ = false;
};

/// Gathers the sightings of an issue, one for each node and pattern as far as they come together.
class SightingCollector {
 public:
  SightingCollector(const StringInterner& node_names, SeenNames& names)
      : node_names_(node_names), names_(names), patterns_(names) {
    nodes_.reserve(node_names.size());
    for (StringInterner::Id id = 0; id < node_names.size(); ++id) {
      nodes_.push_back(names.node(node_names[id]));
    }
    places_.resize(names.nodes());
  }

  void add(const PatternIssue& findings) {
    const std::string* last = nullptr;
    Number pattern = 0;
    findings.for_each_with_pattern([&](const std::string& text, const auto& finding, auto texts) {
      if (&text != last) {
        pattern = names_.pattern(text);
        last = &text;
      }
      const std::time_t time = finding.first_seen.value_or(UNKNOWN_TIME);
      if (finding.nodes.size() > 1 && !are_one(finding.nodes)) {
        std::vector<std::string> original = texts();
        patterns_.read(std::move(original[0]), std::move(original[1]));
        add_with_own_patterns(finding.nodes, time);
      } else {
        add_node(finding.nodes.empty() ? SeenNames::NO_NODE : nodes_[finding.nodes[0]], pattern,
                 time);
      }
    });
  }

  void add(const CollapsedOutput& output) {
    patterns_.read(output.texts.message, output.texts.remedy);
    const std::time_t time = output.first_seen.value_or(UNKNOWN_TIME);
    add_with_own_patterns(output.nodes, time);
    if (output.has_finding_without_node) {
      add_node(SeenNames::NO_NODE, patterns_.on({}), time);
    }
  }

  std::vector<Sighting> take() {
    ++turn_;
    return std::exchange(sightings_, {});
  }

 private:
  /// Where the last sighting of a node stands.
  struct Place {
    std::size_t turn = 0;
    std::size_t sighting = 0;
  };

  static bool are_one(std::span<const std::uint32_t> nodes) {
    return std::all_of(nodes.begin(), nodes.end(),
                       [&](std::uint32_t node) { return node == nodes.front(); });
  }

  void add_with_own_patterns(std::span<const std::uint32_t> nodes, std::time_t first_seen) {
    for (const std::uint32_t node : nodes) {
      add_node(nodes_[node], patterns_.on(node_names_[node]), first_seen);
    }
  }

  void add_node(Number node, Number pattern, std::time_t first_seen) {
    Place& place = places_[node];
    if (place.turn == turn_ && sightings_[place.sighting].pattern == pattern) {
      std::time_t& known = sightings_[place.sighting].first_seen;
      known = std::min(known, first_seen);
      return;
    }
    place = {turn_, sightings_.size()};
    sightings_.push_back({node, pattern, first_seen});
  }

  const StringInterner& node_names_;
  SeenNames& names_;
  NodePatterns patterns_;
  /// By the collapser's numbers.
  std::vector<Number> nodes_;
  /// By node.
  std::vector<Place> places_;
  std::size_t turn_ = 1;
  std::vector<Sighting> sightings_;
};

}  // namespace

std::vector<SeenIssue> sightings_of(const std::vector<CollapsedIssue>& issues,
                                    const StringInterner& node_names, SeenNames& names) {
  SightingCollector collector(node_names, names);
  std::vector<SeenIssue> seen;
  seen.reserve(issues.size());
  for (const CollapsedIssue& issue : issues) {
    if (issue.findings) {
      collector.add(*issue.findings);
    } else {
      for (const CollapsedOutput& output : issue.outputs) {
        collector.add(output);
      }
    }
    seen.push_back({names.condition(issue.type, issue.id), band_of(issue.severity).upper_bound,
                    collector.take()});
  }
  return seen;
}

}  // namespace vond::standalone
