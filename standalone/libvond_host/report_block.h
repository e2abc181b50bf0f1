#pragma once

#include <string>
#include <vector>

#include "vond/log/output_log.h"

namespace vond::standalone {

/// The text of one of the host's blocks in a report, in pieces of one colour each.
class ReportBlock {
 public:
  using Colors = log::OutputLog::Colors;

  struct Piece {
    Colors color;
    std::string text;
  };

  /// `width` is that of the report in terminal columns; 0 or less means no wrapping.
  explicit ReportBlock(int width) : width_(width) {}

  /// Adds text as it is, without a colour.
  void add(const std::string& text);
  /// Adds a line that is wrapped under the indent; the line end is outside of the colour.
  void add_line(Colors color, const std::string& text, const std::string& indent = "    ");
  /// Adds a line of dashes.
  void add_rule();

  const std::vector<Piece>& pieces() const { return pieces_; }

 private:
  int width_;
  std::vector<Piece> pieces_;
};

}  // namespace vond::standalone
