#include "xml_writer.h"

#include "xml_text.h"

namespace vond_junit {

XmlWriter::XmlWriter() { out_ << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"; }

void XmlWriter::open(std::string_view name, Attributes attributes) {
  out_ << start_of(name, attributes) + ">\n";
  open_.emplace_back(name);
}

void XmlWriter::close() {
  const std::string name = open_.back();
  open_.pop_back();
  out_ << std::string(2 * open_.size(), ' ') + "</" + name + ">\n";
}

void XmlWriter::add(std::string_view name, Attributes attributes) {
  out_ << start_of(name, attributes) + "/>\n";
}

void XmlWriter::add(std::string_view name, Attributes attributes, std::string_view text) {
  out_ << start_of(name, attributes) + ">" << xml_text(text) << "</" << name << ">\n";
}

std::string XmlWriter::start_of(std::string_view name, Attributes attributes) const {
  std::string tag(2 * open_.size(), ' ');
  tag += '<';
  tag += name;
  for (const auto& [key, value] : attributes) {
    tag += ' ';
    tag += key;
    tag += "=\"" + xml_attribute(value) + '"';
  }
  return tag;
}

}  // namespace vond_junit
