#pragma once

#include <QObject>
#include <mutex>
#include <vector>

#include "foundation/FailureListener.h"

namespace frelta {

/// Carries failures from wherever they happen to the main thread, after the event at hand. Those
/// from before anybody listens wait.
class FailureReports : public QObject, public FailureListener {
  Q_OBJECT

 public:
  void failed(const Failure& failure) override;

 Q_SIGNALS:
  void reported(const frelta::Failure& failure);

 protected:
  void connectNotify(const QMetaMethod& signal) override;

 private:
  void report();

  std::mutex mutex_;
  std::vector<Failure> waiting_;
};

}  // namespace frelta
