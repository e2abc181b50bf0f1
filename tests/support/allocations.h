#pragma once

#include <cstddef>

/// Watches and disturbs the allocations of the whole program.
namespace vond::test {

/// While it lives, the n-th allocation from its construction on, counted from 1, throws
/// std::bad_alloc; the ones before and after it succeed.
class FailingAllocation {
 public:
  explicit FailingAllocation(std::size_t n);
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;
  ~FailingAllocation();

  /// Returns whether the allocation was asked for, and so has failed.
  bool happened() const;
};

/// While it lives, every allocation of `size` bytes and more throws std::bad_alloc.
class FailingLargeAllocations {
 public:
  explicit FailingLargeAllocations(std::size_t size);
  FailingLargeAllocations(const FailingLargeAllocations&) = delete;
  FailingLargeAllocations& operator=(const FailingLargeAllocations&) = delete;
  ~FailingLargeAllocations();
};

/// Returns the number of allocations that have not been released.
std::size_t live_allocations();

/// Returns the ordinal, in the life of the program, of the allocation that holds `address`; 0 if it
/// is not known. Only the allocations before main() are sure to be known.
std::size_t allocation_ordinal(const void* address);

}  // namespace vond::test
