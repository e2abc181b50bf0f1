#include "standalone/findings/line_gap.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <utility>

#include "standalone/patterns/date_words.h"
#include "standalone/patterns/text_marks.h"
#include "standalone/patterns/text_pattern.h"
#include "standalone/patterns/word_bytes.h"
#include "standalone/text/views.h"

namespace vond::standalone {

namespace {

using namespace word_bytes;

/// Walks through texts and their pattern at the same time.
class GapFinder {
 public:
  /// Both must outlive the object.
  GapFinder(const std::array<std::string_view, 2>& texts, const TextPattern& pattern)
      : text_(texts.begin()), pattern_(pattern), value_(pattern.values().begin()) {}

  std::vector<LineGap> find(std::string_view node) {
    std::size_t names = 0;
    for (const char byte : pattern_.pattern()) {
      if (byte == text_marks::TEXT_END) {
        ++text_;
        at_ = 0;
      } else if (byte == text_marks::PLACE) {
        add(LineGap::Kind::VALUE, (value_++)->size());
      } else if (byte == text_marks::NAME) {
        const bool is_short = pattern_.values().back()[names++] == text_marks::SHORT_NAME;
        add(is_short ? LineGap::Kind::SHORT_NAME : LineGap::Kind::NAME,
            is_short ? text_marks::short_form(node).size() : node.size());
      } else {
        ++at_;
      }
    }
    return std::move(gaps_);
  }

 private:
  void add(LineGap::Kind kind, std::size_t size) {
    gaps_.push_back({text_->substr(at_, size), kind});
    at_ += size;
  }

  const std::string_view* text_;
  const TextPattern& pattern_;
  std::span<const std::string_view>::iterator value_;
  std::size_t at_ = 0;
  std::vector<LineGap> gaps_;
};

/// Whether a word surely begins between the two texts.
bool may_begin_value(std::string_view before, std::string_view text) {
  if (text.empty()) {
    return false;
  }
  if (before.ends_with('.')) {
    // A point that was text may belong to this number.
    return !is_digit(text[0]) && !is_in(AT_NO_END, text[0]);
  }
  return !is_in(AT_NO_END, text[0]) || begins_fraction(text, 0);
}

}  // namespace

std::vector<LineGap> find_text_gaps(const Finding& finding, std::string_view line) {
  const std::array texts = {finding.wording.texts.message, finding.wording.texts.remedy};
  if (!std::all_of(texts.begin(), texts.end(), [line](std::string_view text) {
        return text.empty() || is_view_into(text, line);
      })) {
    return {};
  }
  TextPattern pattern;
  pattern.read(finding.nodes[0], {texts[0], texts[1]});
  const std::size_t names = names_own_node(pattern.pattern()) ? 1 : 0;
  const auto values = pattern.values().first(pattern.values().size() - names);
  if (std::any_of(values.begin(), values.end(), text_marks::holds_marks)) {
    return {};
  }
  return GapFinder(texts, pattern).find(finding.nodes[0]);
}

std::string_view take_value(std::string_view before, std::string_view& text) {
  if (!may_begin_value(before, text)) {
    return {};
  }
  unsigned classes = 0;
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    const unsigned of_byte = classes_of(text[end]);
    if ((of_byte & PLAIN) == 0 && (text[end] != ',' || !is_between_digits(text, end))) {
      break;
    }
    classes |= of_byte;
  }
  while (end > 0 && is_in(AT_NO_END, text[end - 1])) {
    --end;
  }
  const std::string_view value = text.substr(0, (classes & DIGIT) == 0 ? 0 : end);
  text.remove_prefix(value.size());
  return value;
}

bool may_be_time_of_day(std::string_view value) {
  return date_words::begins_like(value, "00:00:00");
}

}  // namespace vond::standalone
