#include "html_writer.h"

#include <algorithm>
#include <array>

#include "vond/extension/markup_text.h"

namespace vond_html {
namespace {

/// Whether blanks around the element show.
bool is_part_of_a_line(std::string_view name) {
  static constexpr std::array<std::string_view, 7> NAMES = {"a",    "b",      "bdi", "code",
                                                            "span", "strong", "time"};
  return std::find(NAMES.begin(), NAMES.end(), name) != NAMES.end();
}

}  // namespace

HtmlWriter& HtmlWriter::open(std::string_view name, Attributes attributes) {
  out_ << "<" << name;
  for (const auto& [key, value] : attributes) {
    out_ << " " << key << "=\"" << vond::extension::html_escape(value) << "\"";
  }
  out_ << ">";
  open_.push_back(name);
  return *this;
}

HtmlWriter& HtmlWriter::close() {
  const std::string_view name = open_.back();
  open_.pop_back();
  out_ << "</" << name << (is_part_of_a_line(name) ? ">" : ">\n");
  return *this;
}

HtmlWriter& HtmlWriter::text(std::string_view text) {
  out_ << vond::extension::html_escape(text);
  return *this;
}

HtmlWriter& HtmlWriter::element(std::string_view name, Attributes attributes,
                                std::string_view text) {
  return open(name, attributes).text(text).close();
}

HtmlWriter& HtmlWriter::element(std::string_view name, std::string_view text) {
  return element(name, {}, text);
}

HtmlWriter& HtmlWriter::empty_element(std::string_view name, Attributes attributes) {
  open(name, attributes);
  open_.pop_back();
  return verbatim("\n");
}

HtmlWriter& HtmlWriter::verbatim(std::string_view markup) {
  out_ << markup;
  return *this;
}

}  // namespace vond_html
