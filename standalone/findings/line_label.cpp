#include "standalone/findings/line_label.h"

#include <algorithm>

#include "standalone/json/white_space.h"
#include "standalone/nodes/node_set.h"
#include "standalone/text/ascii.h"

namespace vond::standalone {
namespace {

bool is_label(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char byte) {
                       return is_visible_ascii(byte) && byte != '"' && byte != '\'' && byte != '\\';
                     }) &&
         is_node_set(text);
}

}  // namespace

LabelledLine split_label(std::string_view line) {
  const LabelledLine unlabelled{{}, line};
  const std::size_t object = line.find('{');
  if (object == 0 || object == std::string_view::npos) {
    return unlabelled;
  }
  const std::string_view before = line.substr(0, object);
  const std::string_view marked = without_white_space(before);
  if (marked.empty() || marked.back() != ':' || before.back() == ':') {
    return unlabelled;
  }
  const std::string_view label = marked.substr(0, marked.size() - 1);
  return is_label(label) ? LabelledLine{label, line.substr(object)} : unlabelled;
}

}  // namespace vond::standalone
