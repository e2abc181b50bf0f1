#include "standalone/definitions/definition_names.h"

namespace vond::standalone {

namespace {

std::string_view without_slashes_at_end(std::string_view text) {
  return text.substr(0, text.find_last_not_of('/') + 1);
}

}  // namespace

std::string_view spelled_parent(std::string_view name) {
  const std::string_view path = without_slashes_at_end(name);
  const std::size_t slash = path.find_last_of('/');
  return slash == std::string_view::npos ? std::string_view()
                                         : without_slashes_at_end(path.substr(0, slash));
}

int spelled_depth(std::string_view name) {
  int depth = 0;
  for (; !name.empty(); name = spelled_parent(name)) {
    ++depth;
  }
  return depth;
}

}  // namespace vond::standalone
