#include "standalone/cli/information_command.h"

#include <cerrno>

#include "standalone/cli/message.h"
#include "standalone/cli/output/standard_output.h"

namespace vond::standalone {

ExitStatus write_information(const Information& information) {
  StandardOutput output;
  output.stream() << information.text;
  const int error = output.drain();
  if (error == 0) {
    return PASSED;
  }
  if (error != EPIPE) {
    print_message("error", output.error_message());
  }
  return NO_REPORT;
}

}  // namespace vond::standalone
