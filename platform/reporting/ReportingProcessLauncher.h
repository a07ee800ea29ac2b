#pragma once

#include "foundation/FailureListener.h"
#include "foundation/ProcessLauncher.h"

namespace frelta {

/// Passes everything on to another launcher and tells the listener what could not be started. Of
/// runs for their output nothing is told: they throw.
class ReportingProcessLauncher : public ProcessLauncher {
 public:
  /// Neither is owned; both outlive this.
  ReportingProcessLauncher(ProcessLauncher& next, FailureListener& listener)
      : next_(next), listener_(listener) {}

  bool spawn(const std::string& path, const std::vector<std::string>& argumentVector) override;
  std::string standardOutputOf(const std::string& path, const std::vector<std::string>& arguments,
                               const std::string& workingDirectory) override;

 private:
  ProcessLauncher& next_;
  FailureListener& listener_;
};

}  // namespace frelta
