#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "vond/postprocessor/severity.h"

namespace vond::standalone {

/// Returns the names of the types that a finding can have, in the order of their codes.
const std::vector<std::string_view>& type_names();

/// Returns what findings call a type. ALL_OBSERVATIONS, which no finding has, is an observation.
std::string_view type_name(postprocessor::TypeCode type);

/// Returns the type that findings call `name`, nothing when there is none.
std::optional<postprocessor::TypeCode> type_of_name(std::string_view name);

}  // namespace vond::standalone
