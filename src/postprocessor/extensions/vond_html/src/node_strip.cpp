#include "node_strip.h"

#include <map>
#include <string>
#include <string_view>

#include "band_mark.h"
#include "vond/extension/markup_text.h"
#include "vond/str/string_functions.h"
#include "wording.h"

namespace vond_html {

using vond::vocabulary::SeverityBand;

namespace {

/// Where nodes without issues stand among the bands, which are ordered by their bounds.
constexpr int ACKNOWLEDGED = -1;
constexpr int CLEAN = -2;
/// Behind all that was examined.
constexpr int NOT_EXAMINED = -3;

/// A state as the legend shows it, and how many nodes are in it.
struct Count {
  NodeState example;
  std::size_t nodes = 0;
};

/// The worst state last. A node that has issues and was not examined counts twice.
using Counts = std::map<int, Count>;

void add(int rank, const NodeState& example, Counts& counts) {
  Count& count = counts[rank];
  count.example = example;
  ++count.nodes;
}

Counts count_states(const std::vector<NodeGroup>& groups) {
  Counts counts;
  for (const NodeGroup& group : groups) {
    for (const NodeState& node : group.nodes) {
      if (node.band) {
        add(std::get<0>(*node.band), {.name = "", .band = node.band}, counts);
      } else if (node.is_examined && node.is_acknowledged) {
        add(ACKNOWLEDGED, {.name = "", .is_acknowledged = true}, counts);
      } else if (node.is_examined) {
        add(CLEAN, {}, counts);
      }
      if (!node.is_examined) {
        add(NOT_EXAMINED, {.name = "", .is_examined = false}, counts);
      }
    }
  }
  return counts;
}

std::size_t count_nodes(const std::vector<NodeGroup>& groups) {
  std::size_t count = 0;
  for (const NodeGroup& group : groups) {
    count += group.nodes.size();
  }
  return count;
}

/// How a state is told.
struct Look {
  /// "CRITICAL", "acknowledged", "clean" or "not examined".
  std::string word;
  std::string_view css_class;
  std::string_view shape;
};

Look look_of(const NodeState& node) {
  if (node.band) {
    return {vond::str::upper(std::get<std::string>(*node.band)), band_class(*node.band),
            band_shape(*node.band)};
  }
  if (!node.is_examined) {
    return {"not examined", "silent", "?"};
  }
  return node.is_acknowledged ? Look{"acknowledged", "acknowledged", "◐"}
                              : Look{"clean", "clean", "○"};
}

/// Writes a cell's shape, which looks the same in the legend.
void write_mark(HtmlWriter& page, const NodeState& node) {
  const Look look = look_of(node);
  std::string classes = "cell ";
  classes.append(look.css_class).append(node.is_examined ? "" : " not-examined");
  page.open("span", {{"class", classes}, {"aria-hidden", "true"}});
  page.text(look.shape).close();
}

void write_legend(HtmlWriter& page, const Counts& counts) {
  page.open("p", {{"class", "legend"}});
  for (auto state = counts.rbegin(); state != counts.rend(); ++state) {
    const auto& [example, nodes] = state->second;
    page.open("span");
    write_mark(page, example);
    page.text(" " + std::to_string(nodes) + " " + look_of(example).word).close().text(" ");
  }
  page.close();
}

/// Returns "cn001: CRITICAL, 3 issues", what a cell tells besides its shape.
std::string text_of(const NodeState& node) {
  std::string text = shortened_name(node.name) + ": " + look_of(node).word;
  if (node.band && !node.is_examined) {
    text += ", not examined";
  }
  return node.issues == 0 ? text : text + ", " + count_of(node.issues, "issue", "issues");
}

void write_cell(HtmlWriter& page, const NodeState& node, const PageIssues& issues) {
  const std::string text = text_of(node);
  page.open("li");
  if (node.worst != nullptr && issues.find(*node.worst) != nullptr) {
    page.open("a", {{"href", "#" + issues.anchor_of(*node.worst)}, {"title", text}});
  } else {
    page.open("span", {{"title", text}});
  }
  write_mark(page, node);
  page.element("span", {{"class", "unseen"}}, text).close().close();
}

void write_group(HtmlWriter& page, const NodeGroup& group, const PageIssues& issues) {
  page.open("div", {{"class", "group static"}}).open("h3");
  if (group.name.empty()) {
    page.text("others");
  } else {
    write_name(page, group.name);
  }
  page.text(": " + count_of(group.nodes.size(), "node", "nodes")).close();
  page.open("ul", {{"class", "strip"}});
  for (const NodeState& node : group.nodes) {
    write_cell(page, node, issues);
  }
  page.close().close();
}

}  // namespace

void write_nodes_strip(HtmlWriter& page, const std::vector<NodeGroup>& groups,
                       const PageIssues& issues) {
  if (groups.empty()) {
    return;
  }
  page.open("section", {{"id", "nodes"}}).element("h2", "Nodes");
  write_legend(page, count_states(groups));
  const bool has_room = count_nodes(groups) <= MOST_NODES;
  for (const NodeGroup& group : groups) {
    if (has_room) {
      write_group(page, group, issues);
    }
  }
  if (!has_room) {
    page.element("p", {{"class", "static"}}, "They are too many to be shown one by one.");
  }
  page.close();
}

}  // namespace vond_html
