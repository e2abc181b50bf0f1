#include "standalone/acknowledged/acknowledgement.h"

#include <algorithm>

namespace vond::standalone {

bool Acknowledgement::covers(int severity, std::string_view node) const {
  return severity <= up_to &&
         (is_everywhere || std::binary_search(nodes.begin(), nodes.end(), node, std::less<>()));
}

}  // namespace vond::standalone
