#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace frelta {

/// A package of the system's package manager.
class TarnoPackage {
 public:
  /// Asks the package manager, which takes a process, and waits for its answer; nothing is kept for
  /// the next time. Never null; without a version when the package is unknown, the answer cannot be
  /// read, or there is no package manager. Throws LaunchFailure when it is there and cannot be
  /// started.
  static std::unique_ptr<TarnoPackage> packageWithIdentifier(const std::string& identifier);

  /// As the package manager writes it.
  const std::optional<std::string>& version() const { return version_; }
  void setVersion(std::optional<std::string> version) { version_ = std::move(version); }

 private:
  std::optional<std::string> version_;
};

/// The fields of lines of the form "Name: value", split at the first ": " and not trimmed; of two
/// of one name the later counts. Other lines are passed over. Empty for text that is not UTF-8.
std::map<std::string, std::string, std::less<>> fieldsOfPackageText(std::string_view text);

}  // namespace frelta
