#pragma once

#include <chrono>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace frelta {

/// Says why a program could not be started.
class LaunchFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// There is no such program.
class MissingProgram : public LaunchFailure {
 public:
  using LaunchFailure::LaunchFailure;
};

class ProcessLauncher {
 public:
  /// Output of a run, in bytes; a package's description takes about 1,000.
  static constexpr std::size_t kMaximumOutput = std::size_t{64} << 10;
  /// How long a run may take before the caller goes on.
  static constexpr std::chrono::seconds kLongestRun{2};

  virtual ~ProcessLauncher() = default;

  /// Starts the program with exactly this argument vector (its own name first), no file actions, no
  /// attributes and no environment, and returns at once: the child is not waited for. False when it
  /// could not be started; errno says why.
  virtual bool spawn(const std::string& path, const std::vector<std::string>& argumentVector) = 0;

  /// Runs the program with these arguments (its own name not among them) in a working folder of the
  /// host and returns its standard output, read to the end. The exit status is not examined. A
  /// program that prints more than kMaximumOutput or runs longer than kLongestRun is ended, and its
  /// output is empty.
  /// Throws MissingProgram when there is no such program, LaunchFailure when it cannot be started
  /// for another reason.
  virtual std::string standardOutputOf(const std::string& path,
                                       const std::vector<std::string>& arguments,
                                       const std::string& workingDirectory) = 0;
};

}  // namespace frelta
