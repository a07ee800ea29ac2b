#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <stdexcept>

namespace frelta {

/// Runs the function in a copy of this process, for what cannot be undone: limits, filters,
/// namespaces. Returns what waitpid() tells; the function's result is the exit status.
inline int waitStatusOfChild(const std::function<int()>& function) {
  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child == 0) {
    int status = 255;
    try {
      status = function();
    } catch (...) {
    }
    ::_exit(status);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return status;
}

/// Its exit status, or -1 when a signal ended it.
inline int exitStatusOfChild(const std::function<int()>& function) {
  const int status = waitStatusOfChild(function);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace frelta
