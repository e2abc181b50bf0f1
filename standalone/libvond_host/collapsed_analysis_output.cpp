#include "vond/postprocessor/collapsed_analysis_output.h"

#include "standalone/text/messages.h"
#include "vond/postprocessor/string_interface.h"

namespace vond::postprocessor {
namespace {

std::string labelled_line(const std::string& indent, const std::string& label,
                          const std::string& text) {
  return text.empty() ? std::string() : indent + label + ": " + text + "\n";
}

}  // namespace

std::string CollapsedAnalysisOutput::get_message_string(std::string indent) const {
  if (outputs.empty()) {
    return {};
  }
  return labelled_line(indent, "Message", StringInterface().remove_endl(outputs[0]->message));
}

std::string CollapsedAnalysisOutput::get_remedy_string(std::string indent) const {
  if (outputs.empty()) {
    return {};
  }
  return labelled_line(indent, "Remedy", StringInterface().remove_endl(outputs[0]->remedy));
}

std::string CollapsedAnalysisOutput::get_fwd_string(std::string indent, std::string label) const {
  return labelled_line(indent, fwd_names.size() > 1 ? label + "s" : label,
                       standalone::join(fwd_names));
}

}  // namespace vond::postprocessor
