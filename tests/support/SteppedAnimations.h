#pragma once

#include <QAnimationDriver>

namespace frelta {

/// The clock of Qt Quick's animations and timers in this process. It moves only when told, so that
/// no test waits for them.
class SteppedAnimations : public QAnimationDriver {
 public:
  SteppedAnimations() { install(); }

  qint64 elapsed() const override { return now_; }
  /// Moves the clock; what should have ended by then has.
  void step(int milliseconds) {
    now_ += milliseconds;
    advance();
  }

 private:
  qint64 now_ = 0;
};

}  // namespace frelta
