#pragma once

#include "foundation/ProcessLauncher.h"

namespace frelta {

/// Children by posix_spawn. None is ever waited for: an application that goes on running ignores
/// the end of its children (SA_NOCLDWAIT), so that they leave no zombies.
class LinuxProcessLauncher : public ProcessLauncher {
 public:
  /// Tests let a run take less.
  explicit LinuxProcessLauncher(std::chrono::milliseconds longestRun = kLongestRun)
      : longestRun_(longestRun) {}

  bool spawn(const std::string& path, const std::vector<std::string>& argumentVector) override;
  /// The child inherits the environment, and of the streams all but its standard output.
  std::string standardOutputOf(const std::string& path, const std::vector<std::string>& arguments,
                               const std::string& workingDirectory) override;

 private:
  std::chrono::milliseconds longestRun_;
};

}  // namespace frelta
