#include "standalone/nodes/group_hint.h"

namespace vond::standalone {
namespace {

bool begins_group(std::string_view set, std::size_t offset) {
  static constexpr std::string_view BEFORE_NAMES = ", \t";
  return offset < set.size() && set[offset] == '@' &&
         (offset == 0 || BEFORE_NAMES.find(set[offset - 1]) != std::string_view::npos);
}

/// Returns the group at the start of `text`; "@group" for one that a shell could misunderstand.
std::string_view group_name(std::string_view text) {
  static constexpr std::string_view END = ", \t";
  static constexpr std::string_view HARMLESS_IN_SHELLS =
      "@abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_.:-";
  const std::string_view name = text.substr(0, text.find_first_of(END));
  const bool is_harmless = name.find_first_not_of(HARMLESS_IN_SHELLS) == std::string_view::npos;
  return is_harmless && name.size() > 1 ? name : "@group";
}

}  // namespace

std::string group_hint(std::string_view set, std::size_t offset) {
  if (!begins_group(set, offset)) {
    return {};
  }
  return std::string("; the nodes of a group: $(nodeset -f ")
      .append(group_name(set.substr(offset)))
      .append(")");
}

}  // namespace vond::standalone
