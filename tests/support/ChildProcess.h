#pragma once

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

#include "linux/FileDescriptor.h"

namespace frelta {

/// A program that runs beside a test and dies with it. Its standard output can be read.
class ChildProcess {
 public:
  explicit ChildProcess(const std::vector<std::string>& argumentVector) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    output_ = FileDescriptor(ends[0]);
    const FileDescriptor input(ends[1]);
    std::vector<char*> arguments;
    for (const auto& argument : argumentVector)
      arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    pid_ = ::fork();
    if (pid_ < 0) throw std::runtime_error("no process");
    if (pid_ > 0) return;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::dup2(input.get(), STDOUT_FILENO);
    ::execvp(arguments.front(), arguments.data());
    ::_exit(127);
  }
  ~ChildProcess() { kill(); }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t pid() const { return pid_; }
  void signal(int number) { ::kill(pid_, number); }
  /// Ends it at once, also when it is stopped.
  void kill() {
    if (pid_ <= 0) return;
    ::kill(pid_, SIGKILL);
    ::waitpid(std::exchange(pid_, -1), nullptr, 0);
  }

  /// What it has printed by the time the condition holds of all the output so far, it has closed
  /// the output, or the time is over.
  template <typename Condition>
  const std::string& outputUntil(Condition isEnough, std::chrono::milliseconds timeout) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (!isEnough(text_)) {
      const auto left =
          std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
      pollfd readable{output_.get(), POLLIN, 0};
      if (left.count() <= 0 || ::poll(&readable, 1, static_cast<int>(left.count())) <= 0) break;
      std::array<char, 65536> buffer;
      const ssize_t count = ::read(output_.get(), buffer.data(), buffer.size());
      if (count <= 0) break;
      text_.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text_;
  }

 private:
  pid_t pid_ = -1;
  FileDescriptor output_;
  std::string text_;
};

}  // namespace frelta
