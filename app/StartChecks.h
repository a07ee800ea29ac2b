#pragma once

#include <QString>
#include <optional>

#include "app/Options.h"

namespace frelta {

/// Why the application does not start.
struct StartFailure {
  /// A line in the user's language.
  QString text;
  /// The process's exit status.
  int status;
  /// A line of its own on what to do; empty for none.
  QString hint = {};
};

/// Makes the device root where it is missing. The failure when settings cannot be kept there.
std::optional<StartFailure> checkRoot(const QString& root);

/// Makes the host folder for a tour's pictures where it is missing. The failure when it cannot be.
std::optional<StartFailure> checkTourFolder(const QString& folder);

/// The failure when the page that the options ask for is none that the bundle in the folder has
/// under the root's settings. Needs no window system. Installs services and takes them away again.
std::optional<StartFailure> checkPage(const QString& page, const QString& bundleFolder,
                                      const QString& root);

}  // namespace frelta
