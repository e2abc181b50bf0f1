#include "standalone/cli/environment.h"

#include <sys/auxv.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <charconv>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include "standalone/cli/usage_error.h"
#include "standalone/text/harmless_text.h"

namespace vond::standalone {
namespace {

/// Returns the variable's value, empty when it is not set.
std::string_view environment_variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string_view() : value;
}

/// Returns the value of COLUMNS, 0 when it is not set or no number of columns. Shells set it, so
/// that what is wrong with it is nobody's mistake.
int columns_of_environment() {
  const std::string_view columns = environment_variable("COLUMNS");
  const char* const end = columns.data() + columns.size();
  int number = 0;
  const auto [rest, error] = std::from_chars(columns.data(), end, number);
  return error == std::errc() && rest == end && number > 0 ? number : 0;
}

bool is_terminal(int descriptor) { return isatty(descriptor) == 1; }

}  // namespace

bool input_is_terminal() { return is_terminal(STDIN_FILENO); }

bool errors_go_to_terminal() { return is_terminal(STDERR_FILENO); }

int default_width() {
  constexpr int WIDTH_WITHOUT_TERMINAL = 80;
  winsize size{};
  const bool is_known =
      is_terminal(STDOUT_FILENO) && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  if (is_known) {
    return size.ws_col;
  }
  const int columns = columns_of_environment();
  return columns > 0 ? columns : WIDTH_WITHOUT_TERMINAL;
}

bool wants_color(ColorMode mode) {
  if (mode != ColorMode::AUTO) {
    return mode == ColorMode::ALWAYS;
  }
  return is_terminal(STDOUT_FILENO) && environment_variable("NO_COLOR").empty();
}

std::time_t report_time() {
  constexpr std::time_t END_OF_YEAR_9999 = 253402300799;
  const std::string_view epoch = environment_variable("SOURCE_DATE_EPOCH");
  if (epoch.empty()) {
    return std::time(nullptr);
  }
  const char* const end = epoch.data() + epoch.size();
  std::time_t seconds = 0;
  const auto [rest, error] = std::from_chars(epoch.data(), end, seconds);
  if (error != std::errc() || rest != end || seconds < 0 || seconds > END_OF_YEAR_9999) {
    throw UsageError("SOURCE_DATE_EPOCH is \"" + harmless(epoch) +
                     "\", expected seconds since 1970 as a whole number");
  }
  return seconds;
}

std::string_view extension_search_path() { return environment_variable("VOND_EXTENSION_PATH"); }

std::filesystem::path program_folder() {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (!error) {
    return program.parent_path();
  }
  // Where /proc is not mounted, as in a bare chroot, the kernel still told what was executed; it
  // hands out addresses as numbers. NOLINTNEXTLINE(performance-no-int-to-ptr)
  const auto* const executed = reinterpret_cast<const char*>(::getauxval(AT_EXECFN));
  return std::filesystem::canonical(executed).parent_path();
}

}  // namespace vond::standalone
