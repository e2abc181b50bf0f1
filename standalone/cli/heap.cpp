#include "standalone/cli/heap.h"

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace vond::standalone {

namespace {

/// Addresses, not memory: what of it is never touched is never there.
constexpr int RESERVED = 1 << 30;
/// The highest threshold that there is.
constexpr int LARGEST_IN_HEAP = 32 << 20;

/// What the heap grows by once it has outgrown that.
constexpr int GROWTH = 1 << 20;
constexpr std::uintptr_t LARGE_PAGE = std::uintptr_t{2} << 20U;

/// Returns the first address that begins a large page, from `at` on.
char* next_large_page(char* at) {
  const std::uintptr_t used = reinterpret_cast<std::uintptr_t>(at) % LARGE_PAGE;
  return used == 0 ? at : at + (LARGE_PAGE - used);
}

char* end_of_heap() { return static_cast<char*>(sbrk(0)); }

/// Lets the heap grow at once by what is reserved.
void grow_heap() {
  mallopt(M_TOP_PAD, RESERVED);
  // Without `volatile` the compiler would see that nobody needs the block.
  void* const volatile block = std::malloc(LARGEST_IN_HEAP / 2);
  std::free(block);
  mallopt(M_TOP_PAD, GROWTH);
}

}  // namespace

void prepare_heap() {
  // 1. All comes from the heap, which does not shrink. Some allocators have no such heap.
  if (mallopt(M_MMAP_THRESHOLD, LARGEST_IN_HEAP) == 0) {
    return;
  }
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  // 2. What it grows by begins at the next large page.
  char* const begin = next_large_page(end_of_heap());
  grow_heap();
  char* const end = end_of_heap();
  if (end > begin) {
    madvise(begin, static_cast<std::size_t>(end - begin), MADV_HUGEPAGE);
  }
}

}  // namespace vond::standalone
