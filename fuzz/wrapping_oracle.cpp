#include "fuzz/wrapping_oracle.h"

#include <utf8proc.h>

#include <algorithm>
#include <utility>

namespace vond::fuzz {
namespace {

constexpr std::size_t LEAST_ROOM = 16;

struct Character {
  utf8proc_int32_t value;
  std::size_t size;
  std::size_t columns;
  bool valid;
};

Character first_character(std::string_view text) {
  utf8proc_int32_t value = 0;
  const auto size = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                     static_cast<utf8proc_ssize_t>(text.size()), &value);
  if (size <= 0) {
    return {0, 1, 1, false};
  }
  const int columns = std::max(utf8proc_charwidth(value), 0);
  return {value, static_cast<std::size_t>(size), static_cast<std::size_t>(columns), true};
}

std::size_t columns_of(std::string_view text) {
  std::size_t columns = 0;
  while (!text.empty()) {
    const Character character = first_character(text);
    columns += character.columns;
    text.remove_prefix(character.size);
  }
  return columns;
}

std::size_t first_cluster_size(std::string_view text) {
  Character last = first_character(text);
  std::size_t size = last.size;
  utf8proc_int32_t state = 0;
  while (size < text.size() && last.valid) {
    const Character next = first_character(text.substr(size));
    if (!next.valid || utf8proc_grapheme_break_stateful(last.value, next.value, &state)) {
      break;
    }
    size += next.size;
    last = next;
  }
  return size;
}

bool starts_with(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

}  // namespace

WrappingOracle::WrappingOracle(WrapRules rules, std::string_view line)
    : rules_(std::move(rules)), line_(line), lead_(find_lead()), continuation_(continuation()) {
  measure();
}

std::string WrappingOracle::complaint(const std::vector<std::string_view>& rows) const {
  const std::string_view lead = line_.substr(0, lead_);
  const bool fits = rules_.width <= 0 || columns(lead_, line_.size()) <= room_beside(lead);
  if (fits) {
    return rows.size() == 1 && rows[0] == line_ ? "" : "changed a line that fits";
  }
  std::size_t at = lead_;
  for (std::size_t number = 0; number < rows.size(); ++number) {
    const std::string_view prefix = number == 0 ? lead : std::string_view(continuation_);
    if (!starts_with(rows[number], prefix)) {
      return "a row without its lead or indent";
    }
    std::string fault = take_row(rows[number].substr(prefix.size()), room_beside(prefix), at);
    if (!fault.empty()) {
      return fault + " in row " + std::to_string(number);
    }
  }
  return at == line_.size() ? "" : "lost the end of the line";
}

/// Returns where the lead ends: behind the last blank of the start of blanks and drawing characters
/// that follows the indent.
std::size_t WrappingOracle::find_lead() const {
  std::size_t lead = starts_with(line_, rules_.indent) ? rules_.indent.size() : 0;
  const std::string_view drawing = " |`-";
  for (std::size_t at = lead; at < line_.size() && drawing.find(line_[at]) != drawing.npos; ++at) {
    if (line_[at] == ' ') {
      lead = at + 1;
    }
  }
  return lead;
}

/// Returns what rows begin with that a break makes: the indent and, below a label, blanks up to the
/// column of its value if that is in sight.
std::string WrappingOracle::continuation() const {
  if (!rules_.label_end) {
    return rules_.indent;
  }
  const std::size_t start = starts_with(line_, rules_.indent) ? rules_.indent.size() : 0;
  const std::size_t label = line_.find(std::string{*rules_.label_end, ' '}, start);
  if (label == std::string_view::npos) {
    return rules_.indent;
  }
  const std::size_t value = std::min(line_.find_first_not_of(' ', label + 1), line_.size());
  const std::size_t column =
      columns_of(line_.substr(0, start)) + columns_of(line_.substr(start, value - start));
  const std::size_t indent = columns_of(rules_.indent);
  const auto width = static_cast<std::size_t>(std::max(rules_.width, 0));
  const bool in_sight = column < std::max(width, indent + LEAST_ROOM);
  return rules_.indent + std::string(in_sight && column > indent ? column - indent : 0, ' ');
}

void WrappingOracle::measure() {
  cluster_begins_.assign(line_.size() + 1, false);
  columns_before_.assign(line_.size() + 1, 0);
  std::size_t columns = 0;
  for (std::size_t at = lead_; at < line_.size();) {
    const std::size_t size = first_cluster_size(line_.substr(at));
    cluster_begins_[at] = true;
    columns += columns_of(line_.substr(at, size));
    for (std::size_t end = at + size; at < end;) {
      columns_before_[++at] = columns;
    }
  }
  cluster_begins_[line_.size()] = true;
}

std::size_t WrappingOracle::room_beside(std::string_view lead) const {
  const auto width = static_cast<std::size_t>(rules_.width);
  const std::size_t taken = rules_.at_blanks_only ? 0 : columns_of(lead);
  return std::max(width - std::min(taken, width), LEAST_ROOM);
}

std::size_t WrappingOracle::columns(std::size_t begin, std::size_t end) const {
  return columns_before_[end] - columns_before_[begin];
}

/// Whether a blank stands there that nothing clings to.
bool WrappingOracle::is_blank(std::size_t at) const {
  return at < line_.size() && line_[at] == ' ' && cluster_begins_[at] && cluster_begins_[at + 1];
}

bool WrappingOracle::is_single_cluster(std::size_t begin, std::size_t end) const {
  return std::count(cluster_begins_.begin() + static_cast<std::ptrdiff_t>(begin),
                    cluster_begins_.begin() + static_cast<std::ptrdiff_t>(end), true) == 1;
}

std::size_t WrappingOracle::word_begin(std::size_t at) const {
  while (at > lead_ && !is_blank(at - 1)) {
    --at;
  }
  return at;
}

std::size_t WrappingOracle::word_end(std::size_t at) const {
  while (at < line_.size() && !is_blank(at)) {
    ++at;
  }
  return at;
}

/// Moves `at` behind the row and the blanks that went behind it.
std::string WrappingOracle::take_row(std::string_view row, std::size_t room,
                                     std::size_t& at) const {
  const std::size_t begin = at;
  const std::size_t end = at + row.size();
  if (row.empty() || line_.substr(begin, row.size()) != row) {
    return "other text than the line's";
  }
  for (at = end; is_blank(at);) {
    ++at;
  }
  std::string fault = judge_row(begin, end, room);
  if (!fault.empty() || at == line_.size()) {
    return fault;
  }
  return at > end ? judge_break(begin, at, room) : judge_cut(begin, end, room);
}

std::string WrappingOracle::judge_row(std::size_t begin, std::size_t end, std::size_t room) const {
  if (is_blank(begin) || is_blank(end - 1)) {
    return "a blank at a break";
  }
  if (!cluster_begins_[end]) {
    return "a split cluster";
  }
  if (columns(begin, end) <= room) {
    return "";
  }
  const bool may_stand_out =
      rules_.at_blanks_only ? word_end(begin) == end : is_single_cluster(begin, end);
  return may_stand_out ? "" : "too wide";
}

/// The row ends before the word at `next`: that must not have fitted.
std::string WrappingOracle::judge_break(std::size_t begin, std::size_t next,
                                        std::size_t room) const {
  return columns(begin, word_end(next)) <= room ? "a break before a word that fits" : "";
}

/// The row ends inside a word: no row must have had room for that.
std::string WrappingOracle::judge_cut(std::size_t begin, std::size_t end, std::size_t room) const {
  if (rules_.at_blanks_only) {
    return "a split word";
  }
  const std::size_t word = word_begin(end);
  const bool is_first = word == lead_;
  const bool fits_below = columns(word, word_end(word)) <= room_beside(continuation_);
  if (!is_first && fits_below) {
    return "a split word that fits into a row";
  }
  return columns(begin, word_end(end)) <= room ? "split what fits" : "";
}

}  // namespace vond::fuzz
