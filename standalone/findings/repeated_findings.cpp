#include "standalone/findings/repeated_findings.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <optional>
#include <utility>

#include "standalone/findings/finding_parser.h"

namespace vond::standalone {

namespace {

// A power of two, many times the number of checks of a cluster.
constexpr std::size_t SLOTS = 8192;
/// Long enough to hold the id, short enough to end before the node.
constexpr std::size_t BEGINNING = 48;
/// Of longer lines there are few, and they would take memory.
constexpr std::size_t LONGEST_REMEMBERED = 1024;
/// As many digits as an int holds whatever they are.
constexpr std::size_t MOST_ROW_ID_DIGITS = 9;

/// Returns a hash of how `line`, at least BEGINNING bytes, begins.
std::uint64_t hash_of_beginning(std::string_view line) {
  constexpr std::uint64_t GOLDEN_RATIO = 0x9e3779b97f4a7c15;
  std::uint64_t hash = 0;
  std::uint64_t factor = GOLDEN_RATIO;
  for (std::size_t at = 0; at < BEGINNING; at += sizeof hash) {
    std::uint64_t word = 0;
    std::memcpy(&word, line.data() + at, sizeof word);
    hash += (word ^ word >> 32U) * factor;
    factor *= GOLDEN_RATIO;
  }
  return hash ^ hash >> 32U;
}

/// The bytes that a name of one node may hold when it stands in its source as it is.
constexpr std::array<bool, 256> name_letters() {
  std::array<bool, 256> letters{};
  for (unsigned char letter = ' '; letter <= '~'; ++letter) {
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

/// Whether `part` is a view of some of `whole`.
bool stands_in(std::string_view part, std::string_view whole) {
  const std::less_equal<> not_behind;
  return not_behind(whole.data(), part.data()) &&
         not_behind(part.data() + part.size(), whole.data() + whole.size());
}

}  // namespace

/// A line with gaps for what differs.
class RepeatedFindings::Wording {
 public:
  enum class Gap { NODE, ROW_ID };

  /// Whether `line` differs from others like it in a node and a row id at most, and where.
  static bool fits(std::string_view line, const FindingParser& parser) {
    const Finding& finding = parser.finding();
    return line.size() <= LONGEST_REMEMBERED && parser.unknown_keys().empty() &&
           finding.nodes.size() == 1 && stands_in(finding.nodes[0], line) &&
           finding.row_ids.size() <= 1;
  }

  /// Of a line that fits.
  void set(std::string_view line, const FindingParser& parser, std::uint64_t number) {
    cut(line, parser);
    keep(parser.finding());
    finding_.wording = number;
  }

  /// Returns the finding of `line`, null when it is not of this wording.
  const Finding* read(std::string_view line) {
    for (const auto& [text, gap] : gaps_) {
      if (!line.starts_with(text)) {
        return nullptr;
      }
      line.remove_prefix(text.size());
      if (!(gap == Gap::NODE ? read_node(line) : read_row_id(line))) {
        return nullptr;
      }
    }
    return line == end_ ? &finding_ : nullptr;
  }

 private:
  bool read_node(std::string_view& line) {
    finding_.nodes[0] = take_node(line);
    return !finding_.nodes[0].empty();
  }

  bool read_row_id(std::string_view& line) {
    const std::optional<int> row_id = take_row_id(line);
    if (row_id) {
      finding_.row_ids[0] = *row_id;
    }
    return row_id.has_value();
  }

  /// Cuts the gaps out of `line`.
  void cut(std::string_view line, const FindingParser& parser) {
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
    end_ = line;
  }

  /// Copies `finding` with its texts.
  void keep(const Finding& finding) {
    finding_ = finding;
    std::vector<std::string_view*> texts = {&finding_.id, &finding_.category, &finding_.message,
                                            &finding_.remedy};
    for (std::string_view& definition : finding_.definitions) {
      texts.push_back(&definition);
    }
    for (std::string_view& id : finding_.based_on) {
      texts.push_back(&id);
    }
    std::size_t size = 0;
    for (const std::string_view* text : texts) {
      size += text->size();
    }
    // Views look into it from here on: it must not move.
    texts_.clear();
    texts_.reserve(size);
    for (std::string_view* text : texts) {
      const std::size_t at = texts_.size();
      texts_ += *text;
      *text = std::string_view(texts_).substr(at);
    }
  }

  /// A gap with the text before it.
  std::vector<std::pair<std::string, Gap>> gaps_;
  std::string end_;
  std::string texts_;
  Finding finding_;
};

RepeatedFindings::RepeatedFindings() : slots_(SLOTS) {}

RepeatedFindings::~RepeatedFindings() = default;

const Finding* RepeatedFindings::find(std::string_view line) {
  if (line.size() < BEGINNING) {
    return nullptr;
  }
  const Slot& slot = slot_of(hash_of_beginning(line));
  return slot.wording ? slot.wording->read(line) : nullptr;
}

void RepeatedFindings::learn(std::string_view line, const FindingParser& parser) {
  if (line.size() < BEGINNING) {
    return;
  }
  const std::uint64_t beginning = hash_of_beginning(line);
  Slot& slot = slot_of(beginning);
  // Most lines of an input without repetition are not worth a copy.
  const bool is_seen_again = std::exchange(slot.beginning, beginning) == beginning;
  if (!is_seen_again || !Wording::fits(line, parser)) {
    return;
  }
  if (!slot.wording) {
    slot.wording = std::make_unique<Wording>();
  }
  slot.wording->set(line, parser, ++wordings_);
}

RepeatedFindings::Slot& RepeatedFindings::slot_of(std::uint64_t beginning) {
  return slots_[beginning % SLOTS];
}

}  // namespace vond::standalone
