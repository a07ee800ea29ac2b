#include "app/FailureReports.h"

#include <QMetaMethod>
#include <utility>

namespace frelta {

void FailureReports::failed(const Failure& failure) {
  {
    const std::lock_guard lock(mutex_);
    waiting_.push_back(failure);
  }
  QMetaObject::invokeMethod(this, &FailureReports::report, Qt::QueuedConnection);
}

void FailureReports::connectNotify(const QMetaMethod&) {
  QMetaObject::invokeMethod(this, &FailureReports::report, Qt::QueuedConnection);
}

void FailureReports::report() {
  if (!isSignalConnected(QMetaMethod::fromSignal(&FailureReports::reported))) return;
  std::vector<Failure> failures;
  {
    const std::lock_guard lock(mutex_);
    failures.swap(waiting_);
  }
  for (const Failure& failure : failures) Q_EMIT reported(failure);
}

}  // namespace frelta
