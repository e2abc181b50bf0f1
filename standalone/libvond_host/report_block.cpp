#include "standalone/libvond_host/report_block.h"

#include "standalone/text/text_wrapping.h"

namespace vond::standalone {

using log::OutputLog;

void ReportBlock::add(const std::string& text) { pieces_.push_back({OutputLog::NONE, text}); }

void ReportBlock::add_line(Colors color, const std::string& text, const std::string& indent) {
  pieces_.push_back({color, wrap_text(text, {.width = width_, .indent = indent})});
  add("\n");
}

void ReportBlock::add_rule() { add(std::string(80, '-') + "\n"); }

}  // namespace vond::standalone
