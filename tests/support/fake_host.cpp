#include "tests/support/fake_host.h"

#include <sstream>
#include <stdexcept>

#include "vond/log/error_log.h"
#include "vond/log/output_log.h"
#include "vond/postprocessor/postprocessor_extension.h"
#include "vond/postprocessor/string_interface.h"
#include "vond/postprocessor/utility_functions.h"
#include "vond/str/string_functions.h"
#include "vond/util/engine_helper.h"

namespace vond::test {

FakeHost& fake_host() {
  static FakeHost host;
  return host;
}

namespace {

void note_call(const std::string& operation) {
  FakeHost& host = fake_host();
  const int call = ++host.calls[operation];
  if (call == 1 && operation == host.failing_operation) {
    throw std::runtime_error(operation + " failed");
  }
  if (host.on_call) {
    host.on_call(operation);
  }
}

bool contains(const std::string& text, const std::string& part) {
  return !part.empty() && text.find(part) != std::string::npos;
}

/// Returns what has reached the first destination.
std::string written_so_far() {
  const auto& streams = log::OutputLog::singleton_obj->streams;
  const auto* destination =
      streams.empty() ? nullptr : dynamic_cast<std::ostringstream*>(streams[0].stream);
  return destination == nullptr ? std::string() : destination->str();
}

/// What every block of the report does.
void print_block(const std::string& name, const postprocessor::PostprocessorExtensionData& data,
                 const void* object) {
  FakeHost& host = fake_host();
  host.blocks.emplace_back(name, written_so_far());
  host.records.push_back(&data);
  host.objects.push_back(object);
  note_call(name);
  log::OutputLog(log::OutputLog::NONE) << "<" + name + ">\n";
}

void note_wrap(const std::string& operation, const std::string& text, int width,
               const std::string& indent) {
  FakeHost& host = fake_host();
  note_call(operation);
  host.wraps.push_back(operation + "(" + text + ", " + std::to_string(width) + ", " + indent + ")");
  if (contains(text, host.unwrappable_text)) {
    throw std::runtime_error("wrapping failed");
  }
  if (contains(text, host.text_that_throws_an_int)) {
    throw width;
  }
}

}  // namespace
}  // namespace vond::test

using vond::test::fake_host;
using vond::test::note_call;
using vond::test::note_wrap;
using vond::test::print_block;

namespace vond::log {

std::unique_ptr<OutputLog::OutputLogStream> OutputLog::singleton_obj;
int LOG_LEVEL = 4;
int LOG_OUTPUT = 0;

}  // namespace vond::log

namespace vond::util {

std::string EngineHelper::format_header() {
  note_call("format_header");
  return fake_host().header;
}

}  // namespace vond::util

namespace vond::str {

std::string word_wrap(const std::string& text, int width, const std::string& indent) {
  note_wrap("word_wrap", text, width, indent);
  return text;
}

std::string column_wrap(const std::string& text, int width, const std::string& indent,
                        char column_character, bool flag) {
  note_wrap("column_wrap", text, width, indent + column_character + (flag ? "true" : "false"));
  return text;
}

std::string space_wrap(const std::string& text, int width, const std::string& indent) {
  note_wrap("space_wrap", text, width, indent);
  return rstrip(text, "\n");
}

std::string upper(std::string text) {
  note_call("upper");
  for (char& character : text) {
    if (character >= 'a' && character <= 'z') {
      character = static_cast<char>(character - 'a' + 'A');
    }
  }
  return text;
}

std::string rstrip(std::string text, std::string characters) {
  note_call("rstrip");
  text.erase(text.find_last_not_of(characters) + 1);
  return text;
}

}  // namespace vond::str

namespace vond::postprocessor {

PostprocessorExtension::PostprocessorExtension(PostprocessorExtensionData& /*engine_data*/) {}
PostprocessorExtension::~PostprocessorExtension() = default;

void UtilityFunctions::print_validation(const PostprocessorExtensionData& data) {
  print_block("print_validation", data, this);
}

int UtilityFunctions::Summarize(const PostprocessorExtensionData& data) {
  print_block("Summarize", data, this);
  return fake_host().summarize_result;
}

int UtilityFunctions::PrintEnd(const PostprocessorExtensionData& data) {
  print_block("PrintEnd", data, this);
  return fake_host().print_end_result;
}

int UtilityFunctions::GetDigits(int count) const {
  note_call("GetDigits");
  return static_cast<int>(std::to_string(count).size());
}

std::string UtilityFunctions::get_usable_id(const std::string& id) {
  note_call("get_usable_id");
  return "usable " + id;
}

std::string StringInterface::get_node_string(std::vector<std::vector<std::string>>& node_lists) {
  note_call("get_node_string");
  std::string text;
  for (const auto& list : node_lists) {
    text += "[";
    for (const auto& name : list) {
      text += name + ";";
    }
    text += "]";
  }
  return text;
}

std::string StringInterface::get_short_name(const std::string& name) const {
  note_call("get_short_name");
  return "short " + name;
}

std::string StringInterface::remove_endl(const std::string& text) const {
  note_call("remove_endl");
  return text;
}

std::string CollapsedAnalysisOutput::get_message_string(std::string indent) const {
  note_call("get_message_string");
  return indent + "<message>\n";
}

std::string CollapsedAnalysisOutput::get_remedy_string(std::string indent) const {
  note_call("get_remedy_string");
  return indent + "<remedy>\n";
}

std::string CollapsedAnalysisOutput::get_fwd_string(std::string indent, std::string label) const {
  note_call("get_fwd_string");
  return indent + "<" + label + ">\n";
}

}  // namespace vond::postprocessor
