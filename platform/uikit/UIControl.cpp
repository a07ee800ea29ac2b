#include "uikit/UIControl.h"

#include <algorithm>

namespace frelta {

void UIControl::addTarget(const void* target, std::string action, Handler handler,
                          unsigned events) {
  for (Target& known : targets_) {
    if (known.target == target && known.action == action) {
      known.events |= events;
      return;
    }
  }
  targets_.push_back({target, std::move(action), std::move(handler), events});
}

void UIControl::removeTarget(const void* target, const std::string& action, unsigned events) {
  for (Target& known : targets_) {
    if (known.target == target && known.action == action) known.events &= ~events;
  }
  std::erase_if(targets_, [](const Target& known) { return known.events == 0; });
}

void UIControl::sendActionsForControlEvents(UIControlEvents event) {
  const std::vector<Target> targets = targets_;
  const std::weak_ptr<const void> alive = lifetime();
  for (const Target& target : targets) {
    if (alive.expired()) return;
    const Target* known = wiring(target.target, target.action);
    if (known && known->events & target.events & event) target.handler(*this);
  }
}

const UIControl::Target* UIControl::wiring(const void* target, const std::string& action) const {
  const auto found = std::ranges::find_if(targets_, [&](const Target& known) {
    return known.target == target && known.action == action;
  });
  return found == targets_.end() ? nullptr : &*found;
}

void UIControl::setEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  didChange();
}

}  // namespace frelta
