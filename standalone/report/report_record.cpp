#include "standalone/report/report_record.h"

#include <set>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "standalone/definitions/definition_tree.h"
#include "standalone/model/severity_scale.h"

namespace vond::standalone {

using postprocessor::ALL_OBSERVATIONS;
using postprocessor::DIAGNOSES;
using postprocessor::FAIL_BIT;
using postprocessor::SeverityMask;
using postprocessor::Type;
using postprocessor::TypeCode;

namespace {

/// Returns the mask of an issue without its type code.
unsigned band_mask(const CollapsedIssue& issue, int fail_threshold) {
  const SeverityBandBits band = band_of(issue.severity);
  return static_cast<unsigned>(band.severity) |
         postprocessor::fail_bit(band.upper_bound, fail_threshold);
}

/// Returns the type code under which issues of a type are counted.
unsigned count_code(TypeCode type) { return type == DIAGNOSES ? DIAGNOSES : ALL_OBSERVATIONS; }

using IssueCounts = decltype(Fwd::issue_counts);

/// Returns the counts of all definitions that issues name.
std::unordered_map<std::string_view, IssueCounts> count_by_definition(
    const std::vector<CollapsedIssue>& collapsed, int fail_threshold) {
  std::unordered_map<std::string_view, IssueCounts> counts;
  for (const CollapsedIssue& issue : collapsed) {
    const SeverityMask mask = band_mask(issue, fail_threshold) | count_code(issue.type);
    for (const std::string& name : issue.definitions) {
      ++counts[name][mask];
    }
  }
  return counts;
}

/// Returns the keys of a map, sorted.
template <typename Map>
std::set<typename Map::key_type> keys_of(const Map& map) {
  std::set<typename Map::key_type> keys;
  for (const auto& [key, value] : map) {
    keys.insert(key);
  }
  return keys;
}

/// Takes the texts and frees the node numbers, so that no two copies of an issue's nodes stay.
std::shared_ptr<analysis::AnalysisOutput> make_output(std::string id, CollapsedOutput& collapsed,
                                                      const StringInterner& node_names) {
  auto output = std::make_shared<analysis::AnalysisOutput>();
  output->identifier = std::move(id);
  auto& [message, remedy, category] = collapsed.texts;
  output->category = std::move(category);
  output->message = std::move(message);
  output->remedy = std::move(remedy);
  output->node_names.reserve(collapsed.nodes.size());
  for (const StringInterner::Id node : std::exchange(collapsed.nodes, {})) {
    output->node_names.push_back(node_names[node]);
  }
  output->row_ids = std::move(collapsed.row_ids);
  output->row_ids.shrink_to_fit();
  return output;
}

}  // namespace

Report::Report(Collapser& collapser, const RecordOptions& options) : Report() {
  std::vector<CollapsedIssue> collapsed = collapser.finish(options.collapse_by);
  issues_->resize(collapsed.size());
  record_.fail_threshold = options.fail_threshold;
  record_.line_width = options.line_width;
  record_.log_level = options.log_level;
  relate_issues(collapsed);
  index_issues(collapsed);
  hang_definitions(collapsed, options);
  fill_issues(std::move(collapsed), collapser.node_names());
}

Report::~Report() {
  for (Issue& issue : *issues_) {
    issue.related_issues.clear();
  }
}

bool Report::failed() const {
  return record_.counts_by_mask.at(FAIL_BIT | DIAGNOSES) != 0 ||
         record_.counts_by_mask.at(FAIL_BIT | ALL_OBSERVATIONS) != 0;
}

std::shared_ptr<Report::Issue> Report::issue(std::size_t number) const {
  return {issues_, &(*issues_)[number]};
}

void Report::relate_issues(const std::vector<CollapsedIssue>& collapsed) {
  std::unordered_map<std::string_view, std::vector<std::size_t>> observations;
  for (std::size_t number = 0; number < collapsed.size(); ++number) {
    if (collapsed[number].type != DIAGNOSES) {
      observations[collapsed[number].id].push_back(number);
    }
  }
  std::set<std::string> unknown;
  for (std::size_t number = 0; number < collapsed.size(); ++number) {
    for (const std::string& id : collapsed[number].based_on) {
      const auto found = observations.find(id);
      if (found == observations.end()) {
        unknown.insert(id);
      }
      if (found == observations.end() || collapsed[number].type != DIAGNOSES) {
        continue;
      }
      for (const std::size_t observation : found->second) {
        issue(number)->related_issues[Type::OBSERVATION].insert(issue(observation));
        issue(observation)->related_issues[Type::DIAGNOSIS].insert(issue(number));
      }
    }
  }
  unknown_based_on_.assign(unknown.begin(), unknown.end());
}

void Report::index_issues(const std::vector<CollapsedIssue>& collapsed) {
  // Extensions look all four up.
  for (const unsigned section : {0U, FAIL_BIT}) {
    record_.counts_by_mask[section | DIAGNOSES] = 0;
    record_.counts_by_mask[section | ALL_OBSERVATIONS] = 0;
  }
  record_.issues_by_mask = std::make_shared<postprocessor::IssuesByMask>();
  for (std::size_t number = 0; number < collapsed.size(); ++number) {
    const unsigned mask = band_mask(collapsed[number], record_.fail_threshold);
    const TypeCode type = collapsed[number].type;
    ++record_.counts_by_mask[(mask & FAIL_BIT) | count_code(type)];
    (*record_.issues_by_mask)[mask | type].push_back(issue(number));
  }
}

void Report::hang_definitions(const std::vector<CollapsedIssue>& collapsed,
                              const RecordOptions& options) {
  auto counts = count_by_definition(collapsed, record_.fail_threshold);
  const std::set<std::string_view> names = keys_of(counts);
  DefinitionTree tree =
      options.definitions ? DefinitionTree(*options.definitions, names) : DefinitionTree(names);
  for (auto& [name, issue_counts] : counts) {
    tree[name].issue_counts = std::move(issue_counts);
  }
  tree.decide();
  record_.fwd_root = tree.hierarchy();
  unknown_definitions_ = tree.unknown_names();
}

void Report::fill_issues(std::vector<CollapsedIssue> collapsed, const StringInterner& node_names) {
  for (std::size_t number = 0; number < collapsed.size(); ++number) {
    CollapsedIssue& from = collapsed[number];
    Issue& to = (*issues_)[number];
    for (CollapsedOutput& output : from.outputs) {
      const bool is_last = &output == &from.outputs.back();
      to.outputs.push_back(make_output(is_last ? std::move(from.id) : from.id, output, node_names));
    }
    for (std::string& name : from.definitions) {
      to.fwd_names.insert(to.fwd_names.end(), std::move(name));
    }
  }
}

}  // namespace vond::standalone
