#include "standalone/cli/running_extension.h"

#include <csignal>
#include <cstddef>

#include "standalone/text/harmless_text.h"

namespace vond::standalone {
namespace {

constexpr std::size_t MOST_BYTES = 4096;

/// Always ends with a zero byte.
char last_name[MOST_BYTES + 1];
volatile std::sig_atomic_t is_in_charge = 0;

}  // namespace

RunningExtension::RunningExtension(const std::string& path) {
  const std::string name = harmless(path);
  last_name[name.copy(last_name, MOST_BYTES)] = '\0';
  is_in_charge = 1;
}

RunningExtension::~RunningExtension() { is_in_charge = 0; }

const char* RunningExtension::name() { return is_in_charge != 0 ? last_name : ""; }

void RunningExtension::recall_last() { is_in_charge = 1; }

}  // namespace vond::standalone
