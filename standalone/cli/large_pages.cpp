#include <mimalloc.h>
#include <sys/mman.h>

#include <cstddef>
#include <cstdint>

namespace {

/// Addresses, not memory: what of it is never touched is never there.
constexpr std::size_t RESERVED = std::size_t{1} << 30U;
/// mimalloc gives out memory from multiples of it on.
constexpr std::uintptr_t ALIGNMENT = std::uintptr_t{64} << 20U;

/// Gives mimalloc what it takes first. Its own option for large pages may take those that the
/// system has set aside for others, and where a container must not have any the kernel ends it for
/// that.
void reserve_large_pages() {
  void* const reserved = mmap(nullptr, RESERVED, PROT_READ | PROT_WRITE,
                              MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (reserved == MAP_FAILED) {
    return;
  }
  const std::size_t skipped = -reinterpret_cast<std::uintptr_t>(reserved) % ALIGNMENT;
  char* const begin = static_cast<char*>(reserved) + skipped;
  const std::size_t size = RESERVED - skipped;
  madvise(begin, size, MADV_HUGEPAGE);
  mi_process_init();
  mi_manage_os_memory(begin, size, true, true, true, -1);
}

// mimalloc takes its first memory while libraries are initialised, before all that is in the
// program.
using Function = void (*)();
[[gnu::section(".preinit_array"), gnu::used]] const Function BEFORE_LIBRARIES = reserve_large_pages;

}  // namespace
