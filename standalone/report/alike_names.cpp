#include "standalone/report/alike_names.h"

#include <string_view>
#include <unordered_map>

#include "standalone/text/ascii.h"

namespace vond::standalone {
namespace {

std::string_view without_domain(std::string_view name) {
  const bool is_address = name.find_first_not_of("0123456789.") == std::string_view::npos;
  const std::size_t dot = name.find('.');
  return is_address || dot == 0 ? name : name.substr(0, dot);
}

std::string without_leading_zeros(std::string_view name) {
  std::string shortened;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const bool begins_number = shortened.empty() || !is_digit(shortened.back());
    const bool number_goes_on = i + 1 < name.size() && is_digit(name[i + 1]);
    if (name[i] != '0' || !begins_number || !number_goes_on) {
      shortened += name[i];
    }
  }
  return shortened;
}

/// Returns what names of one node have in common.
std::string core_of(std::string_view name) {
  return lower_ascii(without_leading_zeros(without_domain(name)));
}

}  // namespace

std::vector<std::pair<std::string, std::string>> find_alike_names(
    const std::vector<std::string>& expected, const std::vector<std::string>& seen) {
  std::unordered_map<std::string, std::string_view> seen_by_core;
  for (const std::string& name : seen) {
    seen_by_core.try_emplace(core_of(name), name);
  }
  std::vector<std::pair<std::string, std::string>> alike;
  for (const std::string& name : expected) {
    const auto found = seen_by_core.find(core_of(name));
    if (found != seen_by_core.end()) {
      alike.emplace_back(name, found->second);
    }
  }
  return alike;
}

}  // namespace vond::standalone
