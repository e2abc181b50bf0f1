// Preloaded, it tells on standard error that large pages are asked for. The program does so before
// libraries are initialised, so this uses nothing but system calls.
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstddef>
#include <string_view>

extern "C" int madvise(void* begin, std::size_t size, int advice) noexcept {
  if (advice == MADV_HUGEPAGE) {
    constexpr std::string_view NOTE = "large pages are asked for\n";
    syscall(SYS_write, STDERR_FILENO, NOTE.data(), NOTE.size());
  }
  return static_cast<int>(syscall(SYS_madvise, begin, size, advice));
}
