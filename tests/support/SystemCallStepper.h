#pragma once

#include <signal.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace frelta {

/// How a program that was to be killed on the way came to its end.
struct SteppedRun {
  bool isTraced = false;          // false: this system lets no process trace another
  std::optional<int> exitStatus;  // set when it ended by itself, before its turn
};

/// Runs the program until it stops itself (SIGSTOP) and kills it when it has from there entered or
/// left system calls that many times.
inline SteppedRun killAtSystemCallStop(const std::vector<std::string>& argumentVector, int stop) {
  std::vector<char*> arguments;
  for (const auto& argument : argumentVector)
    arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(126);
    ::execv(arguments.front(), arguments.data());
    ::_exit(127);
  }

  int status = 0;
  const auto waitForStop = [&] {
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFSTOPPED(status);
  };
  do {
    if (!waitForStop()) return {};
  } while (WSTOPSIG(status) != SIGSTOP && ::ptrace(PTRACE_CONT, child, nullptr, nullptr) == 0);
  for (int passed = 0; passed < stop; ++passed) {
    ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    if (!waitForStop()) return {true, WIFEXITED(status) ? WEXITSTATUS(status) : -1};
  }
  ::kill(child, SIGKILL);
  while (waitForStop()) {
  }
  return {true, std::nullopt};
}

/// Runs the function in a copy of this process and calls the other one each time when it has
/// entered or left a system call, with how many times that has been, from 1. Returns what waitpid()
/// told in the end; nothing where this system lets no process trace another.
inline std::optional<int> waitStatusOfSteppedChild(const std::function<int()>& function,
                                                   const std::function<void(pid_t, int)>& stopped) {
  const pid_t child = ::fork();
  if (child == 0) {
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(126);
    ::raise(SIGSTOP);
    ::_exit(function());
  }
  int status = 0;
  for (int stop = 0;; ++stop) {
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (!WIFSTOPPED(status)) return stop == 0 ? std::nullopt : std::optional(status);
    if (stop > 0) stopped(child, stop);
    ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
  }
}

}  // namespace frelta
