#include "tests/support/allocations.h"

#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

struct Block {
  std::uintptr_t begin;
  std::size_t size;
};

// All of these are constant-initialised: allocations come before any constructor of this file.
constexpr std::size_t MAX_BLOCKS = 65536;
Block blocks[MAX_BLOCKS];
std::size_t blocks_recorded = 0;
std::size_t live = 0;
/// Allocations that still succeed, plus 1; 0 while nothing is to fail.
std::size_t countdown = 0;
bool failed = false;
/// 0 while allocations may have any size.
std::size_t too_large = 0;

void* allocate(std::size_t size) noexcept {
  if (countdown > 0 && --countdown == 0) {
    failed = true;
    return nullptr;
  }
  if (too_large > 0 && size >= too_large) {
    return nullptr;
  }
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) {
    return nullptr;
  }
  ++live;
  if (blocks_recorded < MAX_BLOCKS) {
    blocks[blocks_recorded++] = {reinterpret_cast<std::uintptr_t>(memory), size};
  }
  return memory;
}

void* allocate_or_throw(std::size_t size) {
  void* const memory = allocate(size);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}

void release(void* memory) noexcept {
  if (memory == nullptr) {
    return;
  }
  --live;
  std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) { return allocate_or_throw(size); }
void* operator new[](std::size_t size) { return allocate_or_throw(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void operator delete(void* memory) noexcept { release(memory); }
void operator delete[](void* memory) noexcept { release(memory); }
void operator delete(void* memory, std::size_t) noexcept { release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { release(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { release(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { release(memory); }

namespace vond::test {

FailingAllocation::FailingAllocation(std::size_t n) {
  failed = false;
  countdown = n;
}

FailingAllocation::~FailingAllocation() { countdown = 0; }

bool FailingAllocation::happened() const { return failed; }

FailingLargeAllocations::FailingLargeAllocations(std::size_t size) { too_large = size; }

FailingLargeAllocations::~FailingLargeAllocations() { too_large = 0; }

std::size_t live_allocations() { return live; }

std::size_t allocation_ordinal(const void* address) {
  const auto wanted = reinterpret_cast<std::uintptr_t>(address);
  // From the last one: earlier blocks at this place have been released since.
  for (std::size_t ordinal = blocks_recorded; ordinal > 0; --ordinal) {
    const Block& block = blocks[ordinal - 1];
    if (wanted >= block.begin && wanted < block.begin + block.size) {
      return ordinal;
    }
  }
  return 0;
}

}  // namespace vond::test
