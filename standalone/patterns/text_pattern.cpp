#include "standalone/patterns/text_pattern.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "standalone/patterns/date_words.h"
#include "standalone/patterns/text_marks.h"
#include "standalone/patterns/word_bytes.h"
#include "standalone/text/ascii.h"

namespace vond::standalone {
namespace {

using namespace text_marks;
using namespace word_bytes;

bool has_letter(std::string_view text) { return (classes_in(text) & LETTER) != 0; }

/// Whether one of eight bytes is a digit; may be wrong about text that is not ASCII, to the safe
/// side.
bool may_hold_digit(const char* bytes) {
  std::uint64_t word = 0;
  std::memcpy(&word, bytes, sizeof word);
  constexpr std::uint64_t ONES = 0x0101010101010101;
  // A digit is 0x30 to 0x39: without its upper half 0x30 it is below 10, and the sum with 0x76
  // stays below 0x80.
  const std::uint64_t low = (word ^ (ONES * 0x30)) & (ONES * 0x7F);
  return ((low + ONES * 0x76) & (ONES * 0x80)) != ONES * 0x80;
}

/// Returns the place of the first digit from `from` on, the size of the text when there is none.
std::size_t find_digit(std::string_view text, std::size_t from) {
  std::size_t at = from;
  for (; at + sizeof(std::uint64_t) <= text.size(); at += sizeof(std::uint64_t)) {
    if (may_hold_digit(text.data() + at)) {
      const auto* const block = text.begin() + at;
      const auto* const found = std::find_if(block, block + sizeof(std::uint64_t), is_digit);
      if (found != block + sizeof(std::uint64_t)) {
        return static_cast<std::size_t>(found - text.begin());
      }
    }
  }
  return static_cast<std::size_t>(std::find_if(text.begin() + at, text.end(), is_digit) -
                                  text.begin());
}

/// Returns where the run of a word ends that goes on at `at`.
std::size_t find_run_end(std::string_view text, std::size_t at) {
  for (; at < text.size(); ++at) {
    if (is_in(SEPARATOR, text[at]) && (text[at] != ',' || !is_between_digits(text, at))) {
      break;
    }
  }
  return at;
}

std::size_t without_end(std::string_view text, std::size_t begin, std::size_t end) {
  while (end > begin && is_in(AT_NO_END, text[end - 1])) {
    --end;
  }
  return end;
}

/// Whether a word can begin at `at`: between there and the separator before stands nothing that
/// belongs to it.
bool is_word_begin(std::string_view text, std::size_t at) {
  while (at > 0 && is_in(AT_NO_END, text[at - 1])) {
    --at;
  }
  return at == 0 || is_in(SEPARATOR, text[at - 1]);
}

/// Whether just one blank stands before `at`, and a word of three letters before that, for a caller
/// that knows such words.
bool has_short_word_before(std::string_view text, std::size_t at) {
  return at >= 4 && text[at - 1] == ' ' && is_word_begin(text, at - 4);
}

}  // namespace

void TextPattern::read(std::string_view node, std::initializer_list<std::string_view> texts) {
  pattern_.clear();
  values_.clear();
  written_names_.clear();
  marked_texts_ = 0;
  use_node(node);
  for (const std::string_view text : texts) {
    add(mark_names(text));
    pattern_ += TEXT_END;
  }
  if (!written_names_.empty()) {
    values_.push_back(written_names_);
  }
}

bool TextPattern::may_name(std::string_view text, std::string_view node) {
  const std::string_view short_name = short_form(node);
  const std::string_view begin = short_name.empty() ? node : short_name;
  return !begin.empty() && text.find(begin) != std::string_view::npos;
}

void TextPattern::use_node(std::string_view node) {
  name_ = node;
  short_name_ = short_form(node);
  name_has_letter_ = has_letter(name_);
  short_name_has_letter_ = short_name_.size() < name_.size() && has_letter(short_name_);
}

bool TextPattern::stands_at(std::size_t at, std::string_view text, std::string_view name) const {
  const std::size_t end = at + name.size();
  return text.compare(at, name.size(), name) == 0 &&
         (at == 0 || !is_in(NAME_CHARACTER, text[at - 1])) &&
         (end == text.size() || !is_in(NAME_CHARACTER, text[end]));
}

std::string_view TextPattern::mark_names(std::string_view text) {
  // Both forms begin with the short one, if that is not empty.
  const std::string_view begin = short_name_.empty() ? name_ : short_name_;
  std::size_t at = name_has_letter_ ? text.find(begin) : std::string_view::npos;
  if (at == std::string_view::npos && !holds_marks(text)) {
    return text;
  }
  if (marked_texts_ == marked_.size()) {
    marked_.emplace_back();
  }
  std::string& marked = marked_[marked_texts_++];
  marked.clear();
  std::size_t done = 0;
  for (; at != std::string_view::npos; at = text.find(begin, at)) {
    const bool is_full = stands_at(at, text, name_);
    if (!is_full && !(short_name_has_letter_ && stands_at(at, text, short_name_))) {
      ++at;
      continue;
    }
    append_marked(marked, text.substr(done, at - done));
    marked += is_full ? NAME : SHORT_NAME;
    at += is_full ? name_.size() : short_name_.size();
    done = at;
  }
  append_marked(marked, text.substr(done));
  return marked;
}

void TextPattern::add(std::string_view marked) {
  std::size_t done = 0;
  std::size_t at = 0;
  while ((at = find_digit(marked, at)) < marked.size()) {
    Word word = word_around(marked, at);
    take_in_time(marked, word);
    take_in_month(marked, word);
    add_literal(marked.substr(done, word.begin - done));
    pattern_ += PLACE;
    values_.push_back(marked.substr(word.begin, word.end - word.begin));
    done = word.end;
    at = word.run_end;
  }
  add_literal(marked.substr(done));
}

void TextPattern::add_literal(std::string_view literal) {
  if (marked_texts_ == 0) {
    pattern_ += literal;
    return;
  }
  while (!literal.empty()) {
    const auto* const mark = std::find_if(literal.begin(), literal.end(), is_mark);
    pattern_.append(literal.begin(), mark);
    literal.remove_prefix(static_cast<std::size_t>(mark - literal.begin()));
    if (literal.empty()) {
      return;
    }
    const std::size_t size = literal[0] == ESCAPE ? 2 : 1;
    if (size == 2) {
      pattern_ += literal.substr(0, size);
    } else {
      pattern_ += NAME;
      written_names_ += literal[0];
    }
    literal.remove_prefix(size);
  }
}

TextPattern::Word TextPattern::word_around(std::string_view text, std::size_t digit) {
  std::size_t begin = digit;
  while (begin > 0 && !is_in(SEPARATOR, text[begin - 1])) {
    --begin;
  }
  while (is_in(AT_NO_END, text[begin]) && !begins_fraction(text, begin)) {
    ++begin;
  }
  const std::size_t run_end = find_run_end(text, digit + 1);
  return {begin, without_end(text, begin, run_end), run_end};
}

void TextPattern::take_in_time(std::string_view text, Word& word) {
  if (word.end != word.run_end || word.end == text.size() || text[word.end] != ' ' ||
      !date_words::is_date(text.substr(word.begin, word.end - word.begin))) {
    return;
  }
  const std::size_t begin = word.end + 1;
  const std::size_t run_end = find_run_end(text, begin);
  const std::size_t end = without_end(text, begin, run_end);
  if (date_words::read_clock_time(text.substr(begin, end - begin))) {
    word.end = end;
    word.run_end = run_end;
  }
}

void TextPattern::take_in_month(std::string_view text, Word& word) {
  const std::size_t digits = word.end - word.begin;
  if (digits > 2 || word.end != word.run_end || word.end == text.size() || text[word.end] != ' ' ||
      !is_digit(text[word.begin]) || !is_digit(text[word.end - 1])) {
    return;
  }
  const bool is_set_in = digits == 1 && word.begin >= 2 && text.substr(word.begin - 2, 2) == "  ";
  const std::size_t month_end = word.begin - (is_set_in ? 1 : 0);
  if (!has_short_word_before(text, month_end) ||
      date_words::month_of(text.substr(month_end - 4, 3)) == 0) {
    return;
  }
  const std::size_t clock = word.end + 1;
  const std::size_t run_end = find_run_end(text, clock);
  const std::size_t end = without_end(text, clock, run_end);
  if (!date_words::is_clock(text.substr(clock, end - clock))) {
    return;
  }
  word = {month_end - 4, end, run_end};
  if (has_short_word_before(text, word.begin) &&
      date_words::is_weekday(text.substr(word.begin - 4, 3))) {
    word.begin -= 4;
  }
}

std::vector<std::string> original_texts(std::string_view pattern,
                                        std::span<const std::string_view> values,
                                        std::string_view node) {
  std::vector<std::string> texts;
  std::string text;
  auto value = values.begin();
  std::size_t names = 0;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    switch (pattern[at]) {
      case PLACE:
        append_original(text, *value++, node);
        break;
      case NAME:
        append_original(text, values.back().substr(names++, 1), node);
        break;
      case TEXT_END:
        texts.push_back(std::move(text));
        text.clear();
        break;
      default:
        at += pattern[at] == ESCAPE ? 1 : 0;
        text += pattern[at];
    }
  }
  return texts;
}

std::size_t count_values(std::string_view pattern) {
  std::size_t places = 0;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    places += pattern[at] == PLACE ? 1 : 0;
    at += pattern[at] == ESCAPE ? 1 : 0;
  }
  return places + (names_own_node(pattern) ? 1 : 0);
}

bool names_own_node(std::string_view pattern) { return holds_name(pattern); }

}  // namespace vond::standalone
