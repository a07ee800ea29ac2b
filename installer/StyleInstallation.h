#pragma once

#include <functional>
#include <string>
#include <variant>

#include "installer/StyleRefusal.h"
#include "installer/StyleSource.h"

namespace frelta {

/// What is to be installed, and where.
struct StyleInstallation {
  /// Host path of a folder or a zip file.
  std::string source;
  /// Host path of the device root.
  std::string root;
  /// Whether a style of the same name may go.
  bool replace = false;
  StyleLimits limits;

  /// Called now and then with the part that is done, 0 to 1, on the thread that installs; false
  /// gives the installation up. May be empty.
  std::function<bool(double)> progress;
};

struct InstalledStyle {
  /// Its folder's name in the styles folder.
  std::string name;
};

/// Checks the source whole, then installs it. Whatever goes wrong, nothing is left behind and what
/// was there is there. Any thread; uses no service of the Platform.
std::variant<InstalledStyle, StyleRefusal> installStyle(const StyleInstallation& installation);

/// Removes what installations that died have left in the device root; one that goes on is left
/// alone.
void sweepUnfinishedStyles(const std::string& root);

}  // namespace frelta
