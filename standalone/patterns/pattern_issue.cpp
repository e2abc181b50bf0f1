#include "standalone/patterns/pattern_issue.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <span>
#include <tuple>
#include <utility>

#include "standalone/nodes/number_sorting.h"
#include "standalone/patterns/text_marks.h"
#include "standalone/patterns/text_pattern.h"
#include "standalone/text/utc_time.h"

namespace vond::standalone {
namespace {

template <typename Item>
void append(std::vector<Item>& items, std::span<const Item> more) {
  items.insert(items.end(), more.begin(), more.end());
}

/// The one node of several mentions, if it is one.
class OnlyNode {
 public:
  static constexpr std::uint32_t NONE = static_cast<std::uint32_t>(-1);

  void mention(std::uint32_t node) {
    is_several_ = is_several_ || (node_ != NONE && node_ != node);
    node_ = node;
  }
  std::uint32_t get() const { return is_several_ ? NONE : node_; }

 private:
  std::uint32_t node_ = NONE;
  bool is_several_ = false;
};

std::vector<std::string_view> values_of(const PatternGroup& group, PatternGroup::Entry entry,
                                        const ValueTable& table) {
  std::vector<std::string_view> values;
  for (std::size_t column = 0; column < group.places() + (group.has_name() ? 1 : 0); ++column) {
    values.push_back(table[group.value(entry, column)]);
  }
  return values;
}

bool holds_name(const PatternGroup& group, PatternGroup::Entry entry, const ValueTable& table) {
  if (group.has_name()) {
    return true;
  }
  const auto values = values_of(group, entry, table);
  return group.has_value_with_name() &&
         std::any_of(values.begin(), values.end(), text_marks::holds_name);
}

/// Returns how much of a pattern stands before its first place or name.
std::size_t literal_size(std::string_view pattern) {
  std::size_t at = 0;
  while (at < pattern.size() && pattern[at] != text_marks::NAME &&
         pattern[at] != text_marks::PLACE) {
    at += pattern[at] == text_marks::ESCAPE ? 2 : 1;
  }
  return at;
}

/// Puts names and values in place of the marks of a group's pattern where they do not differ.
class Resolver {
 public:
  Resolver(const PatternGroup& group, const ValueTable& table, const NodeNames& node_names)
      : group_(group), table_(table), node_names_(node_names), only_nodes_(group.places()) {
    find_nodes();
  }

  std::uint32_t only_node(std::size_t place) const { return only_nodes_[place].get(); }

  /// The value that every entry has at a place, as marked text; nothing when they differ.
  std::optional<std::string> only_value(std::size_t place) const {
    const std::string first = resolved(0, place);
    for (PatternGroup::Entry entry = 1; entry < group_.entries(); ++entry) {
      if (group_.value(entry, place) == group_.value(0, place)) {
        continue;
      }
      if (!group_.has_value_with_name() || resolved(entry, place) != first) {
        return std::nullopt;
      }
    }
    return first;
  }

  /// What NODE is that stands outside of the places as the `number`th.
  std::string name(std::size_t number) const {
    if (only_name_.get() == OnlyNode::NONE) {
      return {text_marks::NAME};
    }
    bool is_short = true;
    for (PatternGroup::Entry entry = 0; is_short && entry < group_.entries(); ++entry) {
      const std::string_view written = table_[group_.value(entry, group_.places())];
      is_short = written[number] == text_marks::SHORT_NAME;
    }
    const std::string_view full_name = node_names_(only_name_.get());
    std::string marked;
    text_marks::append_marked(marked, is_short ? text_marks::short_form(full_name) : full_name);
    return marked;
  }

 private:
  void find_nodes() {
    if (!group_.has_name() && !group_.has_value_with_name()) {
      return;
    }
    group_.for_each([this](const PatternGroup::Occurrence& finding) {
      if (group_.has_name()) {
        only_name_.mention(finding.nodes[0]);
      }
      if (!group_.has_value_with_name()) {
        return;
      }
      for (std::size_t place = 0; place < only_nodes_.size(); ++place) {
        if (text_marks::holds_name(table_[group_.value(finding.entry, place)])) {
          only_nodes_[place].mention(finding.nodes[0]);
        }
      }
    });
  }

  std::string resolved(PatternGroup::Entry entry, std::size_t place) const {
    std::string marked;
    text_marks::append_resolved(
        marked, table_[group_.value(entry, place)],
        only_node(place) == OnlyNode::NONE ? std::string_view() : node_names_(only_node(place)));
    return marked;
  }

