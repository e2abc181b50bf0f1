#include "standalone/libvond_host/blocks/acknowledged_lines.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "standalone/libvond_host/blocks/block_writing.h"
#include "standalone/libvond_host/blocks/limited_text.h"
#include "standalone/nodes/node_folding.h"
#include "standalone/text/columns.h"
#include "standalone/text/messages.h"
#include "standalone/text/utc_time.h"
#include "vond/facts/run_facts.h"

namespace vond::standalone {
namespace {

using log::OutputLog;
using Entry = ReportFacts::Acknowledgement;
using State = Entry::State;

constexpr std::size_t MOST_LINES = 5;
constexpr std::time_t DAY = std::time_t{24} * 60 * 60;

/// Returns the time of an end, without the time of day for the end of a day.
std::string format_end(std::time_t until) {
  const bool is_end_of_day = (until + 1) % DAY == 0;
  return format_utc_time(until, is_end_of_day ? "%Y-%m-%d" : "%Y-%m-%d %H:%M UTC");
}

/// Returns the nodes, or their number where they would fill a line of their own.
std::string format_nodes(const std::vector<std::string>& nodes) {
  constexpr std::size_t MOST_COLUMNS = 40;
  if (nodes.empty()) {
    return "every node";
  }
  const std::string folded = fold_node_names({nodes});
  return count_columns(folded, MOST_COLUMNS + 1) <= MOST_COLUMNS
             ? folded
             : count_of(nodes.size(), "node", "nodes");
}

/// An entry in words; of its reason as much is left out as there is no room for.
class EntryText {
 public:
  /// `lead` stands before the rest.
  EntryText(const std::string& lead, const Entry& entry)
      : head_(lead + entry.id + " on " + format_nodes(entry.nodes) + " until " +
              format_end(entry.until) + ": "),
        reason_(entry.reason),
        tail_(entry.by.empty() ? "" : " (" + entry.by + ")") {}

  std::string whole() const { return head_ + reason_ + tail_; }

  /// Returns the text with at most so many columns.
  std::string cut(std::size_t columns) const {
    constexpr std::size_t LEAST_REASON = 4;
    const std::size_t around = count_columns(head_) + count_columns(tail_);
    return around + LEAST_REASON <= columns ? head_ + cut_text(reason_, columns - around) + tail_
                                            : cut_text(whole(), columns);
  }

 private:
  std::string head_;
  std::string reason_;
  std::string tail_;
};

/// Returns "12 issues on 34 nodes".
std::string format_count(const ReportFacts::Acknowledged& acknowledged) {
  const std::string issues = count_of(acknowledged.issues, "issue", "issues");
  const std::size_t nodes = acknowledged.nodes.size();
  return nodes == 0 ? issues : issues + " on " + count_of(nodes, "node", "nodes");
}

/// Writes the block's lines; each group of entries has a heading.
class AcknowledgedLines {
 public:
  AcknowledgedLines(const ReportFacts& facts, int width)
      : acknowledged_(*facts.acknowledged), now_(facts.written_at), width_(width) {}

  void write() const {
    const auto active = select([](const Entry& entry) { return entry.state == State::ACTIVE; });
    if (!active.empty() || acknowledged_.issues != 0) {
      write_line(OutputLog::NONE, "  Acknowledged: " + format_count(acknowledged_), width_);
      write_entries(active, OutputLog::NONE);
    }
    write_group(select([](const Entry& entry) { return entry.is_back; }), "Expired and back");
    write_group(select([](const Entry& entry) { return entry.state == State::UNUSED; }),
                "Acknowledgements that cover nothing");
  }

 private:
  using Entries = std::vector<const Entry*>;

  /// Returns the entries that are meant, those that end first before the others.
  template <typename IsMeant>
  Entries select(IsMeant is_meant) const {
    Entries entries;
    for (const Entry& entry : acknowledged_.entries) {
      if (is_meant(entry)) {
        entries.push_back(&entry);
      }
    }
    std::stable_sort(entries.begin(), entries.end(), [](const Entry* left, const Entry* right) {
      return left->until < right->until;
    });
    return entries;
  }

  void write_group(const Entries& entries, const std::string& heading) const {
    if (!entries.empty()) {
      write_line(OutputLog::YELLOW, "  " + heading + ": " + std::to_string(entries.size()), width_);
      write_entries(entries, OutputLog::YELLOW);
    }
  }

  void write_entries(const Entries& entries, OutputLog::Colors color) const {
    const std::size_t shown = std::min(entries.size(), MOST_LINES);
    for (std::size_t i = 0; i < shown; ++i) {
      write_entry(*entries[i], color);
    }
    if (shown < entries.size()) {
      write_line(color, "    and " + std::to_string(entries.size() - shown) + " more", width_);
    }
  }

  void write_entry(const Entry& entry, OutputLog::Colors color) const {
    const bool ends_soon =
        entry.state == State::ACTIVE && days_left(entry) <= facts::ACKNOWLEDGEMENT_WARNING_DAYS;
    const EntryText text(ends_soon ? time_left(entry) + ": " : "", entry);
    const ListLayout layout{.lead = "    ", .indent = "      ", .width = width_};
    write_unwrapped_line(ends_soon ? OutputLog::YELLOW : color,
                         limited_list(
                             layout, 1, [&](std::size_t /*count*/) { return text.whole(); },
                             [&](std::size_t columns) { return text.cut(columns); }));
  }

  std::string time_left(const Entry& entry) const {
    // What held when the report was begun holds for all of it.
    if (entry.until < now_) {
      return "ended meanwhile";
    }
    const auto days = static_cast<std::size_t>(days_left(entry));
    return days == 0 ? "ends within a day" : "ends in " + count_of(days, "day", "days");
  }

  std::time_t days_left(const Entry& entry) const { return (entry.until - now_) / DAY; }

  const ReportFacts::Acknowledged& acknowledged_;
  std::time_t now_;
  int width_;
};

}  // namespace

void write_acknowledged(const ReportFacts& facts, int width) {
  if (!facts.acknowledged) {
    return;
  }
  if (facts.acknowledged->is_ignored) {
    write_line(OutputLog::NONE, "  Acknowledgements: ignored (--ignore-acknowledged)", width);
  } else {
    AcknowledgedLines(facts, width).write();
  }
}

}  // namespace vond::standalone
