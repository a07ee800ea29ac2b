#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "graphics/CGGeometry.h"

namespace frelta {

class UIView;

/// The platform's states, with its values.
enum class UIGestureRecognizerState {
  Possible = 0,
  Began = 1,
  Changed = 2,
  Ended = 3,
  Cancelled = 4,
  Failed = 5,
};

/// Watches the touches in a view and below it for one gesture.
class UIGestureRecognizer {
 public:
  /// Called when the gesture is recognised. What it captures must outlive the recogniser's view.
  using Action = std::function<void(UIGestureRecognizer&)>;

  explicit UIGestureRecognizer(Action action) : action_(std::move(action)) {}
  virtual ~UIGestureRecognizer() = default;
  UIGestureRecognizer(const UIGestureRecognizer&) = delete;
  UIGestureRecognizer& operator=(const UIGestureRecognizer&) = delete;

  /// The view it is attached to, which owns it; null before.
  UIView* view() const { return view_; }
  bool cancelsTouchesInView() const { return cancelsTouchesInView_; }
  void setCancelsTouchesInView(bool cancels) { cancelsTouchesInView_ = cancels; }
  UIGestureRecognizerState state() const { return state_; }

  /// For the back end: the gesture happened. The action may take the recogniser down.
  void recognize() { send(UIGestureRecognizerState::Ended); }

 protected:
  /// Sends the action in that state. False when that took the recogniser down.
  bool send(UIGestureRecognizerState state) {
    const Action action = action_;
    const std::weak_ptr<const void> alive = alive_;
    state_ = state;
    action(*this);
    return !alive.expired();
  }
  void setState(UIGestureRecognizerState state) { state_ = state; }
  /// Expires when the recogniser goes.
  std::weak_ptr<const void> lifetime() const { return alive_; }

 private:
  friend class UIView;
  Action action_;
  UIView* view_ = nullptr;
  bool cancelsTouchesInView_ = true;
  UIGestureRecognizerState state_ = UIGestureRecognizerState::Possible;
  std::shared_ptr<const void> alive_ = std::make_shared<char>();
};

/// One tap.
class UITapGestureRecognizer : public UIGestureRecognizer {
 public:
  using UIGestureRecognizer::UIGestureRecognizer;
};

}  // namespace frelta
