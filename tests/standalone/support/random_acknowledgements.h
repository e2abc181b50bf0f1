#pragma once

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace vond::test {

/// Findings and acknowledgements that chance has made, of few ids and nodes, so that they meet.
/// input_without_acknowledged() says what the acknowledgements mean, pair by pair.
class RandomAcknowledgements {
 public:
  /// The days before and behind that of the report, which entries end with.
  static constexpr char DAY_BEFORE[] = "2025-11-20";
  static constexpr char DAY_BEHIND[] = "2025-11-22";

  explicit RandomAcknowledgements(unsigned seed) : random_(seed) {
    for (unsigned count = 1 + below(16); count != 0; --count) {
      findings_.push_back(make_finding());
      if (below(2) == 0) {
        say_again(findings_[below(static_cast<unsigned>(findings_.size()))]);
      }
    }
    for (unsigned count = 1 + below(4); count != 0; --count) {
      entries_.push_back(make_entry());
    }
    if (below(2) == 0) {
      other_lines_ = "{\"examined\": \"n[1-3]\"}\n";
    }
  }

  /// All lines of the findings.
  std::string input() const { return other_lines_ + lines_of(findings_); }

  /// The file of acknowledgements.
  std::string acknowledgements() const {
    std::string lines;
    for (const Entry& entry : entries_) {
      lines += R"({"id": ")" + entry.id + R"(", "nodes": )" +
               (entry.is_everywhere ? "\"*\"" : array_of(entry.nodes)) + R"(, "until": ")" +
               (entry.holds ? DAY_BEHIND : DAY_BEFORE) + R"(", "reason": "r", "up_to": ")" +
               BANDS[entry.band] + R"(", "with_observations": )" +
               (entry.with_observations ? "true" : "false") + "}\n";
    }
    return lines;
  }

  /// The lines that are left when each acknowledged node is taken out of each finding, and each
  /// finding of which no node is left.
  std::string input_without_acknowledged() const { return other_lines_ + lines_of(part(false)); }

  /// The other lines of findings.
  std::string acknowledged_input() const { return lines_of(part(true)); }

 private:
  static constexpr const char* BANDS[] = {"informational", "warning", "critical"};
  static constexpr const char* TYPES[] = {"observation", "diagnosis", "missing_data"};

  struct Finding {
    std::string id;
    unsigned type;
    unsigned band;
    std::string message;
    std::vector<std::string> nodes;
    std::vector<std::string> based_on;
    unsigned row_id;
    bool has_definition;
  };
  struct Entry {
    std::string id;
    std::vector<std::string> nodes;
    bool is_everywhere;
    bool holds;
    unsigned band;
    bool with_observations;

    bool covers(unsigned of_band, const std::string& node) const {
      return holds && of_band <= band &&
             (is_everywhere || std::find(nodes.begin(), nodes.end(), node) != nodes.end());
    }
  };

  unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

  std::string some_id() { return "id" + std::to_string(below(4)); }

  std::vector<std::string> some_nodes(unsigned least) {
    std::vector<std::string> nodes;
    for (unsigned count = least + below(3); count != 0; --count) {
      nodes.push_back("n" + std::to_string(1 + below(4)));
    }
    return nodes;
  }

  Finding make_finding() {
    const std::vector<std::string> messages = {"It is " + std::to_string(80 + below(3)) + "C hot.",
                                               "Port of n" + std::to_string(below(3)), "broken",
                                               "n1 and n2"};
    Finding finding{some_id(),     below(3), below(3), messages[below(4)],
                    some_nodes(0), {},       below(3), below(2) == 0};
    for (unsigned count = below(3); count != 0; --count) {
      finding.based_on.push_back(some_id());
    }
    return finding;
  }

  /// What is said of node after node is read in another way.
  void say_again(Finding finding) {
    for (unsigned count = 1 + below(4); count != 0; --count) {
      finding.row_id = below(3);
      finding.nodes = {"n" + std::to_string(1 + below(4))};
      findings_.push_back(finding);
    }
  }

  Entry make_entry() {
    const bool is_everywhere = below(4) == 0;
    return {some_id(), some_nodes(1), is_everywhere, below(4) != 0, below(3), below(2) == 0};
  }

  bool is_acknowledged(const Finding& finding, const std::string& node) const {
    return std::any_of(entries_.begin(), entries_.end(), [&](const Entry& entry) {
      return (entry.id == finding.id && entry.covers(finding.band, node)) ||
             is_acknowledged_by_diagnosis(finding, node, entry);
    });
  }

  bool is_acknowledged_by_diagnosis(const Finding& finding, const std::string& node,
                                    const Entry& entry) const {
    if (TYPES[finding.type] == std::string("diagnosis") || !entry.with_observations ||
        finding.band > entry.band) {
      return false;
    }
    return std::any_of(findings_.begin(), findings_.end(), [&](const Finding& diagnosis) {
      const std::vector<std::string> nodes = places_of(diagnosis);
      return TYPES[diagnosis.type] == std::string("diagnosis") && entry.id == diagnosis.id &&
             entry.covers(diagnosis.band, node) &&
             std::find(nodes.begin(), nodes.end(), node) != nodes.end() &&
             std::find(diagnosis.based_on.begin(), diagnosis.based_on.end(), finding.id) !=
                 diagnosis.based_on.end();
    });
  }

  static std::vector<std::string> places_of(const Finding& finding) {
    return finding.nodes.empty() ? std::vector<std::string>{""} : finding.nodes;
  }

  std::vector<Finding> part(bool acknowledged) const {
    std::vector<Finding> findings;
    for (Finding finding : findings_) {
      const std::vector<std::string> places = places_of(finding);
      finding.nodes.clear();
      bool is_there = false;
      for (const std::string& place : places) {
        if (is_acknowledged(finding, place) == acknowledged) {
          is_there = true;
          finding.nodes.insert(finding.nodes.end(), place.empty() ? 0 : 1, place);
        }
      }
      if (is_there) {
        findings.push_back(finding);
      }
    }
    return findings;
  }

  static std::string array_of(const std::vector<std::string>& texts) {
    std::string array;
    for (const std::string& text : texts) {
      array += (array.empty() ? "\"" : ", \"") + text + "\"";
    }
    return "[" + array + "]";
  }

  static std::string lines_of(const std::vector<Finding>& findings) {
    std::string lines;
    for (const Finding& finding : findings) {
      lines += R"({"id": ")" + finding.id + R"(", "severity": ")" + BANDS[finding.band] +
               R"(", "type": ")" + TYPES[finding.type] + R"(", "message": ")" + finding.message +
               R"(", "nodes": )" + array_of(finding.nodes) + R"(, "row_ids": [)" +
               std::to_string(finding.row_id) + R"(], "based_on": )" + array_of(finding.based_on) +
               (finding.has_definition ? R"(, "definitions": ["d/e"])" : "") + "}\n";
    }
    return lines;
  }

  std::minstd_rand random_;
  std::vector<Finding> findings_;
  std::vector<Entry> entries_;
  std::string other_lines_;
};

}  // namespace vond::test
