#include <memory>

#include "preferences/PSClassRegistry.h"
#include "preferences/PSListItemsController.h"

namespace frelta {

// Apart from the rest of the registry, so that what only looks names up needs no pages.
PSClassRegistry::PSClassRegistry() {
  registerController("PSListItemsController",
                     [] { return std::make_shared<PSListItemsController>(); });
}

}  // namespace frelta
