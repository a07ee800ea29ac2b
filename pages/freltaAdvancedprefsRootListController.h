#pragma once

#include "pages/freltaprefsRootListController.h"

namespace frelta {

/// The same page with another description.
class freltaAdvancedprefsRootListController : public freltaprefsRootListController {
 public:
  freltaAdvancedprefsRootListController() : freltaprefsRootListController("Advanced") {}
};

}  // namespace frelta
