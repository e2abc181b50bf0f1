#pragma once

#include <string>
#include <typeinfo>

namespace vond::standalone {

/// Returns `text` with the first name in it that the compiler has mangled as C++ spells it.
std::string with_readable_name(const std::string& text);

/// Returns the type's name as C++ spells it.
std::string readable_name(const std::type_info& type);

}  // namespace vond::standalone
