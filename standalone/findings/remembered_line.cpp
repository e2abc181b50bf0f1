#include "standalone/findings/remembered_line.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

#include "standalone/findings/finding_parser.h"
#include "standalone/patterns/text_marks.h"
#include "standalone/patterns/word_bytes.h"
#include "standalone/text/ascii.h"
#include "standalone/text/views.h"

namespace vond::standalone {

namespace {

using Kind = LineGap::Kind;

/// Of longer lines there are few, and they would take memory.
constexpr std::size_t LONGEST_REMEMBERED = 1024;
/// As many digits as an int holds whatever they are.
constexpr std::size_t MOST_ROW_ID_DIGITS = 9;
/// Names that a text may hold before the line tells what the node's name is.
constexpr std::size_t LONGEST_EARLY_NAME = 128;

/// The bytes that a name of one node may hold when it stands in its source as it is. Blanks are cut
/// off or separate names, but for those inside a name in an array.
constexpr std::array<bool, 256> name_letters() {
  std::array<bool, 256> letters{};
  for (unsigned char letter = '!'; letter <= '~'; ++letter) {
    letters[letter] = true;
  }
  for (const char letter : {'"', '\\', '[', ']', ','}) {
    letters[static_cast<unsigned char>(letter)] = false;
  }
  return letters;
}

constexpr std::array<bool, 256> NAME_LETTERS = name_letters();

/// Takes the name of a node from the front of `text`; empty when there is none.
std::string_view take_node(std::string_view& text) {
  const auto* const end = std::find_if_not(text.begin(), text.end(), [](char letter) {
    return NAME_LETTERS[static_cast<unsigned char>(letter)];
  });
  const std::string_view name = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(name.size());
  return name;
}

/// Takes a row id from the front of `text`, if it is one without a sign and not too long.
std::optional<int> take_row_id(std::string_view& text) {
  const std::size_t most_digits = std::min(text.size(), MOST_ROW_ID_DIGITS);
  std::size_t digits = 0;
  int row_id = 0;
  while (digits < most_digits && is_digit(text[digits])) {
    row_id = 10 * row_id + (text[digits] - '0');
    ++digits;
  }
  const bool has_leading_zero = digits > 1 && text[0] == '0';
  if (digits == 0 || has_leading_zero) {
    return std::nullopt;
  }
  text.remove_prefix(digits);
  return row_id;
}

}  // namespace

bool RememberedLine::can_remember(std::string_view line, const FindingParser& parser) {
  const Finding& finding = parser.finding();
  return line.size() <= LONGEST_REMEMBERED && parser.unknown_keys().empty() &&
         finding.nodes.size() == 1 && is_view_into(finding.nodes[0], line) &&
         finding.row_ids.size() <= 1;
}

void RememberedLine::remember(std::string_view line, const FindingParser& parser,
                              std::uint64_t number) {
  number_ = number;
  keep(line, parser, find_text_gaps(parser.finding(), line));
  // Some values cannot fill their gaps again.
  if (has_text_gaps_ && read(line_) == nullptr) {
    keep(line, parser, {});
  }
}

const Finding* RememberedLine::read(std::string_view line) {
  const std::string_view whole_line = line;
  name_ = {};
  short_name_ = {};
  values_read_ = 0;
  has_remembered_values_ = !has_names_;
  for (Piece& piece : pieces_) {
    if (!line.starts_with(piece.text)) {
      return nullptr;
    }
    piece.place = line.data();
    line.remove_prefix(piece.text.size());
    if (!fill(piece, line)) {
      return nullptr;
    }
  }
  if (has_text_gaps_) {
    if (!is_named_in_gaps_only(whole_line)) {
      return nullptr;
    }
    read_open_texts();
  }
  return pieces_.empty() ? nullptr : &finding_;
}

bool RememberedLine::fill(const Piece& piece, std::string_view& line) {
  switch (piece.gap.kind) {
    case Kind::NODE:
      return fill_node(line);
    case Kind::ROW_ID:
      return fill_row_id(line);
    case Kind::VALUE:
      return fill_value(piece, line);
    case Kind::NAME:
      return fill_name(name_, piece, line);
    case Kind::SHORT_NAME:
      return fill_name(short_name_, piece, line);
    case Kind::END:
      break;
  }
  return line.empty();
}

bool RememberedLine::fill_node(std::string_view& line) {
  const std::string_view node = take_node(line);
  if (node.empty()) {
    return false;
  }
  finding_.nodes[0] = node;
  if (!has_text_gaps_) {
    return true;
  }
  const std::string_view short_name = text_marks::short_form(node);
  if ((!name_.empty() && name_ != node) || (!short_name_.empty() && short_name_ != short_name)) {
    return false;
  }
  name_ = node;
  short_name_ = short_name;
  return true;
}

bool RememberedLine::fill_row_id(std::string_view& line) {
  const std::optional<int> row_id = take_row_id(line);
  if (row_id) {
    finding_.row_ids[0] = *row_id;
  }
  return row_id.has_value();
}

bool RememberedLine::fill_value(const Piece& piece, std::string_view& line) {
  const std::string_view value = take_value(piece.text, line);
  if (value.empty() || (piece.may_complete_date && may_be_time_of_day(value))) {
    return false;
  }
  has_remembered_values_ = has_remembered_values_ && value == piece.gap.source;
  finding_.values[values_read_++] = value;
  return true;
}

/// Takes what has to be `name`; where that is not known yet, all up to the text behind the gap,
/// which fill_node() judges.
bool RememberedLine::fill_name(std::string_view& name, const Piece& piece, std::string_view& line) {
  if (name.empty()) {
    const std::string_view text_behind = (&piece + 1)->text;
    const std::size_t size =
        line.substr(0, LONGEST_EARLY_NAME + text_behind.size()).find(text_behind);
    if (size == std::string_view::npos) {
      return false;
    }
    name = line.substr(0, size);
  }
  if (name.empty() || !line.starts_with(name)) {
    return false;
  }
  line.remove_prefix(name.size());
  return true;
}

/// Whether the node's name stands in no text but where the gaps say. Between gaps no text has a
/// digit, so that a name with a digit can stand nowhere else than in a value.
bool RememberedLine::is_named_in_gaps_only(std::string_view line) const {
  using namespace word_bytes;
  const std::string_view node = finding_.nodes[0];
  const std::string_view begin = short_name_;
  const unsigned classes = classes_in(node);
  if ((classes & LETTER) == 0) {
    return !has_names_;
  }
  constexpr unsigned NEEDED = LETTER | DIGIT;
  const unsigned of_begin = begin.size() == node.size() ? classes : classes_in(begin);
  if ((classes & SEPARATOR) != 0 || (of_begin & NEEDED) != NEEDED ||
      is_in(AT_NO_END, begin.front()) || is_in(AT_NO_END, begin.back())) {
    return false;
  }
  const auto holds_name = [begin](std::string_view value) {
    return value.size() >= begin.size() && value.find(begin) != std::string_view::npos;
  };
  // Where the short form was written the full one must not stand.
  const auto is_full = [&](const Piece& piece) {
    const auto gap = static_cast<std::size_t>(piece.place + piece.text.size() - line.data());
    return piece.gap.kind == Kind::SHORT_NAME && line.substr(gap).starts_with(node);
  };
  return std::none_of(finding_.values.begin(), finding_.values.end(), holds_name) &&
         (!has_short_names_ || std::none_of(pieces_.begin(), pieces_.end(), is_full));
}

void RememberedLine::read_open_texts() {
  for (const OpenText& open : open_texts_) {
    const char* const begin = pieces_[open.begin.piece].place + open.begin.offset;
    const char* const end = pieces_[open.end.piece].place + open.end.offset;
    finding_.wording.texts.*open.text = {begin, static_cast<std::size_t>(end - begin)};
  }
  finding_.wording_number = has_remembered_values_ ? number_ : Finding::UNKNOWN_WORDING;
}

void RememberedLine::keep(std::string_view line, const FindingParser& parser,
                          std::vector<LineGap> text_gaps) {
  const Finding& finding = parser.finding();
  line_ = line;
  keep_texts(finding);
  has_text_gaps_ = !text_gaps.empty();
  finding_.wording_number = number_;
  finding_.pattern_number = has_text_gaps_ ? number_ : Finding::UNKNOWN_PATTERN;
  keep_written_names(text_gaps);
  text_gaps.push_back({finding.nodes[0], Kind::NODE});
  if (!finding.row_ids.empty()) {
    text_gaps.push_back({parser.row_id_source(), Kind::ROW_ID});
  }
  cut(std::move(text_gaps), line.data());
  open_texts_.clear();
  if (has_text_gaps_) {
    open(&Texts::message, finding, line.data());
    open(&Texts::remedy, finding, line.data());
  }
}

/// Makes room for values, behind which stands how the node's names are written.
void RememberedLine::keep_written_names(const std::vector<LineGap>& text_gaps) {
  written_names_.clear();
  for (const LineGap& gap : text_gaps) {
    if (gap.kind != Kind::VALUE) {
      written_names_ += gap.kind == Kind::NAME ? text_marks::NAME : text_marks::SHORT_NAME;
    }
  }
  has_names_ = !written_names_.empty();
  has_short_names_ = written_names_.find(text_marks::SHORT_NAME) != std::string::npos;
  finding_.values.assign(text_gaps.size() - written_names_.size(), {});
  if (has_names_) {
    finding_.values.emplace_back(written_names_);
  }
}

/// Cuts the line, the copy of one that starts at `line`, into pieces.
void RememberedLine::cut(std::vector<LineGap> gaps, const char* line) {
  std::sort(gaps.begin(), gaps.end(), [](const LineGap& left, const LineGap& right) {
    return left.source.data() < right.source.data();
  });
  pieces_.clear();
  const std::string_view copy = line_;
  std::size_t done = 0;
  for (auto& [source, kind] : gaps) {
    const auto at = static_cast<std::size_t>(source.data() - line);
    const std::string_view text = copy.substr(done, at - done);
    const bool may_complete_date =
        kind == Kind::VALUE && text == " " && pieces_.back().gap.kind == Kind::VALUE;
    pieces_.push_back({text, {copy.substr(at, source.size()), kind}, may_complete_date});
    done = at + source.size();
  }
  pieces_.push_back({copy.substr(done), {{}, Kind::END}});
}

/// Makes a text of `finding`, which was read from `line`, one that may hold gaps.
void RememberedLine::open(std::string_view Texts::*text, const Finding& finding, const char* line) {
  const std::string_view view = finding.wording.texts.*text;
  if (!view.empty()) {
    const char* const begin = line_.data() + (view.data() - line);
    open_texts_.push_back({text, place_of(begin), place_of(begin + view.size())});
  }
}

/// Returns where `at` is, which points into `line_` outside of gaps.
RememberedLine::Place RememberedLine::place_of(const char* at) const {
  std::size_t piece = 0;
  while (at > pieces_[piece].text.data() + pieces_[piece].text.size()) {
    ++piece;
  }
  return {piece, static_cast<std::size_t>(at - pieces_[piece].text.data())};
}

/// Copies `finding` with its texts.
void RememberedLine::keep_texts(const Finding& finding) {
  finding_ = finding;
  // Whatever else a finding has: does it differ from node to node, or is it a view to be kept?
  auto& [wording, nodes, row_ids, count, first_seen, wording_number, pattern_number, values] =
      finding_;
  std::size_t size = 0;
  for_each_text(wording, [&size](std::string_view text) { size += text.size(); });
  // Views look into it from here on: it must not move.
  texts_.clear();
  texts_.reserve(size);
  for_each_text(wording, [this](std::string_view& text) {
    const std::size_t start = texts_.size();
    texts_ += text;
    text = std::string_view(texts_).substr(start);
  });
}

}  // namespace vond::standalone
