#pragma once

#include <string_view>

namespace vond::standalone {

/// A line and the label before its object, as clush and pdsh write it: `cn001: {…}`.
struct LabelledLine {
  /// A node set; empty when there is none.
  std::string_view label;
  /// The rest of the line; all of it when there is no label.
  std::string_view object;
};

/// Takes the label off `line`. It is what stands before the first `{`, with a colon and a blank
/// between them, when that can be read as a node set without quotes.
LabelledLine split_label(std::string_view line);

}  // namespace vond::standalone
