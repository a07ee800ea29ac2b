#include "quick/QtMainQueue.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include "fake/FakePlatform.h"
#include "tests/support/MainQueueContract.h"

namespace frelta {
namespace {

class QtMainQueueDriver {
 public:
  MainQueue& queue() { return queue_; }
  void runFor(double seconds) {
    QElapsedTimer timer;
    timer.start();
    do {
      QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    } while (static_cast<double>(timer.nsecsElapsed()) / 1e9 < seconds);
  }

 private:
  FakePlatform platform_;
  QtMainQueue queue_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, MainQueueContract, QtMainQueueDriver);

TEST(QtMainQueue, AnExceptionIsLoggedOnce) {
  FakePlatform platform;
  QtMainQueue queue;
  queue.async([] { throw std::runtime_error("task failed on purpose"); });

  QCoreApplication::processEvents();

  EXPECT_THAT(platform.log.lines,
              testing::ElementsAre("[Frelta] Uncaught exception: task failed on purpose"));
}

TEST(QtMainQueue, TasksStillWaitingGoWithTheQueue) {
  bool ran = false;
  {
    QtMainQueue queue;
    queue.async([&ran] { ran = true; });
    queue.after(0.001, [&ran] { ran = true; });
  }

  QElapsedTimer timer;
  timer.start();
  while (!timer.hasExpired(20)) QCoreApplication::processEvents();

  EXPECT_FALSE(ran);
}

}  // namespace
}  // namespace frelta
