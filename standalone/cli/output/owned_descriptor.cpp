#include "standalone/cli/output/owned_descriptor.h"

#include <unistd.h>

#include <cerrno>

namespace vond::standalone {

int OwnedDescriptor::close() noexcept {
  const int result = number_ < 0 ? 0 : ::close(number_);
  number_ = -1;
  return result == 0 ? 0 : errno;
}

}  // namespace vond::standalone
