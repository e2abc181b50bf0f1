// Preloaded, it appends what goes to the system log to the file $NOTED_SYSLOG: a line each, of the
// priority and the text.
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace {

void note(int priority, const char* format, std::va_list arguments) {
  const char* const path = std::getenv("NOTED_SYSLOG");
  std::FILE* const file = path == nullptr ? nullptr : std::fopen(path, "a");
  if (file == nullptr) {
    return;
  }
  std::fprintf(file, "%d ", priority);
  std::vfprintf(file, format, arguments);
  std::fputc('\n', file);
  std::fclose(file);
}

}  // namespace

extern "C" void syslog(int priority, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  note(priority, format, arguments);
  va_end(arguments);
}

/// What syslog() is when functions of the system are checked more closely.
// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming): the system's name.
extern "C" void __syslog_chk(int priority, int /*flag*/, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  note(priority, format, arguments);
  va_end(arguments);
}
