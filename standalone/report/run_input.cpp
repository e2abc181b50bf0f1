#include "standalone/report/run_input.h"

#include <sys/stat.h>
#include <unistd.h>

#include "standalone/text/harmless_text.h"

namespace vond::standalone {

RunInput describe_input(const std::string& path) {
  const bool is_standard_input = path == "-";
  struct stat status {};
  const int error =
      is_standard_input ? ::fstat(STDIN_FILENO, &status) : ::stat(path.c_str(), &status);
  RunInput input{is_standard_input ? "standard input" : harmless(path), {}};
  if (error == 0 && S_ISREG(status.st_mode)) {
    input.changed_at = status.st_mtime;
  }
  return input;
}

}  // namespace vond::standalone
