// All that an extension needs of a host, and no more: the operations that the contract declares and
// does not define.
#include "vond/log/error_log.h"
#include "vond/log/output_log.h"
#include "vond/postprocessor/postprocessor_extension.h"
#include "vond/postprocessor/string_interface.h"
#include "vond/postprocessor/utility_functions.h"
#include "vond/str/string_functions.h"
#include "vond/util/engine_helper.h"

namespace vond::log {

std::unique_ptr<OutputLog::OutputLogStream> OutputLog::singleton_obj;
int LOG_LEVEL = 4;
int LOG_OUTPUT = 0;

}  // namespace vond::log

namespace vond::util {

std::string EngineHelper::format_header() { return "<header>\n"; }

}  // namespace vond::util

namespace vond::str {

std::string word_wrap(const std::string& text, int /*width*/, const std::string& /*indent*/) {
  return text;
}

std::string column_wrap(const std::string& text, int /*width*/, const std::string& /*indent*/,
                        char /*column_character*/, bool /*flag*/) {
  return text;
}

std::string space_wrap(const std::string& text, int /*width*/, const std::string& /*indent*/) {
  return rstrip(text, "\n");
}

std::string upper(std::string text) { return "<upper " + text + ">"; }

std::string rstrip(std::string text, std::string characters) {
  return text.erase(text.find_last_not_of(characters) + 1);
}

}  // namespace vond::str

namespace vond::postprocessor {

PostprocessorExtension::PostprocessorExtension(PostprocessorExtensionData& /*engine_data*/) {}
PostprocessorExtension::~PostprocessorExtension() = default;

void UtilityFunctions::print_validation(const PostprocessorExtensionData& /*data*/) {
  log::OutputLog() << "<validation>\n";
}

int UtilityFunctions::Summarize(const PostprocessorExtensionData& /*data*/) {
  log::OutputLog() << "<summary>\n";
  return 0;
}

int UtilityFunctions::PrintEnd(const PostprocessorExtensionData& /*data*/) {
  log::OutputLog() << "<end>\n";
  return 0;
}

int UtilityFunctions::GetDigits(int /*count*/) const { return 1; }

std::string UtilityFunctions::get_usable_id(const std::string& id) { return "<usable " + id + ">"; }

std::string StringInterface::get_node_string(
    std::vector<std::vector<std::string>>& /*node_lists*/) {
  return "<nodes>";
}

std::string StringInterface::get_short_name(const std::string& name) const {
  return "<short " + name + ">";
}

std::string StringInterface::remove_endl(const std::string& text) const { return text; }

std::string CollapsedAnalysisOutput::get_message_string(std::string indent) const {
  return indent + "<message>\n";
}

std::string CollapsedAnalysisOutput::get_remedy_string(std::string indent) const {
  return indent + "<remedy>\n";
}

std::string CollapsedAnalysisOutput::get_fwd_string(std::string indent, std::string label) const {
  return indent + "<" + label + ">\n";
}

}  // namespace vond::postprocessor
