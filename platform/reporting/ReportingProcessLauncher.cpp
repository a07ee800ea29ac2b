#include "reporting/ReportingProcessLauncher.h"

#include <cerrno>

namespace frelta {

bool ReportingProcessLauncher::spawn(const std::string& path,
                                     const std::vector<std::string>& argumentVector) {
  if (next_.spawn(path, argumentVector)) return true;
  listener_.failed({Failure::Operation::Start, path, errno});
  return false;
}

std::string ReportingProcessLauncher::standardOutputOf(const std::string& path,
                                                       const std::vector<std::string>& arguments,
                                                       const std::string& workingDirectory) {
  return next_.standardOutputOf(path, arguments, workingDirectory);
}

}  // namespace frelta
