#include "standalone/findings/remembered_line.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

#include "standalone/findings/finding_parser.h"
#include "standalone/text/views.h"

namespace vond::standalone {

namespace {

/// Of longer lines there are few, and they would take memory.
constexpr std::size_t LONGEST_REMEMBERED = 1024;
/// As many digits as an int holds whatever they are.
constexpr std::size_t MOST_ROW_ID_DIGITS = 9;

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
  std::size_t digits = 0;
  int row_id = 0;
  while (digits < std::min(text.size(), MOST_ROW_ID_DIGITS) && text[digits] >= '0' &&
         text[digits] <= '9') {
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
                              std::uint64_t wording_number) {
  cut_gaps(line, parser);
  keep(parser.finding());
  finding_.wording_number = wording_number;
}

const Finding* RememberedLine::read(std::string_view line) {
  for (const auto& [text, gap] : gaps_) {
    if (!line.starts_with(text)) {
      return nullptr;
    }
    line.remove_prefix(text.size());
    if (!(gap == Gap::NODE ? read_node(line) : read_row_id(line))) {
      return nullptr;
    }
  }
  return line == text_behind_gaps_ ? &finding_ : nullptr;
}

bool RememberedLine::read_node(std::string_view& line) {
  finding_.nodes[0] = take_node(line);
  return !finding_.nodes[0].empty();
}

bool RememberedLine::read_row_id(std::string_view& line) {
  const std::optional<int> row_id = take_row_id(line);
  if (row_id) {
    finding_.row_ids[0] = *row_id;
  }
  return row_id.has_value();
}

void RememberedLine::cut_gaps(std::string_view line, const FindingParser& parser) {
  std::vector<std::pair<std::string_view, Gap>> cuts = {{parser.finding().nodes[0], Gap::NODE}};
  if (!parser.finding().row_ids.empty()) {
    cuts.emplace_back(parser.row_id_source(), Gap::ROW_ID);
  }
  std::sort(cuts.begin(), cuts.end(), [](const auto& left, const auto& right) {
    return left.first.data() < right.first.data();
  });
  gaps_.clear();
  for (const auto& [source, gap] : cuts) {
    const auto before = static_cast<std::size_t>(source.data() - line.data());
    gaps_.emplace_back(line.substr(0, before), gap);
    line.remove_prefix(before + source.size());
  }
  text_behind_gaps_ = line;
}

/// Copies `finding` with its texts.
void RememberedLine::keep(const Finding& finding) {
  finding_ = finding;
  // Whatever else a finding has: does it differ from node to node, or is it a view to be kept?
  auto& [wording, nodes, row_ids, wording_number] = finding_;
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
