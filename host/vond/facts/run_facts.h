#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "vond/host_api.h"
#include "vond/postprocessor/collapsed_analysis_output.h"

/// The version of these functions. It is raised when functions are added and when what one returns
/// changes its meaning; what is declared here never changes its layout.
#define VOND_FACTS_VERSION 4

/// What the record cannot carry: where a report comes from, how far it can be trusted, and what its
/// issues were made of. The stand-alone host exports these functions; other hosts need not have
/// them, so that an extension that uses them loads in hosts alone that do. They tell of the report
/// that the process is writing and may be called from an extension's `create` until it is deleted.
/// Texts are harmless, on one line, and UTF-8; lists of names are sorted, each name once.
namespace vond::facts {

/// Returns the VOND_FACTS_VERSION that the host was built with.
VOND_HOST_API int version();

/// Returns the version of the program, "1.2.3" for example.
VOND_HOST_API std::string tool_version();

/// Returns the report's time, in seconds since 1970-01-01 00:00:00 UTC.
VOND_HOST_API std::int64_t written_at();

/// Returns "PASS", "FAIL" or "UNKNOWN".
VOND_HOST_API std::string verdict();

/// Returns what puts a PASS in doubt, "2 of 48 expected nodes were not examined" for example. A
/// report that fails may have doubts, too.
VOND_HOST_API std::vector<std::string> doubts();

/// Where findings were read from.
struct Input {
  /// As the user named it; "standard input".
  std::string name;
  /// From its last change to the report's time, less than 0 when it is from the future. Nothing for
  /// what is no regular file.
  std::optional<std::int64_t> age_seconds;
};

/// What an input of more than this age, in seconds, tells may no longer be so.
inline constexpr std::int64_t OLD_AGE = std::int64_t{24} * 60 * 60;

/// By as many seconds the clocks of a cluster may differ before it is worth a warning.
inline constexpr std::int64_t CLOCK_DIFFERENCE = 60;

/// Returns the inputs in reading order.
VOND_HOST_API std::vector<Input> inputs();

/// Returns when the findings were collected, in seconds since 1970-01-01 00:00:00 UTC: the oldest
/// of those that tell it, by what they say where they were collapsed before, else by the last
/// change of their file. It is no later than the beginning of the report, for what came meanwhile
/// may be as old, but where the clock was ahead when findings were collapsed.
VOND_HOST_API std::int64_t collected_at();

/// Returns the parts of the cluster that findings come from, sorted, each as often as it came.
VOND_HOST_API std::vector<std::string> parts();

/// Whether nothing was lost on the way here: no input tells of itself that it was cut off, none of
/// several gave nothing, and each part of the cluster that the user expected has come. Lines that
/// were left out, nodes that were not examined and parts that came twice are told by the other
/// functions.
VOND_HOST_API bool has_whole_inputs();

/// Returns how many findings were read: the sum of their counts.
VOND_HOST_API std::uint64_t findings_read();

/// Returns how many lines were left out, here and where findings were collapsed before.
VOND_HOST_API std::uint64_t lines_rejected();

/// Returns how many distinct nodes findings name.
VOND_HOST_API std::size_t nodes_seen();

/// Returns how many nodes were examined, nothing when nobody told.
VOND_HOST_API std::optional<std::size_t> nodes_examined();

/// Returns the nodes that were examined; none when nobody told.
VOND_HOST_API std::vector<std::string> examined_nodes();

/// Returns how many nodes should have been examined, nothing when nobody told.
VOND_HOST_API std::optional<std::size_t> nodes_expected();

/// Returns the nodes that were expected and not examined; where nobody told which nodes were
/// examined, those that were expected and have no findings.
VOND_HOST_API std::vector<std::string> nodes_not_examined();

/// Returns the nodes that were examined and not expected.
VOND_HOST_API std::vector<std::string> nodes_not_expected();

/// Nodes that stand together.
struct Rack {
  std::string name;
  std::vector<std::string> nodes;
};

/// Returns the racks of the cluster as the user told them, in their order, each node in one at
/// most; none when nobody told.
VOND_HOST_API std::vector<Rack> racks();

/// What the user has acknowledged: findings of an id that are known on some nodes until some day.
struct Acknowledgement {
  std::string id;
  /// None for every node.
  std::vector<std::string> nodes;
  /// The last second in which it holds, in seconds since 1970-01-01 00:00:00 UTC.
  std::int64_t until = 0;
  std::string reason;
  /// Who says so, "" when nobody is named.
  std::string by;
  /// "active"; "expired", when it no longer held as the report was begun; "unused", when it held,
  /// its nodes were examined, and there is nothing that it covers. An active one may have ended
  /// while findings were read: `until` is less than written_at() then.
  std::string state;
};

/// An acknowledgement that ends within as many days warns.
inline constexpr std::int64_t ACKNOWLEDGEMENT_WARNING_DAYS = 7;

/// Returns what the user has acknowledged, in the order of the file. What an active entry covers is
/// no part of the record.
VOND_HOST_API std::vector<Acknowledgement> acknowledgements();

/// Returns how many issues there would be of what is acknowledged; nothing when nothing may be.
VOND_HOST_API std::optional<std::size_t> issues_acknowledged();

/// Returns the nodes of what is acknowledged, which may have issues of the record, too.
VOND_HOST_API std::vector<std::string> acknowledged_nodes();

/// Returns the issue's severity, 0 to 100, of which the record knows the band alone: the highest of
/// its findings; -1 for an issue that is none of the record's.
VOND_HOST_API int severity(const postprocessor::CollapsedAnalysisOutput& issue);

/// The texts of an issue with `<*>` where findings differ and `NODE` for the node of each.
struct Patterns {
  std::string message;
  std::string remedy;
};

/// Returns what the texts of all findings of the issue have in common; the issue's own texts where
/// findings were not collapsed by pattern.
VOND_HOST_API Patterns patterns(const postprocessor::CollapsedAnalysisOutput& issue);

/// A value that findings of an issue have in a place where they differ.
struct Value {
  /// As it stands in the findings, `NODE` for the node of each.
  std::string value;
  /// Those of the findings with this value.
  std::vector<std::string> nodes;
};

/// A place where the findings of an issue differ.
struct Place {
  /// "number", "time", "node" or "text".
  std::string kind;
  /// What stands behind every number, "C" in "84C"; may be empty.
  std::string unit;
  /// Each once; in the order of numbers and of times, else in natural order.
  std::vector<Value> values;
};

/// Returns the places in which the findings of the issue differ, those of the message before those
/// of the remedy, from left to right; none where findings were not collapsed by pattern. Works them
/// out at each call.
VOND_HOST_API std::vector<Place> places(const postprocessor::CollapsedAnalysisOutput& issue);

/// What has become of an issue since the earlier runs that it was compared with.
struct Change {
  /// "new", "worse", "reworded", "same" or "better".
  std::string change;
  /// Nodes that did not have its type and id.
  std::vector<std::string> nodes_added;
  /// Nodes that had its type and id, were examined, and have them no more.
  std::vector<std::string> nodes_healed;
};

/// Returns what has become of the issue; nothing when there was no earlier run.
VOND_HOST_API std::optional<Change> change(const postprocessor::CollapsedAnalysisOutput& issue);

/// Returns when the type and id of the issue were first seen on one of its nodes, in seconds since
/// 1970-01-01 00:00:00 UTC; nothing where that is not known.
VOND_HOST_API std::optional<std::int64_t> first_seen(
    const postprocessor::CollapsedAnalysisOutput& issue);

/// A type and id that an earlier run has seen and this one has not.
struct PastIssue {
  /// "diagnosis", "observation" or "missing_data".
  std::string type;
  std::string id;
  std::vector<std::string> nodes;
};

/// What has changed since earlier runs, beside the changes of issues.
struct Since {
  /// When the newest earlier run was, in seconds since 1970-01-01 00:00:00 UTC, where that is
  /// known.
  std::optional<std::int64_t> time;
  /// How many issues there are of each kind.
  std::size_t new_issues = 0;
  std::size_t worse = 0;
  std::size_t reworded = 0;
  std::size_t same = 0;
  std::size_t better = 0;
  /// All of their nodes were examined; the worst first.
  std::vector<PastIssue> gone;
  /// Not all of their nodes were examined; the worst first.
  std::vector<PastIssue> not_looked_at;
  /// Nodes that had something of which nobody knows whether they still have it.
  std::vector<std::string> nodes_not_looked_at;
};

/// Returns what has changed; nothing when there was no earlier run.
VOND_HOST_API std::optional<Since> since();

/// What findings say that differ in nodes and row ids alone, and were first seen at one time.
struct Finding {
  /// "diagnosis", "observation" or "missing_data".
  std::string type;
  std::string id;
  int severity = 0;
  std::string category;
  std::string message;
  std::string remedy;
  std::vector<std::string> definitions;
  std::vector<std::string> based_on;
  /// Sorted, each once. One node alone when the texts name it and it said so itself.
  std::vector<std::string> nodes;
  /// Ascending, each once.
  std::vector<int> row_ids;
  /// How many findings it stands for; 0 for further nodes of the one before.
  std::uint64_t count = 0;
  /// When the first of them was seen, in seconds since 1970-01-01 00:00:00 UTC, where that is
  /// known.
  std::optional<std::int64_t> first_seen = std::nullopt;
};

/// Calls `visit` with what all findings said, in an order that does not depend on theirs. Works
/// them out at each call. Throws std::logic_error unless the program was asked for the output
/// "findings": it has to keep them.
VOND_HOST_API void for_each_finding(const std::function<void(const Finding&)>& visit);

}  // namespace vond::facts
