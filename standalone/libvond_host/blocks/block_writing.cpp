#include "standalone/libvond_host/blocks/block_writing.h"

#include "standalone/text/text_wrapping.h"

namespace vond::standalone {

using log::OutputLog;

void write_rule() { OutputLog(OutputLog::NONE) << std::string(80, '-') << "\n"; }

void write_empty_line() { OutputLog(OutputLog::NONE) << "\n"; }

void write_line(OutputLog::Colors color, const std::string& text, int width,
                const std::string& indent) {
  write_unwrapped_line(color, wrap_text(text, {.width = width, .indent = indent}));
}

void write_unwrapped_line(OutputLog::Colors color, const std::string& text) {
  OutputLog(color) << text;
  write_empty_line();
}

}  // namespace vond::standalone
