#include "standalone/libvond_host/blocks/band_lines.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <unordered_map>

#include "standalone/text/messages.h"
#include "vond/postprocessor/string_interface.h"

namespace vond::standalone {
namespace {

using Issue = postprocessor::CollapsedAnalysisOutput;
using postprocessor::Type;

constexpr std::size_t MOST_LINES = 5;

enum class Kind { DIAGNOSIS, OBSERVATION, CHECK_WITHOUT_DATA };

/// Issues of one kind, those of one id together, in the order of the first of each id.
using Groups = std::vector<std::vector<const Issue*>>;

const std::set<std::shared_ptr<Issue>>& related(const Issue& issue, Type type) {
  static const std::set<std::shared_ptr<Issue>> none;
  const auto found = issue.related_issues.find(type);
  return found == issue.related_issues.end() ? none : found->second;
}

bool is_explained(const Issue& observation) {
  return !related(observation, Type::DIAGNOSIS).empty();
}

std::ptrdiff_t count_explained(const SeverityBand& band) {
  return std::count_if(band.observations->begin(), band.observations->end(),
                       [](const auto& issue) { return is_explained(*issue); });
}

std::string_view id_of(const Issue& issue) {
  return issue.outputs.empty() ? std::string_view() : issue.outputs.front()->identifier;
}

std::string on_one_line(const std::string& text) {
  return postprocessor::StringInterface().remove_endl(text);
}

Groups group_by_id(const IssueList& issues, Kind kind) {
  Groups groups;
  std::unordered_map<std::string_view, std::size_t> group_of_id;
  for (const auto& issue : issues) {
    if (kind == Kind::OBSERVATION && is_explained(*issue)) {
      continue;
    }
    const auto [group, is_new] = group_of_id.emplace(id_of(*issue), groups.size());
    if (is_new) {
      groups.emplace_back();
    }
    groups[group->second].push_back(issue.get());
  }
  return groups;
}

std::vector<std::string_view> distinct_messages(const std::vector<const Issue*>& issues) {
  std::vector<std::string_view> messages;
  for (const Issue* issue : issues) {
    for (const auto& output : issue->outputs) {
      messages.emplace_back(output->message);
    }
  }
  // The first one stays where it is: it is the one to show.
  if (messages.size() > 1) {
    std::sort(messages.begin() + 1, messages.end());
    messages.erase(std::unique(messages.begin() + 1, messages.end()), messages.end());
    messages.erase(std::remove(messages.begin() + 1, messages.end(), messages.front()),
                   messages.end());
  }
  return messages;
}

/// Returns "explains 8 observations on 13 nodes"; nothing when they explain none.
std::string explained_by(const std::vector<const Issue*>& diagnoses) {
  std::set<const Issue*> observations;
  NodeViews nodes;
  for (const Issue* diagnosis : diagnoses) {
    for (const auto& observation : related(*diagnosis, Type::OBSERVATION)) {
      if (observations.insert(observation.get()).second) {
        add_nodes(*observation, nodes);
      }
    }
  }
  if (observations.empty()) {
    return {};
  }
  return "explains " + count_of(observations.size(), "observation", "observations") +
         (nodes.empty() ? "" : " on " + count_of(nodes.size(), "node", "nodes"));
}

std::string text_of(const std::vector<const Issue*>& issues, Kind kind) {
  const std::vector<std::string_view> messages = distinct_messages(issues);
  std::vector<std::string> parts;
  if (kind == Kind::CHECK_WITHOUT_DATA) {
    parts.emplace_back("no data");
  }
  if (messages.size() > 1) {
    parts.push_back(std::to_string(messages.size()) + " wordings");
  }
  const std::string explained = kind == Kind::DIAGNOSIS ? explained_by(issues) : std::string();
  if (!explained.empty()) {
    parts.push_back(explained);
  } else if (!messages.empty() && !messages.front().empty()) {
    parts.push_back(on_one_line(std::string(messages.front())));
  }
  return join_with(parts, ": ");
}

IssueLine make_line(const std::vector<const Issue*>& issues, Kind kind) {
  NodeViews nodes;
  for (const Issue* issue : issues) {
    add_nodes(*issue, nodes);
  }
  return {.nodes = nodes.size(),
          .id = on_one_line(std::string(id_of(*issues.front()))),
          .text = text_of(issues, kind)};
}

/// Appends lines for the first `count` groups, and returns how many issues are in the others.
std::size_t append_lines(const Groups& groups, std::size_t count, Kind kind,
                         std::vector<IssueLine>& lines) {
  std::size_t others = 0;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (i < count) {
      lines.push_back(make_line(groups[i], kind));
    } else {
      others += groups[i].size();
    }
  }
  return others;
}

void append_count(std::size_t count, std::string_view singular, std::string_view plural,
                  std::vector<std::string>& counts) {
  if (count != 0) {
    counts.push_back(count_of(count, singular, plural));
  }
}

}  // namespace

BandLines choose_lines(const SeverityBand& band) {
  // 1. What there is to show.
  const Groups diagnoses = group_by_id(*band.diagnoses, Kind::DIAGNOSIS);
  const Groups observations = group_by_id(*band.observations, Kind::OBSERVATION);
  const Groups checks = group_by_id(*band.checks_without_data, Kind::CHECK_WITHOUT_DATA);

  // 2. Who gets the lines: the kinds in their order, but none without a line.
  const bool is_all = diagnoses.size() + observations.size() + checks.size() <= MOST_LINES;
  std::size_t room = is_all ? MOST_LINES : MOST_LINES - 1;
  const auto take = [&room](const Groups& groups, std::size_t kept_for_others) {
    const std::size_t taken = std::min(groups.size(), room - kept_for_others);
    room -= taken;
    return taken;
  };
  const std::size_t for_checks = checks.empty() ? 0 : 1;
  const std::size_t for_observations = observations.empty() ? 0 : 1;
  const std::size_t diagnoses_shown = take(diagnoses, for_observations + for_checks);
  const std::size_t observations_shown = take(observations, for_checks);
  const std::size_t checks_shown = take(checks, 0);

  // 3. The lines, and the counts of the rest.
  BandLines chosen;
  std::vector<std::string> rest;
  append_count(append_lines(diagnoses, diagnoses_shown, Kind::DIAGNOSIS, chosen.lines), "diagnosis",
               "diagnoses", rest);
  const std::size_t others =
      append_lines(observations, observations_shown, Kind::OBSERVATION, chosen.lines);
  if (count_explained(band) != 0) {
    append_count(others, "observation that nothing explains", "observations that nothing explains",
                 rest);
  } else {
    append_count(others, "observation", "observations", rest);
  }
  append_count(append_lines(checks, checks_shown, Kind::CHECK_WITHOUT_DATA, chosen.lines),
               "without data", "without data", rest);
  chosen.rest = join_with(rest, ", ");
  return chosen;
}

std::string count_issues(const SeverityBand& band) {
  std::vector<std::string> counts;
  append_count(band.diagnoses->size(), "diagnosis", "diagnoses", counts);
  append_count(band.observations->size(), "observation", "observations", counts);
  if (const auto explained = count_explained(band); explained != 0) {
    counts.back() += " (" + std::to_string(explained) + " explained)";
  }
  append_count(band.checks_without_data->size(), "without data", "without data", counts);
  return counts.empty() ? "none" : join_with(counts, ", ");
}

}  // namespace vond::standalone
