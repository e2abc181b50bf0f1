#include "standalone/model/type_names.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace vond::standalone {

namespace {

using postprocessor::TypeCode;

constexpr std::array<std::pair<TypeCode, std::string_view>, postprocessor::ALL_OBSERVATIONS> TYPES =
    {{{postprocessor::DIAGNOSES, "diagnosis"},
      {postprocessor::OBSERVATIONS, "observation"},
      {postprocessor::MISSING_DATA, "missing_data"}}};

/// A row in its place is the one that its code is an index for.
constexpr bool has_every_type_its_place() {
  for (std::size_t code = 0; code < TYPES.size(); ++code) {
    if (TYPES[code].first != code || TYPES[code].second.empty()) {
      return false;
    }
  }
  return true;
}
static_assert(has_every_type_its_place());

std::vector<std::string_view> names_in_table() {
  std::vector<std::string_view> names;
  names.reserve(TYPES.size());
  for (const auto& [type, name] : TYPES) {
    names.push_back(name);
  }
  return names;
}

}  // namespace

const std::vector<std::string_view>& type_names() {
  static const std::vector<std::string_view> names = names_in_table();
  return names;
}

std::string_view type_name(TypeCode type) {
  return TYPES[type < TYPES.size() ? type : postprocessor::OBSERVATIONS].second;
}

std::optional<TypeCode> type_of_name(std::string_view name) {
  const auto* const row = std::find_if(TYPES.begin(), TYPES.end(),
                                       [name](const auto& entry) { return entry.second == name; });
  return row == TYPES.end() ? std::nullopt : std::optional(row->first);
}

}  // namespace vond::standalone
