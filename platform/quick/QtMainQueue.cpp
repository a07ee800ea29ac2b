#include "quick/QtMainQueue.h"

#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cmath>

#include "quick/EventGuard.h"

namespace frelta {

QtMainQueue::QtMainQueue() {
  clock_.start();
}

double QtMainQueue::now() const {
  return static_cast<double>(clock_.nsecsElapsed()) / 1e9;
}

void QtMainQueue::async(Task task) {
  QMetaObject::invokeMethod(
      &context_, [task = std::move(task)] { guardEvent(task); }, Qt::QueuedConnection);
}

void QtMainQueue::after(double seconds, Task task) {
  if (!(seconds > 0)) {
    async(std::move(task));
    return;
  }
  // A timer that fires early would break the promise, so fractions round up.
  const double milliseconds = std::min(std::ceil(seconds * 1000), 2e9);
  QTimer::singleShot(std::chrono::milliseconds(static_cast<long long>(milliseconds)),
                     Qt::PreciseTimer, &context_, [task = std::move(task)] { guardEvent(task); });
}

}  // namespace frelta
