#include "vond/util/engine_helper.h"

#include <ctime>

#include "standalone/libvond_host/report_facts.h"
#include "vond/str/string_functions.h"

namespace vond::util {
namespace {

using standalone::ReportFacts;

std::string format_time(std::time_t time) {
  std::tm utc{};
  if (gmtime_r(&time, &utc) == nullptr) {
    return "unknown";
  }
  char text[64];
  const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S UTC", &utc);
  return {text, length};
}

std::string format_nodes(const ReportFacts& facts) {
  std::string seen = std::to_string(facts.nodes_seen);
  if (!facts.examination) {
    return seen;
  }
  return std::to_string(facts.examination->nodes_examined) + " examined, " + seen + " with issues";
}

std::string format_inputs(const ReportFacts& facts) {
  std::string inputs;
  for (const std::string& input : facts.inputs) {
    inputs += (inputs.empty() ? "" : ", ") + input;
  }
  return inputs;
}

std::string format_line(const std::string& label, const std::string& text, int width) {
  constexpr std::size_t TEXT_COLUMN = 12;
  std::string lead = "  " + label + ":";
  lead.resize(TEXT_COLUMN, ' ');
  return str::word_wrap(lead + text, width, std::string(TEXT_COLUMN, ' ')) + "\n";
}

}  // namespace

std::string EngineHelper::format_header() {
  const ReportFacts& facts = standalone::report_facts();
  return "Cluster health report\n" +
         format_line("Written", format_time(facts.written_at), facts.line_width) +
         format_line("Input", format_inputs(facts), facts.line_width) +
         format_line("Nodes", format_nodes(facts), facts.line_width);
}

}  // namespace vond::util
