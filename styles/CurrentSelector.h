#pragma once

#include <memory>

#include "styles/FreltaStyleLibrary.h"

namespace frelta {

/// The selector initialised last, which row views call back into; it is kept until the next one
/// takes its place. Null before the first.
std::shared_ptr<FreltaStyleLibrary> currentSelector();

void setCurrentSelector(std::shared_ptr<FreltaStyleLibrary> selector);

/// What each initialiser of a selector does: makes one for the kind, the current selector from now.
template <typename Selector>
std::shared_ptr<Selector> initSelector(std::int32_t kind) {
  auto selector = std::make_shared<Selector>();
  setCurrentSelector(selector);
  selector->setIsExtras(kind);
  return selector;
}

}  // namespace frelta
