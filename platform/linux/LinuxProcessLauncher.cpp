#include "linux/LinuxProcessLauncher.h"

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "linux/FileDescriptor.h"

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

std::string readToEnd(const FileDescriptor& pipe) {
  std::string output;
  std::array<char, 65536> buffer;
  for (;;) {
    const ssize_t count = ::read(pipe.get(), buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return output;
    output.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace

void LinuxProcessLauncher::spawn(const std::string& path,
                                 const std::vector<std::string>& argumentVector) {
  pid_t ignored;
  const auto arguments = pointersTo(argumentVector);
  char* const noEnvironment[] = {nullptr};
  ::posix_spawn(&ignored, path.c_str(), nullptr, nullptr, arguments.data(), noEnvironment);
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
  pid_t ignored;
  const int error = ::posix_spawn(&ignored, path.c_str(), actions.get(), nullptr,
                                  pointersTo(argumentVector).data(), environ);
  if (error != 0) failToLaunch(path, error);
  // Only the child may hold this end, or the reading would never end.
  input.reset();
  return readToEnd(output);
}

}  // namespace frelta
