#include "standalone/nodes/node_set_parser.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "standalone/nodes/digits.h"
#include "standalone/nodes/node_set.h"
#include "standalone/text/ascii.h"
#include "standalone/text/messages.h"

namespace vond::standalone {

namespace {

/// Steps below 10^9 and distances up to 10^16 keep every count in 64 bits, while a distance that is
/// cut off there is still one of too many names at every step.
constexpr std::size_t MAX_STEP_DIGITS = 9;
constexpr std::uint64_t MAX_DISTANCE = 10'000'000'000'000'000;
static_assert(MAX_DISTANCE / 1'000'000'000 > MAX_NODE_SET_SIZE);

/// More names than any set may have; counts are cut off there, so that two can be multiplied.
constexpr std::uint64_t TOO_MANY = MAX_NODE_SET_SIZE + 1;

constexpr std::string_view BLANKS = " \t\r\n";

constexpr std::string_view END_OF_SET = "the end of the node set";

/// Reads a node set into its terms; the limits are kept as terms are read.
class NodeSetParser {
 public:
  NodeSetParser(std::string_view text, Blanks blanks) : text_(text), blanks_(blanks) {}

  std::vector<NodeSetTerm> parse() {
    std::vector<NodeSetTerm> terms;
    skip_blanks();
    do {
      const std::size_t start = at_;
      terms.push_back(parse_term());
      add_to_size(terms.back(), start);
    } while (skip_separator());
    return terms;
  }

 private:
  bool at_end() const { return at_ == text_.size(); }
  bool is_next(char c) const { return !at_end() && text_[at_] == c; }

  bool skip(char c) {
    if (!is_next(c)) {
      return false;
    }
    ++at_;
    return true;
  }

  /// Whether a blank is next that separates terms.
  bool is_blank_next() const {
    return blanks_ == Blanks::SEPARATORS && !at_end() && BLANKS.find(text_[at_]) != BLANKS.npos;
  }

  void skip_blanks() {
    while (is_blank_next()) {
      ++at_;
    }
  }

  /// Skips what stands between two terms; false at the end.
  bool skip_separator() {
    skip_blanks();
    if (skip(',')) {
      skip_blanks();
      return true;
    }
    return !at_end();
  }

  bool is_end_of_term() const { return at_end() || is_next(',') || is_blank_next(); }

  [[noreturn]] static void fail(const std::string& found, std::string_view expected,
                                std::size_t offset) {
    throw NodeSetError("found " + found + ", expected " + std::string(expected), offset);
  }

  /// What is found is the next character.
  [[noreturn]] void fail_here(std::string_view expected) const {
    fail(describe_next(), expected, at_);
  }

  std::string describe_next() const {
    static constexpr std::string_view HEX_DIGITS = "0123456789ABCDEF";
    if (at_end()) {
      return std::string(END_OF_SET);
    }
    const char c = text_[at_];
    if (c == ' ') {
      return "a blank";
    }
    if (is_visible_ascii(c)) {
      return in_quotes({&c, 1});
    }
    const auto byte = static_cast<unsigned char>(c);
    return std::string("the byte 0x") + HEX_DIGITS[byte >> 4U] + HEX_DIGITS[byte & 0xFU];
  }

  NodeSetTerm parse_term() {
    if (is_next('\'')) {
      return parse_quoted_name();
    }
    if (at_end() || is_next(',')) {
      fail_here("a node name");
    }
    if (is_next('-')) {
      fail_here("a name that begins otherwise, or one in single quotes");
    }
    NodeSetTerm term;
    while (!is_end_of_term()) {
      term.push_back(is_next('[') ? parse_brackets() : parse_text());
    }
    return term;
  }

  NamePart parse_text() {
    const std::size_t start = at_;
    while (!is_end_of_term() && !is_next('[')) {
      check_name_character();
      ++at_;
    }
    return text_part(text_.substr(start, at_ - start));
  }

  void check_name_character() const {
    static constexpr std::string_view WITH_OTHER_MEANING = "!&^@'";
    const char c = text_[at_];
    if (c == ']') {
      fail_here("\"[\" before it");
    }
    if (c == ' ' || is_ascii_control(c) || WITH_OTHER_MEANING.find(c) != std::string_view::npos) {
      fail_here("a name without it, or one in single quotes");
    }
  }

  static NamePart text_part(std::string_view text) {
    NamePart part;
    part.text = text;
    part.length = text.size();
    return part;
  }

  NodeSetTerm parse_quoted_name() {
    static constexpr std::string_view QUOTE_IN_NAME = "'\\''";
    const std::size_t opening = at_++;
    NodeSetTerm term;
    while (true) {
      const std::size_t closing = text_.find('\'', at_);
      if (closing == std::string_view::npos) {
        fail(std::string(END_OF_SET),
             "\"'\" to close the one at byte " + std::to_string(opening + 1), text_.size());
      }
      term.push_back(text_part(text_.substr(at_, closing - at_)));
      at_ = closing;
      if (text_.substr(at_, QUOTE_IN_NAME.size()) != QUOTE_IN_NAME) {
        break;
      }
      term.push_back(text_part(text_.substr(at_, 1)));
      at_ += QUOTE_IN_NAME.size();
    }
    ++at_;
    if (!is_end_of_term()) {
      fail_here("\",\" or the end after a name in single quotes");
    }
    return term;
  }

  NamePart parse_brackets() {
    NamePart part;
    part.count = 0;
    skip('[');
    do {
      part.ranges.push_back(parse_range(part));
      part.count = std::min(part.count + part.ranges.back().count, TOO_MANY);
    } while (skip(','));
    skip(']');
    return part;
  }

  NumberRange parse_range(NamePart& part) {
    const std::size_t start = at_;
    const std::string_view first = parse_number();
    part.length = std::max<std::uint64_t>(part.length, first.size());
    if (!skip('-')) {
      expect_end_of_range("\"-\", \",\" or \"]\"");
      return {first, 1, 1};
    }
    const std::string_view last = parse_number();
    part.length = std::max<std::uint64_t>(part.length, last.size());
    check_padding(first, last, start);
    const auto distance = limited_difference(last, first, MAX_DISTANCE);
    if (!distance) {
      fail("the range " + in_quotes(text_.substr(start, at_ - start)), "its lower number first",
           start);
    }
    const bool has_step = skip('/');
    const std::uint64_t step = has_step ? parse_step() : 1;
    expect_end_of_range(has_step ? "\",\" or \"]\"" : "\"/\", \",\" or \"]\"");
    return {first, *distance / step + 1, step};
  }

  void expect_end_of_range(std::string_view expected) const {
    if (!is_next(',') && !is_next(']')) {
      fail_here(expected);
    }
  }

  std::string_view parse_number() {
    const std::size_t start = at_;
    while (!at_end() && is_digit(text_[at_])) {
      ++at_;
    }
    if (at_ == start) {
      fail_here("a number");
    }
    return text_.substr(start, at_ - start);
  }

  /// Refuses ranges that tools read differently: 01-2 (two numbers to some) and 1-010.
  void check_padding(std::string_view first, std::string_view last, std::size_t start) const {
    const bool too_short = has_leading_zero(first) && last.size() < first.size();
    const bool too_long = has_leading_zero(last) && last.size() > first.size();
    if (!too_short && !too_long) {
      return;
    }
    fail("the range " + in_quotes(text_.substr(start, at_ - start)),
         "both numbers with the same leading zeros", start);
  }

  std::uint64_t parse_step() {
    const std::size_t start = at_;
    const std::string_view digits = parse_number();
    const std::uint64_t step =
        digits.size() > MAX_STEP_DIGITS ? 0 : std::stoull(std::string(digits));
    if (step == 0) {
      fail("the step " + in_quotes(digits), "1 to 999999999", start);
    }
    return step;
  }

  void add_to_size(const NodeSetTerm& term, std::size_t start) {
    std::uint64_t count = 1;
    std::uint64_t length = 0;
    for (const NamePart& part : term) {
      count = std::min(count * part.count, TOO_MANY);
      length += part.length;
    }
    names_ += count;
    bytes_ += count * length;
    check_limit(names_, MAX_NODE_SET_SIZE, "names", start);
    check_limit(bytes_, MAX_NODE_SET_BYTES, "bytes of names", start);
  }

  static void check_limit(std::uint64_t size, std::uint64_t limit, const std::string& unit,
                          std::size_t start) {
    if (size <= limit) {
      return;
    }
    const std::string most = std::to_string(limit);
    fail("more than " + most + " " + unit + " up to this name's end",
         "a node set of at most " + most, start);
  }

  std::string_view text_;
  Blanks blanks_;
  std::size_t at_ = 0;
  std::uint64_t names_ = 0;
  std::uint64_t bytes_ = 0;
};

}  // namespace

std::vector<NodeSetTerm> parse_node_set(std::string_view text, Blanks blanks) {
  return NodeSetParser(text, blanks).parse();
}

}  // namespace vond::standalone
