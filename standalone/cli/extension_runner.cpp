#include "standalone/cli/extension_runner.h"

#include <cstddef>
#include <new>

#include "standalone/cli/memory_shortage.h"
#include "standalone/cli/output/descriptor_buffer.h"
#include "standalone/cli/running_extension.h"
#include "standalone/extensions/extension_loader.h"

namespace vond::standalone {
namespace {

/// While it lives, no text follows a gap. Streams swallow the exceptions of their buffers: for lack
/// of memory a statement would be cut short, the rest of the report would follow, and its end.
struct TextEndsWithMemory {
  TextEndsWithMemory() { on_failed_allocation(DescriptorBuffer::end_all_texts); }
  ~TextEndsWithMemory() { on_failed_allocation(nullptr); }
  TextEndsWithMemory(const TextEndsWithMemory&) = delete;
  TextEndsWithMemory& operator=(const TextEndsWithMemory&) = delete;
};

}  // namespace

void ExtensionRunner::run(const std::vector<std::string>& paths) {
  const TextEndsWithMemory ending;
  const std::size_t failures_before = failed_allocations();
  for (const std::string& path : paths) {
    const RunningExtension in_charge(path);
    run_extension(path, data_);
  }
  // Each attempt that failed counts, whatever became of it.
  if (failed_allocations() != failures_before) {
    throw std::bad_alloc();
  }
}

}  // namespace vond::standalone
