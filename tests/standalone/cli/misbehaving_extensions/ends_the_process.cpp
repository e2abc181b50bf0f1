// An extension that ends the process: where and how, the environment says.
#include <sys/mman.h>

#include <csignal>
#include <cstdlib>
#include <cstring>

#include "vond/log/output_log.h"
#include "vond/postprocessor/postprocessor_extension.h"

using vond::postprocessor::PostprocessorExtension;
using vond::postprocessor::PostprocessorExtensionData;

namespace {

bool is_set_to(const char* variable, const char* value) {
  const char* const set = std::getenv(variable);
  return set != nullptr && std::strcmp(set, value) == 0;
}

volatile int zero = 0;

/// Never returns, and takes more of the stack each time.
int overflow_stack(int depth) {
  volatile char block[1024];
  block[0] = static_cast<char>(depth);
  return depth < 0 ? block[0] : overflow_stack(depth + 1) + block[0];
}

void write_where_nothing_may_be_written() {
  void* const page = mmap(nullptr, 1, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  *static_cast<volatile char*>(page) = 1;
}

void end() {
  for (const int status : {0, 7}) {
    if (is_set_to("END_HOW", status == 0 ? "exit(0)" : "exit(7)")) {
      std::exit(status);
    }
  }
  if (is_set_to("END_HOW", "quick_exit")) {
    std::quick_exit(0);
  } else if (is_set_to("END_HOW", "abort")) {
    std::abort();
  } else if (is_set_to("END_HOW", "segfault")) {
    write_where_nothing_may_be_written();
  } else if (is_set_to("END_HOW", "division")) {
    zero = 100 / zero;
  } else if (is_set_to("END_HOW", "overflow")) {
    zero = overflow_stack(0);
  } else if (is_set_to("END_HOW", "raise")) {
    std::raise(SIGILL);
  }
}

void end_in(const char* where) {
  if (is_set_to("END_WHERE", where)) {
    end();
  }
}

struct StaticObject {
  StaticObject() { end_in("static constructor"); }
  ~StaticObject() { end_in("static destructor"); }
};
StaticObject static_object;

class Extension : public PostprocessorExtension {
 public:
  explicit Extension(PostprocessorExtensionData& engine_data)
      : PostprocessorExtension(engine_data) {
    data = engine_data;
    end_in("constructor");
  }
  Extension(const Extension&) = delete;
  Extension& operator=(const Extension&) = delete;
  ~Extension() override { end_in("destructor"); }

  int run() override {
    vond::log::OutputLog() << "before the end\n";
    end_in("run");
    return 0;
  }
};

}  // namespace

extern "C" VOND_HOST_API PostprocessorExtension* create(PostprocessorExtensionData& data) {
  return new Extension(data);
}
