#include "standalone/cli/extension_runner.h"

#include <cstddef>
#include <new>

#include "standalone/cli/memory_shortage.h"
#include "standalone/cli/running_extension.h"
#include "standalone/extensions/extension_loader.h"

namespace vond::standalone {

void ExtensionRunner::run(const std::vector<std::string>& paths) {
  const std::size_t failures_before = failed_allocations();
  for (const std::string& path : paths) {
    const RunningExtension in_charge(path);
    run_extension(path, data_);
  }
  // Streams swallow the exceptions of their buffers: for lack of memory a statement would be cut
  // short and nobody would know. So each attempt that failed counts.
  if (failed_allocations() != failures_before) {
    throw std::bad_alloc();
  }
}

}  // namespace vond::standalone
