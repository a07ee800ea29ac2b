#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "uikit/UIView.h"

namespace frelta {

/// The platform's control events, with its values.
enum UIControlEvents : unsigned {
  UIControlEventTouchUpInside = 1u << 6,
  UIControlEventValueChanged = 1u << 12,
  UIControlEventEditingDidBegin = 1u << 16,
  UIControlEventEditingChanged = 1u << 17,
  UIControlEventEditingDidEnd = 1u << 18,
};

/// A view that tells targets what the user does to it.
class UIControl : public UIView {
 public:
  using Handler = std::function<void(UIControl& sender)>;

  using UIView::UIView;

  /// Calls the handler at each of the events. Target and action name the wiring, so that it can be
  /// taken back; adding the same pair again adds its events. The target outlives its wiring.
  void addTarget(const void* target, std::string action, Handler handler, unsigned events);
  /// Takes back the wiring of target and action for the events.
  void removeTarget(const void* target, const std::string& action, unsigned events);
  /// Calls the handlers of one event in the order in which they were added. A handler may change
  /// the wiring, which then holds at once, or take the control down.
  void sendActionsForControlEvents(UIControlEvents event);

  bool isEnabled() const { return enabled_; }
  void setEnabled(bool enabled);

 private:
  struct Target {
    const void* target;
    std::string action;
    Handler handler;
    unsigned events;
  };
  const Target* wiring(const void* target, const std::string& action) const;

  std::vector<Target> targets_;
  bool enabled_ = true;
};

}  // namespace frelta
