#pragma once

namespace vond::util {

/// Marks a class whose copies share what they point at.
template <typename Marked>
class NonDeepCopyable {};

}  // namespace vond::util
