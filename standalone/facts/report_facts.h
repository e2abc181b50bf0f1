#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "standalone/facts/changes.h"

namespace vond::standalone {

/// What the host's report blocks tell beyond the record: where the report comes from and how far it
/// can be trusted. Lists of names are sorted, each name in them stands once.
struct ReportFacts {
  struct Input {
    /// As the user named it, made harmless; "standard input".
    std::string name;
    /// From the file's last change to the report's time, in seconds; less than 0 when it is from
    /// the future; without a value for what is no regular file. Of findings that were collapsed
    /// before, from when the oldest of them were collected.
    std::optional<std::int64_t> age = {};
    /// Not one of its lines could be used, be it that there is none.
    bool is_useless = false;
    /// It holds findings that were collapsed before, and not all of them.
    bool is_cut_off = false;
    /// Findings that were collapsed together before.
    struct Part {
      /// The parts of the cluster that they come from; none where they do not tell.
      std::vector<std::string> names;
      /// From when the oldest of them were collected, in seconds, as that of the input.
      std::int64_t age = 0;
    };
    /// In reading order.
    std::vector<Part> parts = {};
  };
  /// In reading order.
  std::vector<Input> inputs;
  /// The report's time.
  std::time_t written_at = 0;
  /// The report's width in terminal columns; 0 or less means no wrapping.
  int line_width = 0;

  std::size_t findings_read = 0;
  /// How many of these are acknowledged on all of their nodes.
  std::size_t findings_acknowledged = 0;
  /// The number of the others, which the verdict goes by.
  std::size_t findings_left() const { return findings_read - findings_acknowledged; }
  /// Findings, not issues, that name no definition.
  std::size_t findings_without_definition = 0;
  /// Lines that could not be used and are left out.
  std::size_t lines_rejected = 0;
  /// What was wrong with the first of them, "FILE:LINE:COLUMN: …", at most ten.
  std::vector<std::string> first_rejections;
  /// The parts of the cluster that findings come from, sorted, each as often as it came.
  std::vector<std::string> parts;
  /// When the oldest findings were collected, as far as inputs have an age; see vond::facts.
  std::time_t collected_at = 0;
  /// Parts of the cluster that came twice, whose findings count double; sorted.
  std::vector<std::string> parts_twice;
  /// Parts of the cluster that the user expected and that did not come; sorted.
  std::vector<std::string> parts_missing;
  /// What the user was warned of while reading: unknown keys, bytes that are no text.
  std::vector<std::string> warnings;
  /// Names that findings use and the definitions file lacks.
  std::vector<std::string> unknown_definitions;
  /// Ids that a `based_on` names and no observation has.
  std::vector<std::string> unknown_based_on;

  /// Number of distinct nodes that findings name.
  std::size_t nodes_seen = 0;
  /// Which nodes were examined, where the input tells.
  struct Examination {
    std::size_t nodes_examined = 0;
    /// Nodes that findings name although they were not examined.
    std::vector<std::string> not_examined_with_findings;
    /// Names of the examined ones.
    std::vector<std::string> names = {};
  };
  std::optional<Examination> examination;
  /// Which nodes were expected, where the user told.
  struct Expectation {
    std::size_t nodes_expected = 0;
    /// Expected, and not examined; where the input does not tell who was examined, expected nodes
    /// without findings.
    std::vector<std::string> silent;
    /// Examined, and not expected.
    std::vector<std::string> not_expected;
    /// Pairs of an expected and an examined name that may be one node: they differ in domain, case
    /// or zeros alone.
    std::vector<std::pair<std::string, std::string>> alike;
  };
  std::optional<Expectation> expectation;

  /// Nodes that stand together.
  struct Rack {
    std::string name;
    std::vector<std::string> nodes;
  };
  /// In the order of the user's file.
  std::vector<Rack> racks;

  /// What has changed, where there are earlier runs to compare with.
  std::optional<Changes> changes;
  /// What the user has acknowledged.
  struct Acknowledgement {
    /// See vond::facts::Acknowledgement. An active entry may have ended by the report's time.
    enum class State { ACTIVE, EXPIRED, UNUSED };

    std::string id;
    /// Empty for every node.
    std::vector<std::string> nodes;
    /// The last second in which it holds.
    std::time_t until = 0;
    std::string reason;
    /// "" when nobody is named.
    std::string by;
    State state = State::ACTIVE;
    /// It has expired, and what it covered is there.
    bool is_back = false;
  };
  struct Acknowledged {
    /// The user wants to see all the same what is acknowledged; nothing else is known then.
    bool is_ignored = false;
    /// How many issues there would be of what is acknowledged.
    std::size_t issues = 0;
    /// The nodes of what is acknowledged; sorted.
    std::vector<std::string> nodes = {};
    /// In the order of the file.
    std::vector<Acknowledgement> entries = {};
  };
  /// Without a value when nothing may be acknowledged.
  std::optional<Acknowledged> acknowledged;

  /// Whether any issue contributes to FAIL.
  bool failed = false;
};

}  // namespace vond::standalone
