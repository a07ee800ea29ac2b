#include "styles/CurrentSelector.h"

#include <utility>

namespace frelta {

namespace {

/// Never destroyed: when the process ends, a selector's services may be gone before it.
std::shared_ptr<FreltaStyleLibrary>& current() {
  static auto& selector = *new std::shared_ptr<FreltaStyleLibrary>;
  return selector;
}

}  // namespace

std::shared_ptr<FreltaStyleLibrary> currentSelector() {
  return current();
}

void setCurrentSelector(std::shared_ptr<FreltaStyleLibrary> selector) {
  current() = std::move(selector);
}

}  // namespace frelta
