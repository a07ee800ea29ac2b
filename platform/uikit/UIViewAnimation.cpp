#include "uikit/UIViewAnimation.h"

#include <algorithm>
#include <utility>

#include "foundation/Platform.h"
#include "uikit/UIView.h"

namespace frelta {

namespace {

bool enabled = true;
std::shared_ptr<UIViewAnimation> running;

/// Puts a value in place for as long as it lives.
template <typename Value>
class Exchanged {
 public:
  Exchanged(Value& place, Value value) : place_(place), before_(std::exchange(place, value)) {}
  ~Exchanged() { place_ = std::move(before_); }
  Exchanged(const Exchanged&) = delete;
  Exchanged& operator=(const Exchanged&) = delete;

 private:
  Value& place_;
  Value before_;
};

// The platform's curve: a cubic Bézier from (0, 0) to (1, 1) with the handles (0.42, 0) and
// (0.58, 1).
double easeInEaseOut(double time) {
  if (time <= 0 || time >= 1) return time;
  const auto coordinate = [](double first, double second, double t) {
    const double u = 1 - t;
    return 3 * u * u * t * first + 3 * u * t * t * second + t * t * t;
  };
  double low = 0;
  double high = 1;
  double t = time;
  for (int step = 0; step < 52; ++step) {
    t = (low + high) / 2;
    const double x = coordinate(0.42, 0.58, t);
    if (x == time) break;
    (x < time ? low : high) = t;
  }
  return coordinate(0, 1, t);
}

}  // namespace

const std::shared_ptr<UIViewAnimation>& UIViewAnimation::current() {
  return running;
}

void UIViewAnimation::run(double seconds, const std::function<void()>& block,
                          Completion completion) {
  // Also of a length that is not a number.
  if (!enabled || !(seconds > 0)) {
    {
      const Exchanged none(running, std::shared_ptr<UIViewAnimation>());
      if (block) block();
    }
    if (completion) completion(true);
    return;
  }
  const auto animation = std::make_shared<UIViewAnimation>(seconds, std::move(completion));
  {
    const Exchanged inner(running, animation);
    if (block) block();
  }
  animation->startClock();
}

UIViewAnimation::UIViewAnimation(double seconds, Completion completion)
    : start_(Platform::current().mainQueue->now()),
      seconds_(seconds),
      completion_(std::move(completion)) {}

void UIViewAnimation::startClock() {
  if (!completion_) return;
  Platform::current().mainQueue->after(seconds_, [self = shared_from_this()] {
    if (!self->completed_) self->complete(true);
  });
}

bool UIViewAnimation::isRunning() const {
  return Platform::current().mainQueue->now() < start_ + seconds_;
}

double UIViewAnimation::progress() const {
  const double passed = Platform::current().mainQueue->now() - start_;
  return easeInEaseOut(std::clamp(passed / seconds_, 0.0, 1.0));
}

void UIViewAnimation::interrupt() {
  if (completed_ || !isRunning()) return;
  completed_ = true;
  if (!completion_) return;
  Platform::current().mainQueue->async([self = shared_from_this()] { self->complete(false); });
}

void UIViewAnimation::complete(bool finished) {
  completed_ = true;
  // It goes when it has been told, with what it holds.
  const Completion completion = std::exchange(completion_, nullptr);
  completion(finished);
}

double mixed(double from, double to, double fraction) {
  return from + (to - from) * fraction;
}

CGRect mixed(const CGRect& from, const CGRect& to, double fraction) {
  return {mixed(from.minX(), to.minX(), fraction), mixed(from.minY(), to.minY(), fraction),
          mixed(from.size.width, to.size.width, fraction),
          mixed(from.size.height, to.size.height, fraction)};
}

std::optional<UIColor> mixed(const std::optional<UIColor>& from, const std::optional<UIColor>& to,
                             double fraction) {
  if (!from && !to) return std::nullopt;
  const UIColor first = from ? *from : to->colorWithAlphaComponent(0);
  const UIColor second = to ? *to : from->colorWithAlphaComponent(0);
  return UIColor::colorBetween(first, second, fraction);
}

void UIView::animateWithDuration(double seconds, const std::function<void()>& animations,
                                 std::function<void(bool)> completion) {
  UIViewAnimation::run(seconds, animations, std::move(completion));
}

void UIView::performWithoutAnimation(const std::function<void()>& actions) {
  const Exchanged off(enabled, false);
  const Exchanged none(running, std::shared_ptr<UIViewAnimation>());
  actions();
}

bool UIView::areAnimationsEnabled() {
  return enabled;
}

void UIView::setAnimationsEnabled(bool areEnabled) {
  enabled = areEnabled;
}

UIViewPresentation UIView::presentation() const {
  if (!animated_) return {frame(), alpha_, backgroundColor_};
  return {animated_->frame.presented(frame()), animated_->alpha.presented(alpha_),
          animated_->backgroundColor.presented(backgroundColor_)};
}

bool UIView::isAnimating() const {
  return animated_ && (animated_->frame.isMoving(frame()) || animated_->alpha.isMoving(alpha_) ||
                       animated_->backgroundColor.isMoving(backgroundColor_));
}

UIViewAnimatedProperties* UIView::animatedProperties() {
  if (!animated_ && UIViewAnimation::current()) {
    animated_ = std::make_unique<UIViewAnimatedProperties>();
  }
  return animated_.get();
}

void UIView::stopAnimations() {
  if (animated_) {
    animated_->frame.stop();
    animated_->alpha.stop();
    animated_->backgroundColor.stop();
    animated_.reset();
    didChange();
  }
  for (const auto& subview : subviews_) subview->stopAnimations();
}

}  // namespace frelta
