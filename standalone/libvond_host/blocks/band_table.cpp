#include "standalone/libvond_host/blocks/band_table.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "standalone/libvond_host/blocks/block_writing.h"
#include "standalone/libvond_host/blocks/limited_text.h"
#include "standalone/text/columns.h"

namespace vond::standalone {
namespace {

using log::OutputLog;

constexpr std::string_view NODES_HEADING = "nodes";
constexpr std::string_view INDENT = "  ";
constexpr std::string_view GAP = "  ";

/// Where the columns of the table begin and how wide they are, in terminal columns.
class Columns {
 public:
  Columns(const std::vector<BandRow>& rows, int width) {
    std::size_t ids = 0;
    for (const BandRow& row : rows) {
      for (const IssueLine& line : lines_of(row)) {
        nodes_ = std::max(nodes_, std::to_string(line.nodes).size());
        ids = std::max(ids, count_columns(line.id, UNWRAPPED_WIDTH));
      }
    }
    // Without wrapping the table ends all the same, for its texts are long. It always has room for
    // something.
    constexpr std::size_t MIN_ROOM = 16;
    const auto right = static_cast<std::size_t>(width <= 0 ? UNWRAPPED_WIDTH : width);
    const std::size_t room = std::max(right, ids_begin() + MIN_ROOM) - ids_begin();
    // Where there is little room the id is worth more than the start of a text.
    constexpr int LEAST_WIDTH_FOR_TEXTS = 60;
    const bool has_texts = right >= LEAST_WIDTH_FOR_TEXTS;
    ids_ = std::min(ids, has_texts ? room * 3 / 5 : room);
    texts_ = has_texts ? room - ids_ - GAP.size() : 0;
  }

  std::size_t ids_begin() const { return INDENT.size() + nodes_ + GAP.size(); }

  /// Returns a line up to the column of the ids, with a text at the right of the nodes' column.
  std::string up_to_ids(std::string_view nodes) const {
    std::string line(INDENT);
    return line.append(nodes_ - std::min(nodes_, nodes.size()), ' ').append(nodes).append(GAP);
  }

  std::string format(const IssueLine& issue) const {
    std::string line = up_to_ids(std::to_string(issue.nodes));
    const std::string id = cut_text(issue.id, ids_);
    line += id;
    if (texts_ != 0) {
      line.append(ids_ - std::min(ids_, count_columns(id)), ' ').append(GAP);
      line += cut_text(issue.text, texts_);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
  }

  static const std::vector<IssueLine>& lines_of(const BandRow& row) {
    static const std::vector<IssueLine> none;
    return row.lines ? row.lines->lines : none;
  }

 private:
  std::size_t nodes_ = NODES_HEADING.size();
  std::size_t ids_ = 0;
  std::size_t texts_ = 0;
};

void write_band(const BandRow& row, const Columns& columns, int width) {
  const SeverityBand& band = *row.band;
  const std::string lead =
      Columns::lines_of(row).empty() ? std::string(INDENT) : columns.up_to_ids(NODES_HEADING);
  const bool fails = band.contributes_to_fail && !band.is_empty();
  write_line(fails ? OutputLog::RED : OutputLog::NONE, lead + band.name + ": " + count_issues(band),
             width, std::string(lead.size() + GAP.size(), ' '));
  for (const IssueLine& line : Columns::lines_of(row)) {
    write_unwrapped_line(OutputLog::NONE, columns.format(line));
  }
  if (row.lines && !row.lines->rest.empty()) {
    write_line(OutputLog::NONE, columns.up_to_ids("") + "and " + row.lines->rest, width,
               columns.up_to_ids("") + std::string(GAP));
  }
}

}  // namespace

void write_band_table(const std::vector<BandRow>& rows, int width) {
  const Columns columns(rows, width);
  for (const BandRow& row : rows) {
    write_band(row, columns, width);
  }
}

}  // namespace vond::standalone
