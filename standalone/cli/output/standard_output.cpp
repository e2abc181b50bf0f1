#include "standalone/cli/output/standard_output.h"

#include <unistd.h>

#include <system_error>

namespace vond::standalone {
namespace {

DescriptorBuffer::Flushing flushing_of_standard_output() {
  return isatty(STDOUT_FILENO) == 1 ? DescriptorBuffer::Flushing::AT_ONCE
                                    : DescriptorBuffer::Flushing::IN_BLOCKS;
}

}  // namespace

StandardOutput::StandardOutput() : buffer_(STDOUT_FILENO, flushing_of_standard_output()) {}

std::string StandardOutput::error_message() const {
  return "standard output: " + std::generic_category().message(buffer_.error());
}

}  // namespace vond::standalone