  const PatternGroup& group_;
  const ValueTable& table_;
  const NodeNames& node_names_;
  std::vector<OnlyNode> only_nodes_;
  OnlyNode only_name_;
};

}  // namespace

PatternIssue::PatternIssue(std::string pattern, PatternGroup group, const ValueTable& table,
                           const NodeNames& node_names)
    : table_(&table) {
  parts_.push_back({std::move(pattern), std::move(group), {}});
  if (parts_[0].group.places() > 0 || parts_[0].group.has_name()) {
    write_key(node_names);
  }
}

/// Writes the key of an issue of one part, and finds what differs in it.
void PatternIssue::write_key(const NodeNames& node_names) {
  auto& [pattern, group, open] = parts_[0];
  const Resolver resolver(group, *table_, node_names);
  std::size_t place = 0;
  std::size_t name = 0;
  key_.reserve(pattern.size());
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    if (pattern[at] == text_marks::NAME) {
      key_ += resolver.name(name++);
    } else if (pattern[at] == text_marks::PLACE) {
      const auto value = resolver.only_value(place);
      key_ += value.value_or(std::string(1, text_marks::PLACE));
      if (!value) {
        open.push_back({place, resolver.only_node(place)});
      }
      ++place;
    } else {
      const std::size_t size = literal_size(std::string_view(pattern).substr(at));
      key_.append(pattern, at, size);
      at += size - 1;
    }
  }
}

/// Returns the texts of findings that do not name their own node.
std::vector<std::string> PatternIssue::texts_without_name(const Part& part,
                                                          PatternGroup::Entry entry) const {
  return original_texts(part.pattern, values_of(part.group, entry, *table_), {});
}

void PatternIssue::merge(PatternIssue other) {
  std::move(other.parts_.begin(), other.parts_.end(), std::back_inserter(parts_));
}

std::vector<OriginalTexts> PatternIssue::originals(const NodeNames& node_names) const {
  using Time = std::optional<std::time_t>;
  std::map<std::tuple<std::vector<std::string>, int, std::string_view, bool, Time>, OriginalTexts>
      originals;
  for (const Part& part : parts_) {
    // An entry with NODE is a text for each node.
    std::map<std::tuple<PatternGroup::Entry, std::uint32_t, bool, Time>, OriginalTexts*> known;
    part.group.for_each([&](const PatternGroup::Occurrence& finding) {
      const bool has_name = holds_name(part.group, finding.entry, *table_);
      const std::uint32_t node = has_name ? finding.nodes[0] : NO_NODE;
      // What names no node would be lost among the nodes of the others.
      const bool names_nodes = !finding.nodes.empty();
      OriginalTexts*& original = known[{finding.entry, node, names_nodes, finding.first_seen}];
      if (original == nullptr) {
        const std::string_view name = has_name ? node_names(node) : std::string_view();
        const auto values = values_of(part.group, finding.entry, *table_);
        // By the name, for the node's number is in the order of the input.
        original =
            &originals[{original_texts(part.pattern, values, name),
                        part.group.severity(finding.entry), name, names_nodes, finding.first_seen}];
      }
      original->count += finding.count;
      original->first_seen = finding.first_seen;
      append(original->nodes, finding.nodes);
      append(original->row_ids, finding.row_ids);
    });
  }
  std::vector<OriginalTexts> sorted;
  for (auto& [said, original] : originals) {
    sort_unique(original.nodes);
    sort_unique(original.row_ids);
    original.texts = std::get<0>(said);
    original.severity = std::get<1>(said);
    sorted.push_back(std::move(original));
  }
  return sorted;
}

std::optional<std::time_t> PatternIssue::first_seen() const {
  std::optional<std::time_t> first;
  for (const Part& part : parts_) {
    first = earliest(first, part.group.first_seen());
  }
  return first;
}

std::vector<std::uint32_t> PatternIssue::nodes() const {
  std::vector<std::uint32_t> nodes;
  for (const Part& part : parts_) {
    part.group.for_each(
        [&nodes](const PatternGroup::Occurrence& finding) { append(nodes, finding.nodes); });
  }
  sort_unique(nodes);
  return nodes;
}

bool PatternIssue::has_several_nodes() const {
  OnlyNode only;
  bool has_nodes = false;
  for (const Part& part : parts_) {
    part.group.for_each([&](const PatternGroup::Occurrence& finding) {
      for (const std::uint32_t node : finding.nodes) {
        only.mention(node);
        has_nodes = true;
      }
    });
  }
  return has_nodes && only.get() == OnlyNode::NONE;
}

}  // namespace vond::standalone
