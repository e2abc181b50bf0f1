#include "standalone/libvond_host/blocks/header.h"

#include "standalone/facts/counts.h"
#include "standalone/facts/verdict.h"
#include "standalone/libvond_host/blocks/input_list.h"
#include "standalone/text/text_wrapping.h"
#include "standalone/text/utc_time.h"

namespace vond::standalone {
namespace {

std::string format_nodes(const ReportFacts& facts) {
  const std::string seen = std::to_string(facts.nodes_seen);
  // A node whose issues are all acknowledged is not healthy.
  const std::string acknowledged =
      facts.acknowledged && !facts.acknowledged->nodes.empty()
          ? ", " + std::to_string(facts.acknowledged->nodes.size()) + " with acknowledged ones"
          : std::string();
  const std::string expected =
      facts.expectation ? ", " + std::to_string(facts.expectation->nodes_expected) + " expected"
                        : std::string();
  if (facts.examination) {
    return std::to_string(facts.examination->nodes_examined) + " examined, " + seen +
           " with issues" + acknowledged + expected;
  }
  return seen + " seen" + expected + "; which were examined is not known";
}

ListLayout layout_of(const std::string& label, int width) {
  constexpr std::size_t TEXT_COLUMN = 12;
  std::string lead = "  " + label + ":";
  lead.resize(TEXT_COLUMN, ' ');
  return {.lead = lead, .indent = std::string(TEXT_COLUMN, ' '), .width = width};
}

std::string format_line(const ListLayout& layout, const std::string& text) {
  return wrap_text(layout.lead + text, {.width = layout.width, .indent = layout.indent}) + "\n";
}

}  // namespace

std::string format_header(const ReportFacts& facts) {
  const int width = facts.line_width;
  return "Cluster health report: " + verdict_word(verdict_of(facts)) + "\n" +
         format_line(layout_of("Written", width),
                     format_utc_time(facts.written_at, "%Y-%m-%d %H:%M:%S UTC")) +
         limited_input_list(layout_of("Input", width), facts.inputs) + "\n" +
         format_line(layout_of("Nodes", width), format_nodes(facts));
}

}  // namespace vond::standalone
