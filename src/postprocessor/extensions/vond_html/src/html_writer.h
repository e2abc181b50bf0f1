#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vond/extension/statement.h"

namespace vond_html {

/// Names and values of attributes, in the order in which they are written.
using Attributes = std::initializer_list<std::pair<std::string_view, std::string_view>>;

/// Writes HTML. Names of elements and attributes are literals and written as they are; values and
/// texts are written so that they are nothing but text.
class HtmlWriter {
 public:
  /// Writes a tag that stays open for what is in the element.
  HtmlWriter& open(std::string_view name, Attributes attributes = {});

  /// Writes the end of the element that was opened last; behind one that is no part of a line also
  /// a line end.
  HtmlWriter& close();

  /// Writes a text.
  HtmlWriter& text(std::string_view text);

  /// Writes an element with a text in it.
  HtmlWriter& element(std::string_view name, Attributes attributes, std::string_view text);
  HtmlWriter& element(std::string_view name, std::string_view text);

  /// Writes an element that has neither content nor end.
  HtmlWriter& empty_element(std::string_view name, Attributes attributes);

  /// Writes our own markup or style as it is.
  HtmlWriter& verbatim(std::string_view markup);

  /// Returns what takes text as it is, for those who write it piece by piece.
  vond::extension::StatementWriter& output() { return out_; }

  /// Writes what is left. All elements must be closed.
  void finish() { out_.finish(); }

 private:
  vond::extension::StatementWriter out_;
  std::vector<std::string_view> open_;
};

}  // namespace vond_html
