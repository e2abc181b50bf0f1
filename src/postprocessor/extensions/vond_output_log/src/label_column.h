#pragma once

#include <string>

namespace vond_output_log {

/// Labelled lines whose texts stand in one column, beside their labels. What it is made of must
/// outlive it.
class LabelColumn {
 public:
  /// `spacer` is as wide as the column of the labels.
  LabelColumn(const std::string& indent, const std::string& spacer, int width)
      : indent_(indent), spacer_(spacer), width_(width) {}

  /// Sets `segment` to one labelled line, wrapped to the width. Returns 0, or 1: with `segment`
  /// empty for a label that does not fit its column, after a report in the error log for an
  /// exception.
  int format(std::string& segment, const std::string& label, const std::string& text) const;

 private:
  const std::string& indent_;
  const std::string& spacer_;
  int width_;
};

}  // namespace vond_output_log
