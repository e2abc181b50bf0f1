// measure RESULT COMMAND [ARGUMENTS]: runs the command and writes to the file RESULT its wall time
// in seconds, its peak memory in bytes and its exit status. A small program of its own, because a
// child counts the memory of the process that starts it as its own.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int CANNOT_RUN = 127;

struct Measurement {
  double seconds;
  double cpu_seconds;
  long peak_bytes;
  int status;
};

double seconds_of(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

Measurement run(char** command) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    execvp(command[0], command);
    std::perror(command[0]);
    std::_Exit(CANNOT_RUN);
  }
  int status = -1;
  rusage usage{};
  if (child < 0 || wait4(child, &status, 0, &usage) != child) {
    std::perror("measure");
    return {0, 0, 0, CANNOT_RUN};
  }
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
  // The kernel counts in KiB.
  return {time.count(), seconds_of(usage.ru_utime) + seconds_of(usage.ru_stime),
          usage.ru_maxrss * 1024, WIFEXITED(status) ? WEXITSTATUS(status) : CANNOT_RUN};
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fputs("usage: measure RESULT COMMAND [ARGUMENTS]\n", stderr);
    return 2;
  }
  const Measurement measured = run(argv + 2);
  std::FILE* result = std::fopen(argv[1], "w");
  if (result == nullptr) {
    std::perror(argv[1]);
    return 2;
  }
  std::fprintf(result, "%.6f %.6f %ld %d\n", measured.seconds, measured.cpu_seconds,
               measured.peak_bytes, measured.status);
  return std::fclose(result) == 0 ? 0 : 2;
}
