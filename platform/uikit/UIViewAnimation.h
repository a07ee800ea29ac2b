#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "graphics/CGGeometry.h"
#include "graphics/UIColor.h"

namespace frelta {

/// What a view shows at one moment. While nothing of it is animated it equals the model.
struct UIViewPresentation {
  CGRect frame;
  double alpha = 1;
  std::optional<UIColor> backgroundColor;
  bool operator==(const UIViewPresentation&) const = default;
};

/// What one animation block started: a stretch of time on the main queue's clock and what is to be
/// told at its end. Shared by the properties that it runs.
class UIViewAnimation : public std::enable_shared_from_this<UIViewAnimation> {
 public:
  using Completion = std::function<void(bool finished)>;

  /// What the block that runs now animates with; null outside of blocks, and in those of no length.
  static const std::shared_ptr<UIViewAnimation>& current();
  /// Runs the block, seconds long, as UIView::animateWithDuration says.
  static void run(double seconds, const std::function<void()>& block, Completion completion);

  UIViewAnimation(double seconds, Completion completion);
  bool isRunning() const;
  /// How far the values have come, from 0 to 1 along the platform's ease-in-ease-out curve.
  double progress() const;
  /// A property was taken over: tells the completion on the queue's next turn, unless it has been
  /// told, or the time is over.
  void interrupt();

 private:
  void startClock();
  void complete(bool finished);

  double start_;
  double seconds_;
  Completion completion_;
  bool completed_ = false;
};

CGRect mixed(const CGRect& from, const CGRect& to, double fraction);
double mixed(double from, double to, double fraction);
/// No colour is the other one fully transparent.
std::optional<UIColor> mixed(const std::optional<UIColor>& from, const std::optional<UIColor>& to,
                             double fraction);

/// How one property comes from the value shown last to the model's.
template <typename Value>
class UIViewAnimatedProperty {
 public:
  /// Before the model changes. The change is animated when it is made in an animation block;
  /// in any case it ends the animation before it.
  void modelWillChange(const Value& model) {
    const auto& next = UIViewAnimation::current();
    if (animation_ == next) return;
    from_ = presented(model);
    const std::shared_ptr<UIViewAnimation> before = std::exchange(animation_, next);
    if (before) before->interrupt();
  }
  Value presented(const Value& model) const {
    return isRunning() ? Value(mixed(from_, model, animation_->progress())) : model;
  }
  bool isRunning() const { return animation_ && animation_->isRunning(); }
  /// Whether it is on its way to the model's value, and not there already.
  bool isMoving(const Value& model) const { return isRunning() && from_ != model; }
  void stop() {
    if (const auto before = std::exchange(animation_, nullptr)) before->interrupt();
  }

 private:
  Value from_{};
  std::shared_ptr<UIViewAnimation> animation_;
};

struct UIViewAnimatedProperties {
  UIViewAnimatedProperty<CGRect> frame;
  UIViewAnimatedProperty<double> alpha;
  UIViewAnimatedProperty<std::optional<UIColor>> backgroundColor;
};

}  // namespace frelta
