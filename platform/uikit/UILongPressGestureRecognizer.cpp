#include "uikit/UILongPressGestureRecognizer.h"

#include <cmath>

#include "foundation/Platform.h"

namespace frelta {

using State = UIGestureRecognizerState;

bool UILongPressGestureRecognizer::isRecognized() const {
  return isTouched_ && (state() == State::Began || state() == State::Changed);
}

void UILongPressGestureRecognizer::touchBegan(CGPoint point, std::function<void()> recognized) {
  if (isTouched_) return;
  isTouched_ = true;
  origin_ = point;
  recognized_ = std::move(recognized);
  setState(State::Possible);
  Platform::current().mainQueue->after(
      minimumPressDuration_, [this, alive = lifetime(), touch = ++touch_] {
        const bool stillWaits = !alive.expired() && touch == touch_ && isTouched_;
        if (stillWaits && state() == State::Possible) pressed();
      });
}

void UILongPressGestureRecognizer::pressed() {
  const std::weak_ptr<const void> alive = lifetime();
  if (const auto recognized = std::exchange(recognized_, nullptr)) recognized();
  if (!alive.expired()) send(State::Began);
}

void UILongPressGestureRecognizer::touchMoved(CGPoint point) {
  if (!isTouched_) return;
  if (isRecognized()) {
    send(State::Changed);
  } else if (std::hypot(point.x - origin_.x, point.y - origin_.y) > allowableMovement_) {
    isTouched_ = false;
    setState(State::Failed);
  }
}

void UILongPressGestureRecognizer::touchEnded() {
  finish(State::Ended);
}

void UILongPressGestureRecognizer::touchCancelled() {
  finish(State::Cancelled);
}

void UILongPressGestureRecognizer::finish(State state) {
  if (!isTouched_) return;
  const bool wasRecognized = isRecognized();
  isTouched_ = false;
  if (!wasRecognized) {
    setState(State::Failed);
  } else if (send(state)) {
    setState(State::Possible);
  }
}

void UILongPressGestureRecognizer::performPress() {
  if (isTouched_) return;
  if (send(State::Began) && send(State::Ended)) setState(State::Possible);
}

}  // namespace frelta
