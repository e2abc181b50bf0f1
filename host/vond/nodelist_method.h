#pragma once

namespace vond {

/// How node lists are dealt out.
enum class nodelist_method_t : int {
  none = 0,
  rotate_right = 1,
  rotate_left = 2,
  round_robin = 3,
  random = 4
};

}  // namespace vond
