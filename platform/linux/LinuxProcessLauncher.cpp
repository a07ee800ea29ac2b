#include "linux/LinuxProcessLauncher.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <optional>

#include "linux/FileDescriptor.h"

// glibc 2.36 leaves it to C++ to say so.
extern "C" {
#include <sys/pidfd.h>
}

namespace frelta {

namespace {

std::vector<char*> pointersTo(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  // The C interface takes what it never changes without const.
  for (const auto& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

class FileActions {
 public:
  FileActions() { ::posix_spawn_file_actions_init(&actions_); }
  ~FileActions() { ::posix_spawn_file_actions_destroy(&actions_); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;
  posix_spawn_file_actions_t* get() { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_;
};

[[noreturn]] void failToLaunch(const std::string& path, int error) {
  const std::string reason = path + ": " + std::strerror(error);
  if (error == ENOENT) throw MissingProgram(reason);
  throw LaunchFailure(reason);
}

using Clock = std::chrono::steady_clock;

/// Whether there is something to read, or the end, before the time is over.
bool waitFor(const FileDescriptor& pipe, Clock::time_point end) {
  for (;;) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    pollfd wanted{pipe.get(), POLLIN, 0};
    const int count = ::poll(&wanted, 1, static_cast<int>(std::max<std::int64_t>(0, left)));
    if (count < 0 && errno == EINTR) continue;
    return count > 0;
  }
}

/// Nothing when there is more than may be, or no end in time.
std::optional<std::string> readToEnd(const FileDescriptor& pipe, Clock::time_point end) {
  std::string output;
  std::array<char, 4096> buffer;
  while (waitFor(pipe, end)) {
    const ssize_t count = ::read(pipe.get(), buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return output;
    output.append(buffer.data(), static_cast<std::size_t>(count));
    if (output.size() > ProcessLauncher::kMaximumOutput) return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace

bool LinuxProcessLauncher::spawn(const std::string& path,
                                 const std::vector<std::string>& argumentVector) {
  pid_t ignored;
  const auto arguments = pointersTo(argumentVector);
  char* const noEnvironment[] = {nullptr};
  errno = ::posix_spawn(&ignored, path.c_str(), nullptr, nullptr, arguments.data(), noEnvironment);
  return errno == 0;
}

std::string LinuxProcessLauncher::standardOutputOf(const std::string& path,
                                                   const std::vector<std::string>& arguments,
                                                   const std::string& workingDirectory) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) failToLaunch(path, errno);
  const FileDescriptor output(ends[0]);
  FileDescriptor input(ends[1]);

  FileActions actions;
  ::posix_spawn_file_actions_addchdir_np(actions.get(), workingDirectory.c_str());
  ::posix_spawn_file_actions_adddup2(actions.get(), input.get(), STDOUT_FILENO);
  std::vector<std::string> argumentVector{path};
  argumentVector.insert(argumentVector.end(), arguments.begin(), arguments.end());
  pid_t child;
  const int error = ::posix_spawn(&child, path.c_str(), actions.get(), nullptr,
                                  pointersTo(argumentVector).data(), environ);
  if (error != 0) failToLaunch(path, error);
  // Only the child may hold this end, or the reading would never end.
  input.reset();
  // By its number alone another process might be hit, which has got it since.
  const FileDescriptor process(::pidfd_open(child, 0));
  auto bytes = readToEnd(output, Clock::now() + longestRun_);
  if (!bytes) {
    if (process.get() >= 0) ::pidfd_send_signal(process.get(), SIGKILL, nullptr, 0);
    return {};
  }
  return *std::move(bytes);
}

}  // namespace frelta
