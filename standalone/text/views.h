#pragma once

#include <functional>
#include <string_view>

namespace vond::standalone {

/// Whether `part` is a view of some of `whole`.
inline bool is_view_into(std::string_view part, std::string_view whole) {
  const std::less_equal<> not_behind;
  return not_behind(whole.data(), part.data()) &&
         not_behind(part.data() + part.size(), whole.data() + whole.size());
}

}  // namespace vond::standalone
