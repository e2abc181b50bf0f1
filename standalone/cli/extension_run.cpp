#include "standalone/cli/extension_run.h"

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

/// Each attempt that failed counts, whatever became of it.
void expect_no_failed_allocation_since(std::size_t failures_before) {
  if (failed_allocations() != failures_before) {
    throw std::bad_alloc();
  }
}

}  // namespace

void run_checked(const ChosenExtension& extension,
                 postprocessor::PostprocessorExtensionData& record) {
  const TextEndsWithMemory ending;
  const std::size_t failures_before = failed_allocations();
  const RunningExtension in_charge(extension.name);
  try {
    run_extension(extension.path, record, extension.name);
  } catch (const ExtensionError&) {
    expect_no_failed_allocation_since(failures_before);
    throw;
  }
  expect_no_failed_allocation_since(failures_before);
}

}  // namespace vond::standalone
