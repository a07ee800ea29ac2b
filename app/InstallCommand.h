#pragma once

#include <QString>

#include "app/Options.h"

namespace frelta {

/// "--install-style": installs without a window, tells on the terminal how it goes. The result is
/// the process's exit status.
int runInstallCommand(const Options& options);

}  // namespace frelta
