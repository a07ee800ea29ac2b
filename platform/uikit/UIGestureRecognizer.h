#pragma once

#include <functional>

namespace frelta {

class UIView;

/// Watches the touches in a view and below it for one gesture.
class UIGestureRecognizer {
 public:
  /// Called when the gesture is recognised. What it captures must outlive the recogniser's view.
  using Action = std::function<void(UIGestureRecognizer&)>;

  explicit UIGestureRecognizer(Action action) : action_(std::move(action)) {}
  virtual ~UIGestureRecognizer() = default;

  /// The view it is attached to, which owns it; null before.
  UIView* view() const { return view_; }
  bool cancelsTouchesInView() const { return cancelsTouchesInView_; }
  void setCancelsTouchesInView(bool cancels) { cancelsTouchesInView_ = cancels; }
  /// For the back end: the gesture happened. The action may take the recogniser down.
  void recognize() {
    const Action action = action_;
    action(*this);
  }

 private:
  friend class UIView;
  Action action_;
  UIView* view_ = nullptr;
  bool cancelsTouchesInView_ = true;
};

/// One tap.
class UITapGestureRecognizer : public UIGestureRecognizer {
 public:
  using UIGestureRecognizer::UIGestureRecognizer;
};

}  // namespace frelta
