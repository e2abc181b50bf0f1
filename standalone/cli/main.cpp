#include <exception>
#include <new>
#include <string>
#include <variant>

#include "standalone/cli/early_exits.h"
#include "standalone/cli/environment.h"
#include "standalone/cli/exit_status.h"
#include "standalone/cli/extension_choice.h"
#include "standalone/cli/information_command.h"
#include "standalone/cli/memory_shortage.h"
#include "standalone/cli/message.h"
#include "standalone/cli/options.h"
#include "standalone/cli/process.h"
#include "standalone/cli/report_command.h"
#include "standalone/cli/usage_error.h"
#include "standalone/input/input_error.h"

namespace {

using namespace vond::standalone;

/// Does what the command line asks for and prints what keeps it from being done.
ExitStatus execute(int argc, char** argv) {
  try {
    const Request request = parse_options(argc, argv, input_is_terminal());
    if (const auto* const options = std::get_if<Options>(&request)) {
      return write_report(*options);
    }
    const auto* const information = std::get_if<Information>(&request);
    return write_information(information ? *information : Information{list_extensions()});
  } catch (const UsageError& error) {
    print_message("error", std::string(error.what()) + "; see vond-report --help");
    return BAD_INPUT;
  } catch (const InputError& error) {
    print_message("error", error.what());
    return BAD_INPUT;
  } catch (const std::bad_alloc&) {
    print_memory_shortage();
  } catch (const std::exception& error) {
    print_message("error", error.what());
  }
  return NO_REPORT;
}

}  // namespace

int main(int argc, char** argv) {
  prepare_process();
  return allow_exit(execute(argc, argv));
}
