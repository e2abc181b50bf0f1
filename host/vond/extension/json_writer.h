#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "vond/extension/json_text.h"
#include "vond/extension/statement.h"

namespace vond::extension {

/// Writes JSON through the output log, item by item, and puts the commas. Every begin_…() needs its
/// end_…(), every key its value.
///
///     json.begin_object();
///     json.key("nodes").begin_array();
///     json.value("cn1");
///     json.end_array();
///     json.end_object();
class JsonWriter {
 public:
  /// Where the text is going to stand.
  enum class Place {
    /// In a file, for people, too.
    FILE,
    /// In the script element of a page: no blanks between items, and no `<`, so that nothing ends
    /// the element.
    PAGE,
  };

  /// Keeps a reference to `output`.
  explicit JsonWriter(StatementWriter& output, Place place = Place::FILE)
      : output_(output), place_(place) {}

  void begin_object() { begin('{'); }
  void end_object() { end('}'); }
  void begin_array() { begin('['); }
  void end_array() { end(']'); }

  /// Begins the next member of an object.
  JsonWriter& key(std::string_view name) {
    separate();
    append_string(name);
    text_ += place_ == Place::PAGE ? ":" : ": ";
    is_behind_key_ = true;
    return *this;
  }

  void value(std::string_view text) {
    separate();
    append_string(text);
    flush();
  }
  void value(const std::string& text) { value(std::string_view(text)); }
  void value(const char* text) { value(std::string_view(text)); }
  void value(bool is_true) { write_plain(is_true ? "true" : "false"); }
  void null() { write_plain("null"); }

  template <typename Integer, typename = std::enable_if_t<std::is_integral_v<Integer> &&
                                                          !std::is_same_v<Integer, bool>>>
  void value(Integer number) {
    write_plain(std::to_string(number));
  }

  /// Nothing becomes null.
  template <typename Value>
  void value(const std::optional<Value>& value_or_nothing) {
    if (value_or_nothing) {
      value(*value_or_nothing);
    } else {
      null();
    }
  }

  /// Writes an array of the items, texts or numbers.
  template <typename Items>
  void array(const Items& items) {
    begin_array();
    for (const auto& item : items) {
      value(item);
    }
    end_array();
  }

  /// The next item begins a line; behind the last one, the end of what it is part of.
  void break_line() { breaks_line_ = true; }

 private:
  void begin(char bracket) {
    separate();
    text_ += bracket;
    has_items_.push_back(false);
    flush();
  }

  void end(char bracket) {
    if (breaks_line_ && has_items_.back()) {
      text_ += '\n';
    }
    breaks_line_ = false;
    text_ += bracket;
    has_items_.pop_back();
    flush();
  }

  void write_plain(std::string_view text) {
    separate();
    text_ += text;
    flush();
  }

  void separate() {
    if (is_behind_key_) {
      is_behind_key_ = false;
      return;
    }
    const bool is_first = has_items_.empty() || !has_items_.back();
    if (!is_first) {
      text_ += breaks_line_ || place_ == Place::PAGE ? "," : ", ";
    }
    if (breaks_line_) {
      text_ += '\n';
      breaks_line_ = false;
    }
    if (!has_items_.empty()) {
      has_items_.back() = true;
    }
  }

  void append_string(std::string_view text) {
    std::size_t at = text_.size();
    append_json_string(text_, text);
    if (place_ == Place::PAGE) {
      constexpr std::string_view LESS = "\\u003c";
      while ((at = text_.find('<', at)) != std::string::npos) {
        text_.replace(at, 1, LESS);
      }
    }
  }

  void flush() {
    output_ << text_;
    text_.clear();
  }

  StatementWriter& output_;
  Place place_;
  /// What is not handed on yet.
  std::string text_;
  /// Of the objects and arrays that are not ended yet, the outermost first.
  std::vector<bool> has_items_;
  bool is_behind_key_ = false;
  bool breaks_line_ = false;
};

}  // namespace vond::extension
