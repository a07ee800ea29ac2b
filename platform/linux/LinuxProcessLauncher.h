#pragma once

#include "foundation/ProcessLauncher.h"

namespace frelta {

/// Children by posix_spawn. None is ever waited for: an application that goes on running ignores
/// the end of its children (SA_NOCLDWAIT), so that they leave no zombies.
class LinuxProcessLauncher : public ProcessLauncher {
 public:
  void spawn(const std::string& path, const std::vector<std::string>& argumentVector) override;
  /// The child inherits the environment, and of the streams all but its standard output.
  std::string standardOutputOf(const std::string& path, const std::vector<std::string>& arguments,
                               const std::string& workingDirectory) override;
};

}  // namespace frelta
