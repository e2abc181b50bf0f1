#include "fuzz/pattern_run.h"

#include <algorithm>
#include <cstddef>

#include "fuzz/oracle.h"
#include "standalone/patterns/text_marks.h"
#include "standalone/patterns/text_pattern.h"

namespace vond::fuzz {

using namespace standalone;

PatternRun::PatternRun(const std::vector<PatternFinding>& findings)
    : names_([this](std::uint32_t node) { return std::string_view(node_names_[node]); }) {
  for (const PatternFinding& finding : findings) {
    add(finding);
  }
  for (auto& [pattern, group] : groups_) {
    group.settle();
    PatternIssue issue(pattern, std::move(group), table_, names_);
    const std::string key = issue.key();
    const auto [place, is_new] = issues_.try_emplace(key, std::move(issue));
    if (!is_new) {
      place->second.merge(std::move(issue));
    }
  }
}

void PatternRun::add(const PatternFinding& finding) {
  const std::set<std::string> distinct(finding.nodes.begin(), finding.nodes.end());
  const std::string own = distinct.size() == 1 ? *distinct.begin() : "";
  TextPattern pattern;
  pattern.read(own, {finding.texts[0], finding.texts[1]});
  expect(original_texts(pattern.pattern(), pattern.values(), own) == finding.texts,
         "pattern and values to give back the texts", finding.texts[0] + "\t" + finding.texts[1]);
  expect(pattern.values().size() == count_values(pattern.pattern()),
         "a pattern to tell how many values it has", pattern.pattern());
  std::vector<ValueTable::Id> values;
  for (const std::string_view value : pattern.values()) {
    values.push_back(table_.id_of(value));
  }
  std::vector<std::uint32_t> nodes;
  for (const std::string& node : finding.nodes) {
    nodes.push_back(node_id(node));
  }
  PatternGroup& group =
      groups_.try_emplace(std::string(pattern.pattern()), pattern.pattern()).first->second;
  group.add(group.entry_of(values, 0, table_), nodes, std::vector<int>{finding.row_id});
}

std::uint32_t PatternRun::node_id(const std::string& name) {
  const auto found = std::find(node_names_.begin(), node_names_.end(), name);
  const auto id = static_cast<std::uint32_t>(found - node_names_.begin());
  if (found == node_names_.end()) {
    node_names_.push_back(name);
  }
  return id;
}

std::string PatternRun::write(const PatternIssue& issue) {
  IssueWriter writer;
  PatternSummaries summaries(table_, names_);
  std::size_t place = 0;
  const std::string& key = issue.key();
  for (std::size_t at = 0; at < key.size(); ++at) {
    if (key[at] == text_marks::PLACE) {
      PlaceUse values;
      for (const PlaceValue& value : summaries.values_at(issue, place++)) {
        ValueUse& use = values[std::string(value.text)];
        use.findings = value.findings;
        for (const std::uint32_t node : value.nodes) {
          use.nodes.insert(node_names_[node]);
        }
      }
      writer.place(values);
    } else if (key[at] == text_marks::TEXT_END) {
      writer.end_of_text();
    } else if (key[at] == text_marks::NAME) {
      writer.node();
    } else {
      at += key[at] == text_marks::ESCAPE ? 1 : 0;
      writer.literal(key.substr(at, 1));
    }
  }
  return writer.written();
}

std::vector<std::string> PatternRun::issues() {
  std::vector<std::string> written;
  for (const auto& [key, issue] : issues_) {
    written.push_back(write(issue));
  }
  std::sort(written.begin(), written.end());
  return written;
}

std::vector<std::vector<std::string>> PatternRun::shown_texts() {
  PatternSummaries summaries(table_, names_);
  std::vector<std::vector<std::string>> texts;
  for (const auto& [key, issue] : issues_) {
    texts.push_back(summaries.shown_texts(issue));
  }
  std::sort(texts.begin(), texts.end());
  return texts;
}

TextSources PatternRun::sources() {
  TextSources sources;
  for (const auto& [key, issue] : issues_) {
    for (const OriginalTexts& original : issue.originals(names_)) {
      TextSource& source = sources[original.texts];
      for (const std::uint32_t node : original.nodes) {
        source.nodes.insert(node_names_[node]);
      }
      source.row_ids.insert(original.row_ids.begin(), original.row_ids.end());
    }
  }
  return sources;
}

}  // namespace vond::fuzz
