#pragma once

#include <string>
#include <string_view>

namespace vond::standalone {

// Owned by the wrapping work: one implementation behind word_wrap, column_wrap and space_wrap.

}  // namespace vond::standalone
