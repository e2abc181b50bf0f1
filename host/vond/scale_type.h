#pragma once

namespace vond {

/// How a quantity scales.
enum class ScaleType : int { constant = 0, linear = 1, squared = 2, logarithmic = 3 };

}  // namespace vond
