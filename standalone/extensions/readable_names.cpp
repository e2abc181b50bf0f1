#include "standalone/extensions/readable_names.h"

#include <cxxabi.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>

namespace vond::standalone {
namespace {

/// Returns the name as it is where it is none that the compiler has mangled.
std::string demangled(const std::string& name) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> text(
      abi::__cxa_demangle(name.c_str(), nullptr, nullptr, &status), &std::free);
  return text ? std::string(text.get()) : name;
}

}  // namespace

std::string with_readable_name(const std::string& text) {
  const std::size_t begin = text.find(" _Z") + 1;
  if (begin == 0) {
    return text;
  }
  const std::size_t end = std::min(text.find_first_of(" ,)", begin), text.size());
  return text.substr(0, begin) + demangled(text.substr(begin, end - begin)) + text.substr(end);
}

std::string readable_name(const std::type_info& type) { return demangled(type.name()); }

}  // namespace vond::standalone
