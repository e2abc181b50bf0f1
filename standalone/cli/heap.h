#pragma once

namespace vond::standalone {

/// Lets the heap be made of large pages where the kernel has them, and keep what is freed: a report
/// on many issues goes from one small piece of memory to another, and large vectors grow. Called
/// before much is allocated; where memory cannot be reserved, all is as it would be without it.
void prepare_heap();

}  // namespace vond::standalone
