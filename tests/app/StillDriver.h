#pragma once

#include <QCoreApplication>

#include "app/TourDriver.h"
#include "tests/support/SteppedAnimations.h"

namespace frelta {

/// Lets the window work until nothing is left to do, and has Qt Quick's animations end, without
/// waiting for the time of day. What a virtual main queue has to do is not its business.
class StillDriver : public TourDriver {
 public:
  StillDriver(QuickWindow& window, UINavigationController& navigation)
      : TourDriver(window, navigation), window_(window) {
    drawn_ = QObject::connect(&window, &QQuickWindow::afterAnimating, [this] { still_ = false; });
  }
  ~StillDriver() override { QObject::disconnect(drawn_); }
  StillDriver(const StillDriver&) = delete;
  StillDriver& operator=(const StillDriver&) = delete;

  void settle() override {
    int moved = 0;
    for (int stillPasses = 0, passes = 0; stillPasses < kStillPasses && passes < kMostPasses;
         ++passes) {
      still_ = true;
      QCoreApplication::processEvents();
      // Objects that were taken down wait for an event loop to go.
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      if (animations().isRunning() && moved < kLongestMilliseconds) {
        animations().step(kStepMilliseconds);
        moved += kStepMilliseconds;
        still_ = false;
      }
      stillPasses = still_ && window_.mirror().isSettled() ? stillPasses + 1 : 0;
    }
  }

  /// One for the process: Qt takes no second one.
  static SteppedAnimations& animations() {
    static auto& clock = *new SteppedAnimations;
    return clock;
  }

 private:
  static constexpr int kStillPasses = 3;
  // A text of megabytes goes on filling for thousands, and is looked at meanwhile.
  static constexpr int kMostPasses = 100;
  static constexpr int kStepMilliseconds = 50;
  // Longer than any animation that ends.
  static constexpr int kLongestMilliseconds = 1000;

  QuickWindow& window_;
  QMetaObject::Connection drawn_;
  bool still_ = false;
};

}  // namespace frelta
