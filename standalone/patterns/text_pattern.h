#pragma once

#include <cstddef>
#include <deque>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vond::standalone {

/// Takes the texts of a finding apart: what is said of every node, which is their pattern, and what
/// differs, which are the values.
///
/// A value is a word with a digit, and the finding's own node. The node's name, or where that does
/// not stand its name up to the first dot, is looked for first, from left to right: wherever no
/// ASCII letter, digit or `_` stands on either side, if that form has an ASCII letter. Both forms
/// are one NODE in the pattern; which of them was written is a value too.
///
/// Words are runs between blanks, line ends and any of `()[]{}<>,;="'|@`, without `.:!?` at their
/// ends, but with the point of a number like `.5`. A comma between two digits ends no word.
/// `2026-01-31 23:59:59` (with a fraction and a zone or without) is one word, and so is `Jan 31
/// 23:59:59`, with a weekday before it or without.
///
/// An object is meant to be used again and again: it allocates nothing once it has seen texts as
/// long.
class TextPattern {
 public:
  /// Takes the texts of one finding apart. `node` is the name of the one node that it names, ""
  /// when it names none or several.
  void read(std::string_view node, std::initializer_list<std::string_view> texts);

  /// False when `text` surely does not name the node, so that read() finds the same in it for every
  /// such node. Quicker than read().
  static bool may_name(std::string_view text, std::string_view node);

  /// Marked text (text_marks.h), each text with its end. Until the next read().
  std::string_view pattern() const { return pattern_; }

  /// A value for every place of the pattern, as marked text, in their order. When NODE stands in
  /// the pattern itself, one more behind them: NAME or SHORT_NAME for each, as they were written.
  /// Views of the texts or of this object, until the next read().
  std::span<const std::string_view> values() const { return values_; }

 private:
  struct Word {
    std::size_t begin;
    std::size_t end;
    /// Where the run ends that the word stands in.
    std::size_t run_end;
  };

  void use_node(std::string_view node);
  bool stands_at(std::size_t at, std::string_view text, std::string_view name) const;
  std::string_view mark_names(std::string_view text);
  void add(std::string_view marked);
  void add_literal(std::string_view literal);
  static Word word_around(std::string_view text, std::size_t digit);
  static void take_in_time(std::string_view text, Word& word);
  static void take_in_month(std::string_view text, Word& word);

  std::string_view name_;
  std::string_view short_name_;
  bool name_has_letter_ = false;
  bool short_name_has_letter_ = false;

  std::string pattern_;
  std::vector<std::string_view> values_;
  std::string written_names_;
  /// Texts that marks were put into. A deque, because values look into them.
  std::deque<std::string> marked_;
  std::size_t marked_texts_ = 0;
};

/// Returns the texts that TextPattern::read() took apart into the pattern and values.
std::vector<std::string> original_texts(std::string_view pattern,
                                        std::span<const std::string_view> values,
                                        std::string_view node);

/// The number of values that a pattern needs.
std::size_t count_values(std::string_view pattern);

/// True when the texts of a pattern name the own node outside of values, so that the last value
/// tells how.
bool names_own_node(std::string_view pattern);

}  // namespace vond::standalone
