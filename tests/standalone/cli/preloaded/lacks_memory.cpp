// Preloaded, it has the allocation with the number $FAILING_ALLOCATION fail as operator new does
// when there is no memory left, counted from the moment when an extension is loaded.
#include <dlfcn.h>

#include <cstdlib>
#include <new>

namespace {

bool is_counting = false;
long allocations_left = 0;

bool fails_now() { return is_counting && --allocations_left == 0; }

void start_counting() {
  const char* const number = std::getenv("FAILING_ALLOCATION");
  allocations_left = number == nullptr ? 0 : std::atol(number);
  is_counting = true;
}

}  // namespace

extern "C" void* dlopen(const char* path, int mode) {
  using Open = void*(const char*, int);
  static Open* const open = reinterpret_cast<Open*>(dlsym(RTLD_NEXT, "dlopen"));
  void* const library = open(path, mode);
  start_counting();
  return library;
}

void* operator new(std::size_t size) {
  void* memory = fails_now() ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (memory != nullptr) {
    return memory;
  }
  if (const std::new_handler handler = std::get_new_handler()) {
    handler();
  }
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
