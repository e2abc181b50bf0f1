#pragma once

#include <string_view>
#include <vector>

#include "standalone/model/finding.h"

namespace vond::standalone {

/// A part of a line that may be another in a line like it.
struct LineGap {
  enum class Kind {
    /// The name of the finding's one node.
    NODE,
    ROW_ID,
    /// In message or remedy, a word with a digit.
    VALUE,
    /// In message or remedy, the node's name.
    NAME,
    /// The same up to its first dot.
    SHORT_NAME,
    /// No gap, but the end of the line.
    END,
  };

  std::string_view source;
  Kind kind;
};

/// Returns the values and the node's names in message and remedy of `finding`, which has one node,
/// in their order. They are views of `line`: none are found when the texts do not stand in it as
/// they are, or when a value holds the node's name.
std::vector<LineGap> find_text_gaps(const Finding& finding, std::string_view line);

/// Takes the word from the front of `text` that may fill a gap of the kind VALUE, so that it is a
/// value again; empty when that is not certain. It need not end where the gap has to end. `before`
/// is the text before the gap.
std::string_view take_value(std::string_view before, std::string_view& text);

/// Whether `value` can be the second half of a date behind a value and one blank, so that both are
/// one value.
bool may_be_time_of_day(std::string_view value);

}  // namespace vond::standalone
