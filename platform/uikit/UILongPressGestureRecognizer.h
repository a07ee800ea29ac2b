#pragma once

#include "uikit/UIGestureRecognizer.h"

namespace frelta {

/// A finger that stays where it touched. The action is sent when that is recognised (Began), at
/// each move after it (Changed), and when the finger lifts (Ended) or the touch is taken away
/// (Cancelled); a touch that moves or lifts too early sends nothing.
class UILongPressGestureRecognizer : public UIGestureRecognizer {
 public:
  using UIGestureRecognizer::UIGestureRecognizer;

  /// Seconds on the main queue's clock; half a second at first, the platform's default.
  double minimumPressDuration() const { return minimumPressDuration_; }
  void setMinimumPressDuration(double seconds) { minimumPressDuration_ = seconds; }
  /// How far the finger may stray before the press is recognised, points; the platform's 10 at
  /// first.
  double allowableMovement() const { return allowableMovement_; }
  void setAllowableMovement(double points) { allowableMovement_ = points; }

  // For the back end, one touch at a time, in any coordinates of points that stay where they are.
  // The action may take the recogniser down.
  /// The recognised function is called right before the action is sent the first time: what lies
  /// under the finger loses the touch then.
  void touchBegan(CGPoint point, std::function<void()> recognized = {});
  void touchMoved(CGPoint point);
  void touchEnded();
  void touchCancelled();
  /// What a second button, a menu key or assistive technology does: a whole press at once.
  void performPress();

 private:
  bool isRecognized() const;
  void pressed();
  void finish(UIGestureRecognizerState state);

  double minimumPressDuration_ = 0.5;
  double allowableMovement_ = 10;
  CGPoint origin_;
  std::function<void()> recognized_;
  bool isTouched_ = false;
  /// Tells the touch that a timer was started for from those after it.
  unsigned touch_ = 0;
};

}  // namespace frelta
