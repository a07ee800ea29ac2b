#pragma once

#include "uikit/UINavigationController.h"

namespace frelta {

/// Has the page on top show what is stored now. Alerts over it stay. What the page throws is
/// logged.
void showWhatIsStored(UINavigationController& navigation);

}  // namespace frelta
