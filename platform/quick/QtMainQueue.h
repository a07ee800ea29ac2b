#pragma once

#include <QElapsedTimer>
#include <QObject>

#include "foundation/MainQueue.h"

namespace frelta {

/// The main queue on Qt's event loop.
class QtMainQueue : public MainQueue {
 public:
  QtMainQueue();

  double now() const override;
  void async(Task task) override;
  void after(double seconds, Task task) override;

 private:
  QObject context_;  // tasks still waiting go with the queue
  QElapsedTimer clock_;
};

}  // namespace frelta
