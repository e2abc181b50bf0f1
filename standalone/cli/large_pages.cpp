#include <mimalloc.h>
#include <sys/mman.h>
#include <sys/resource.h>

#include <cstddef>
#include <memory>

namespace {

/// Addresses, not memory: what of it is never touched is never there.
constexpr std::size_t RESERVED = std::size_t{1} << 30U;
/// mimalloc gives out memory from multiples of it on.
constexpr std::size_t ALIGNMENT = std::size_t{64} << 20U;
constexpr int ANY_NUMA_NODE = -1;

/// Where addresses are limited, those that are reserved would be missing for libraries.
bool are_addresses_limited() {
  rlimit limit{};
  return getrlimit(RLIMIT_AS, &limit) != 0 || limit.rlim_cur != RLIM_INFINITY;
}

/// Gives mimalloc what it takes first, and never gives back. Its own option for large pages may
/// take those that the system has set aside for others, and where a container must not have any the
/// kernel ends it for that.
void reserve_large_pages() {
  if (are_addresses_limited()) {
    return;
  }
  void* begin = mmap(nullptr, RESERVED, PROT_READ | PROT_WRITE,
                     MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (begin == MAP_FAILED) {
    return;
  }
  std::size_t size = RESERVED;
  std::align(ALIGNMENT, 1, begin, size);
  madvise(begin, size, MADV_HUGEPAGE);
  mi_manage_os_memory(begin, size, /*is_committed=*/true, /*is_large=*/true, /*is_zero=*/true,
                      ANY_NUMA_NODE);
}

// mimalloc takes its first memory while libraries are initialised, before all that is in the
// program.
using Function = void (*)();
[[gnu::section(".preinit_array"), gnu::used]] const Function BEFORE_LIBRARIES = reserve_large_pages;

}  // namespace
