#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/findings/line_gap.h"
#include "standalone/model/finding.h"

namespace vond::standalone {

class FindingParser;

/// A line with gaps where its node, its row id and the values of its texts stood, and the finding
/// that it told. A line that fills the gaps with a plain name, a plain number and plain words tells
/// the same of another node and with other values.
class RememberedLine {
 public:
  RememberedLine() = default;
  // The finding's texts are views of this object.
  RememberedLine(const RememberedLine&) = delete;
  RememberedLine& operator=(const RememberedLine&) = delete;

  /// Whether lines like `line`, which `parser` has just read, can differ from it in nothing but
  /// what gaps hold.
  static bool can_remember(std::string_view line, const FindingParser& parser);

  /// Remembers `line`, which `parser` has just read and which can be remembered, in place of what
  /// was remembered before. `number` becomes the number of its findings' pattern, if their texts
  /// have gaps, and of their wording, where it is the remembered one.
  void remember(std::string_view line, const FindingParser& parser, std::uint64_t number);

  /// Returns the finding of `line`, not empty, null when it is not like the remembered line. It
  /// lives until the next call or until the line's text goes.
  const Finding* read(std::string_view line);

 private:
  using Texts = BasicTexts<std::string_view>;

  /// A gap with the text before it.
  struct Piece {
    std::string_view text;
    LineGap gap;
    /// Whether nothing but a blank stands between another value and this one.
    bool may_complete_date = false;
    /// Where `text` stands in the line that is being read.
    const char* place = nullptr;
  };
  /// A place in the text of a piece, or at its end.
  struct Place {
    std::size_t piece = 0;
    std::size_t offset = 0;
  };
  /// A text that may hold gaps.
  struct OpenText {
    std::string_view Texts::*text;
    Place begin;
    Place end;
  };

  void keep(std::string_view line, const FindingParser& parser, std::vector<LineGap> text_gaps);
  void keep_written_names(const std::vector<LineGap>& text_gaps);
  void keep_texts(const Finding& finding);
  void cut(std::vector<LineGap> gaps, const char* line);
  void open(std::string_view Texts::*text, const Finding& finding, const char* line);
  Place place_of(const char* at) const;

  bool fill(const Piece& piece, std::string_view& line);
  bool fill_node(std::string_view& line);
  bool fill_row_id(std::string_view& line);
  bool fill_value(const Piece& piece, std::string_view& line);
  bool fill_name(std::string_view& name, const Piece& piece, std::string_view& line);
  bool is_named_in_gaps_only(std::string_view line) const;
  void read_open_texts();

  /// What `pieces_` are views of.
  std::string line_;
  /// The last one ends the line.
  std::vector<Piece> pieces_;
  bool has_text_gaps_ = false;
  bool has_names_ = false;
  bool has_short_names_ = false;
  /// How the node's names are written, as the last value of a pattern.
  std::string written_names_;
  std::vector<OpenText> open_texts_;
  std::uint64_t number_ = 0;

  /// The forms of the node's name in the line that is being read, empty until one was seen.
  std::string_view name_;
  std::string_view short_name_;
  /// How many values of that line have been read, and whether they are all as remembered.
  std::size_t values_read_ = 0;
  bool has_remembered_values_ = true;

  /// What the views of `finding_` look into, but for those of its node and of what has gaps.
  std::string texts_;
  Finding finding_;
};

}  // namespace vond::standalone
