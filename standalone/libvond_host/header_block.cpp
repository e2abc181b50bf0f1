#include "standalone/libvond_host/header_block.h"

#include <cstddef>
#include <ctime>

#include "standalone/text/messages.h"
#include "standalone/text/text_wrapping.h"

namespace vond::standalone {
namespace {

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

std::string format_line(const std::string& label, const std::string& text, int width) {
  constexpr std::size_t TEXT_COLUMN = 12;
  std::string lead = "  " + label + ":";
  lead.resize(TEXT_COLUMN, ' ');
  return wrap_text(lead + text, {.width = width, .indent = std::string(TEXT_COLUMN, ' ')}) + "\n";
}

}  // namespace

std::string header_block(const ReportFacts& facts) {
  return "Cluster health report\n" +
         format_line("Written", format_time(facts.written_at), facts.line_width) +
         format_line("Input", join(facts.inputs), facts.line_width) +
         format_line("Nodes", format_nodes(facts), facts.line_width);
}

}  // namespace vond::standalone
