#include "quick/QtWorkQueue.h"

#include <gmock/gmock.h>

#include <QSemaphore>
#include <QTest>
#include <QThread>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "fake/FakePlatform.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QtWorkQueueTest : public testing::Test {
 protected:
  ~QtWorkQueueTest() override { gate.release(100); }

  /// Keeps the thread busy until the gate opens.
  void holdThread() {
    queue->async(
        wanted,
        [this] {
          began.release();
          gate.acquire();
        },
        [] {});
    ASSERT_TRUE(began.tryAcquire(1, 5000));
  }
  QtWorkQueue::Work note(const std::string& name) {
    return [this, name] { noted.push_back(name); };
  }
  bool waitForLast() {
    bool last = false;
    queue->async(
        wanted, [] {}, [&last] { last = true; });
    return QTest::qWaitFor([&last] { return last; });
  }

  FakePlatform platform;
  QSemaphore began;
  QSemaphore gate;
  std::vector<std::string> noted;  // by one thread at a time
  std::shared_ptr<const void> wanted = std::make_shared<const bool>();
  std::optional<QtWorkQueue> queue{std::in_place};
};

TEST_F(QtWorkQueueTest, WorksOnAnotherThreadAndTellsOfItOnThisOne) {
  QThread* worker = nullptr;
  QThread* told = nullptr;

  queue->async(
      wanted, [&] { worker = QThread::currentThread(); }, [&] { told = QThread::currentThread(); });
  const bool returnedFirst = told == nullptr;
  const bool finished = QTest::qWaitFor([&] { return told != nullptr; });

  EXPECT_TRUE(returnedFirst);
  ASSERT_TRUE(finished);
  EXPECT_EQ(told, QThread::currentThread());
  EXPECT_NE(worker, nullptr);
  EXPECT_NE(worker, told);
}

TEST_F(QtWorkQueueTest, DoesOneThingAfterTheOtherInTheirOrder) {
  ASSERT_NO_FATAL_FAILURE(holdThread());
  std::vector<std::string> told;
  for (const char* name : {"a", "b", "c"})
    queue->async(wanted, note(name), [&told, name] { told.emplace_back(name); });

  gate.release();
  const bool finished = waitForLast();

  EXPECT_TRUE(finished);
  EXPECT_THAT(noted, ElementsAre("a", "b", "c"));
  EXPECT_THAT(told, ElementsAre("a", "b", "c"));
}

TEST_F(QtWorkQueueTest, LeavesThisThreadFreeWhileAWorkTakesItsTime) {
  ASSERT_NO_FATAL_FAILURE(holdThread());
  bool answered = false;

  QMetaObject::invokeMethod(
      qApp, [&answered] { answered = true; }, Qt::QueuedConnection);
  QCoreApplication::processEvents();

  EXPECT_TRUE(answered);
}

TEST_F(QtWorkQueueTest, LogsWhatAWorkThrowsTellsAllTheSameAndGoesOn) {
  std::vector<std::string> told;
  queue->async(
      wanted, [] { throw std::runtime_error("work failed on purpose"); },
      [&] { told.emplace_back("after an error"); });
  queue->async(
      wanted, [] { throw std::bad_alloc(); }, [&] { told.emplace_back("without memory"); });
  queue->async(
      wanted, [] { throw 7; }, [] { throw std::runtime_error("telling failed on purpose"); });

  const bool finished = waitForLast();

  EXPECT_TRUE(finished);
  EXPECT_THAT(told, ElementsAre("after an error", "without memory"));
  EXPECT_THAT(
      platform.log.lines,
      ElementsAre("[Frelta] Uncaught exception: work failed on purpose",
                  "[Frelta] Uncaught exception: std::bad_alloc", "[Frelta] Uncaught exception",
                  "[Frelta] Uncaught exception: telling failed on purpose"));
}

TEST_F(QtWorkQueueTest, BeginsNothingThatNobodyWantsAnyMore) {
  ASSERT_NO_FATAL_FAILURE(holdThread());
  std::shared_ptr<const void> other = std::make_shared<const bool>();
  queue->async(other, note("unwanted"), note("told of the unwanted"));
  queue->async(wanted, note("wanted"), [] {});

  other.reset();
  gate.release();
  const bool finished = waitForLast();

  EXPECT_TRUE(finished);
  EXPECT_THAT(noted, ElementsAre("wanted"));
}

TEST_F(QtWorkQueueTest, DoesNotTellOfWhatNobodyWantsWhenItIsDone) {
  std::shared_ptr<const void> other = std::make_shared<const bool>();
  queue->async(
      other,
      [this] {
        began.release();
        gate.acquire();
      },
      note("told"));
  ASSERT_TRUE(began.tryAcquire(1, 5000));

  other.reset();
  gate.release();
  const bool finished = waitForLast();

  EXPECT_TRUE(finished);
  EXPECT_THAT(noted, IsEmpty());
}

TEST_F(QtWorkQueueTest, KeepsNoMoreWaitingThanAreWantedHoweverManyCome) {
  ASSERT_NO_FATAL_FAILURE(holdThread());
  const auto held = std::make_shared<const bool>();
  std::shared_ptr<const void> current;

  for (int i = 0; i < 10'000; ++i) {
    current = std::make_shared<const bool>();
    queue->async(
        current, [held] {}, [] {});
  }

  EXPECT_LE(held.use_count(), 3);
}

TEST_F(QtWorkQueueTest, WaitsAtItsEndForWhatHasBegunAndDropsTheRest) {
  bool isDone = false;
  queue->async(
      wanted,
      [&] {
        began.release();
        gate.acquire();
        isDone = true;
      },
      note("told"));
  queue->async(wanted, note("waiting"), note("told of the waiting"));
  ASSERT_TRUE(began.tryAcquire(1, 5000));
  gate.release();

  queue.reset();
  QCoreApplication::processEvents();

  EXPECT_TRUE(isDone);
  EXPECT_THAT(noted, IsEmpty());
}

TEST_F(QtWorkQueueTest, LetsGoOfWhatAWorkHeldOnThisThread) {
  QThread* letGo = nullptr;
  auto held = std::shared_ptr<const void>(
      &letGo, [&letGo](const void*) { letGo = QThread::currentThread(); });
  queue->async(
      wanted, [held] {}, [held] {});

  held.reset();
  const bool finished = waitForLast();

  EXPECT_TRUE(finished);
  EXPECT_EQ(letGo, QThread::currentThread());
}

}  // namespace
}  // namespace frelta
