#include "uikit/UIKitServices.h"

namespace frelta {

namespace {
UIKitServices installed;
}  // namespace

const UIKitServices& UIKitServices::current() {
  return installed;
}

void UIKitServices::install(const UIKitServices& services) {
  installed = services;
}

}  // namespace frelta
