#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vond/extension/statement.h"

namespace vond_junit {

/// Names and values of attributes, in the order in which they are written.
using Attributes = std::initializer_list<std::pair<std::string_view, std::string_view>>;

/// Writes an XML document of elements that have either elements or text in them. Names are written
/// as they are, values and texts so that every reader takes them.
class XmlWriter {
 public:
  /// Writes what stands before the first element.
  XmlWriter();

  /// Writes a tag that stays open for the elements in it.
  void open(std::string_view name, Attributes attributes);

  /// Writes the end of the element that was opened last.
  void close();

  /// Writes an element that has nothing in it.
  void add(std::string_view name, Attributes attributes);

  /// Writes an element with a text in it.
  void add(std::string_view name, Attributes attributes, std::string_view text);

  /// Writes what is left. All elements must be closed.
  void finish() { out_.finish(); }

 private:
  std::string start_of(std::string_view name, Attributes attributes) const;

  vond::extension::StatementWriter out_;
  std::vector<std::string> open_;
};

}  // namespace vond_junit
