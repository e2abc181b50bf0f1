#include "standalone/libvond_host/blocks/change_lines.h"

#include <ctime>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/libvond_host/blocks/ages.h"
#include "standalone/libvond_host/blocks/block_writing.h"
#include "standalone/libvond_host/blocks/limited_text.h"
#include "standalone/nodes/node_folding.h"
#include "standalone/text/columns.h"
#include "standalone/text/messages.h"
#include "standalone/text/utc_time.h"
#include "vond/str/string_functions.h"
#include "vond/vocabulary/severity_bands.h"

namespace vond::standalone {
namespace {

using log::OutputLog;

constexpr std::string_view INDENT = "    ";

/// Returns "2025-11-20 22:30 UTC (6 h)".
std::string format_time(std::time_t time, std::time_t written_at) {
  return format_utc_time(time, "%Y-%m-%d %H:%M UTC") + " (" +
         format_short_age(age_at(written_at, time)) + ")";
}

std::string format_counts(const Changes& changes) {
  std::vector<std::string> counts;
  for (const Changes::Kind& kind : changes.kinds) {
    // Few know the word, and where there is nothing of it they need not.
    if (kind.count != 0 || kind.word != "reworded") {
      counts.push_back(std::to_string(kind.count) + " " + kind.word);
    }
  }
  std::string text = join_with(counts, ", ");
  if (!changes.nodes_not_looked_at.empty()) {
    text += "; " + count_of(changes.nodes_not_looked_at.size(), "node", "nodes") + " not looked at";
  } else if (changes.not_looked_at != 0) {
    text += "; " + std::to_string(changes.not_looked_at) + " not looked at";
  }
  return text;
}

std::string band_name(int upper_bound) {
  for (const auto& [lower, upper, severity, name] :
       vocabulary::descending_bands(vocabulary::SEVERITY_BANDS)) {
    if (upper == upper_bound) {
      return str::upper(name);
    }
  }
  return {};
}

/// Writes the items of a kind, with their kind before the first.
class KindWriter {
 public:
  KindWriter(const ReportFacts& facts, const Changes::Kind& kind) : facts_(facts), kind_(kind) {}

  void write() {
    for (const Changes::Item& item : kind_.items) {
      write_item(item);
    }
    const std::size_t others = kind_.count - kind_.items.size();
    if (others != 0 && !kind_.items.empty()) {
      write_unwrapped_line(OutputLog::NONE,
                           take_lead() + "and " + std::to_string(others) + " more");
    }
  }

 private:
  /// Returns what stands before an item.
  std::string take_lead() {
    constexpr std::size_t COLUMNS = 10;
    std::string lead = is_first_ ? kind_.word : "";
    is_first_ = false;
    lead.resize(COLUMNS, ' ');
    return std::string(INDENT) + lead;
  }

  void write_item(const Changes::Item& item) {
    constexpr std::size_t MOST_ID_COLUMNS = 60;
    std::string lead = take_lead();
    const std::string indent(lead.size() + 2, ' ');
    lead += cut_text(item.id, MOST_ID_COLUMNS) + ", " + band_name(item.band);
    if (item.first_seen && age_at(facts_.written_at, *item.first_seen) > 0) {
      lead += ", for " + format_duration(age_at(facts_.written_at, *item.first_seen));
    }
    if (item.nodes_added.empty() && item.nodes_healed.empty()) {
      write_line(OutputLog::NONE, lead, facts_.line_width, indent);
      return;
    }
    lead += ": ";
    if (!write_short(lead, item)) {
      write_nodes(lead + "+", indent, item.nodes_added);
      write_nodes(item.nodes_added.empty() ? lead + "-" : indent + "-", indent, item.nodes_healed);
    }
  }

  /// Writes the item on one line if it has room there.
  bool write_short(const std::string& lead, const Changes::Item& item) const {
    constexpr std::size_t MOST_NODES = 1000;
    if (item.nodes_added.size() + item.nodes_healed.size() > MOST_NODES) {
      return false;
    }
    const auto room =
        static_cast<std::size_t>(facts_.line_width <= 0 ? UNWRAPPED_WIDTH : facts_.line_width);
    std::string line = lead;
    line += item.nodes_added.empty() ? "" : "+" + fold_node_names({item.nodes_added});
    line += item.nodes_added.empty() || item.nodes_healed.empty() ? "" : " ";
    line += item.nodes_healed.empty() ? "" : "-" + fold_node_names({item.nodes_healed});
    if (count_columns(line) > room) {
      return false;
    }
    write_unwrapped_line(OutputLog::NONE, line);
    return true;
  }

  void write_nodes(const std::string& lead, const std::string& indent,
                   const std::vector<std::string>& nodes) const {
    if (!nodes.empty()) {
      write_unwrapped_line(
          OutputLog::NONE,
          limited_node_set({.lead = lead, .indent = indent, .width = facts_.line_width}, nodes));
    }
  }

  const ReportFacts& facts_;
  const Changes::Kind& kind_;
  bool is_first_ = true;
};

}  // namespace

void write_changes(const ReportFacts& facts) {
  if (!facts.changes) {
    return;
  }
  const Changes& changes = *facts.changes;
  const std::string since = changes.time ? format_time(*changes.time, facts.written_at)
                                         : "an earlier run that does not tell when it was";
  write_line(OutputLog::NONE, "  Since " + since + ": " + format_counts(changes), facts.line_width);
  for (const std::string& remark : changes.remarks) {
    write_line(OutputLog::NONE, std::string(INDENT) + remark, facts.line_width,
               std::string(INDENT) + "  ");
  }
  for (const Changes::Kind& kind : changes.kinds) {
    KindWriter(facts, kind).write();
  }
  if (!changes.nodes_not_looked_at.empty()) {
    write_unwrapped_line(OutputLog::NONE,
                         limited_node_set({.lead = std::string(INDENT) + "not looked at: ",
                                           .indent = std::string(INDENT) + "  ",
                                           .width = facts.line_width},
                                          changes.nodes_not_looked_at));
  }
}

}  // namespace vond::standalone
