#include "standalone/cli/message.h"

#include <iostream>

#include "standalone/text/harmless_text.h"

namespace vond::standalone {

void print_message(const std::string& kind, const std::string& message) {
  std::cerr << "vond-report: " + kind + ": " + harmless(message) + "\n";
}

}  // namespace vond::standalone
