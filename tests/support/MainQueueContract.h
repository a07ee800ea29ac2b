#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <vector>

#include "foundation/MainQueue.h"

namespace frelta {

/// What every main queue does. The type parameter drives one: default-constructible, with
///   MainQueue& queue();           the queue under test, empty
///   void runFor(double seconds);  lets that much of the queue's time pass, and runs what falls due
template <typename Driver>
class MainQueueContract : public testing::Test {
 protected:
  Driver driver;
  MainQueue& queue = driver.queue();
  std::vector<int> ran;
  MainQueue::Task noting(int number) {
    return [this, number] { ran.push_back(number); };
  }
};

TYPED_TEST_SUITE_P(MainQueueContract);

TYPED_TEST_P(MainQueueContract, NothingRunsBeforeTheQueueTurns) {
  this->queue.async(this->noting(1));
  this->queue.after(0, this->noting(2));
  this->queue.after(-1, this->noting(3));

  EXPECT_THAT(this->ran, testing::IsEmpty());

  this->driver.runFor(0);

  EXPECT_THAT(this->ran, testing::ElementsAre(1, 2, 3));
}

TYPED_TEST_P(MainQueueContract, TasksRunOnceInTheOrderQueued) {
  for (int i = 0; i < 100; ++i) this->queue.async(this->noting(i));

  this->driver.runFor(0);
  this->driver.runFor(0);

  ASSERT_EQ(this->ran.size(), 100u);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(this->ran[static_cast<std::size_t>(i)], i);
}

TYPED_TEST_P(MainQueueContract, ATaskQueuedByATaskRunsAfterThoseAlreadyQueued) {
  this->queue.async([this] {
    this->queue.async(this->noting(3));
    this->ran.push_back(1);
  });
  this->queue.async(this->noting(2));

  this->driver.runFor(0);

  EXPECT_THAT(this->ran, testing::ElementsAre(1, 2, 3));
}

TYPED_TEST_P(MainQueueContract, ADelayedTaskWaitsItsTime) {
  const double start = this->queue.now();
  double ranAt = -1;
  this->queue.after(0.1, [&] { ranAt = this->queue.now(); });

  this->driver.runFor(0.02);
  const double early = ranAt;
  this->driver.runFor(0.5);

  EXPECT_EQ(early, -1);
  EXPECT_GE(ranAt, start + 0.1 - 1e-6);
}

TYPED_TEST_P(MainQueueContract, DelayedTasksRunInTheOrderOfTheirTimes) {
  this->queue.after(0.12, this->noting(3));
  this->queue.after(0.04, this->noting(2));
  this->queue.async(this->noting(1));

  this->driver.runFor(0.5);

  EXPECT_THAT(this->ran, testing::ElementsAre(1, 2, 3));
}

TYPED_TEST_P(MainQueueContract, TheClockGoesForward) {
  const double start = this->queue.now();

  this->driver.runFor(0.05);

  EXPECT_GE(this->queue.now(), start + 0.05 - 1e-6);
}

TYPED_TEST_P(MainQueueContract, ATaskKeepsWhatItHoldsUntilItHasRun) {
  auto held = std::make_shared<int>(1);
  const std::weak_ptr<int> watched = held;
  bool wasAlive = false;
  this->queue.async(
      [&wasAlive, &watched, held = std::move(held)] { wasAlive = !watched.expired(); });

  const bool isKept = !watched.expired();
  this->driver.runFor(0);

  EXPECT_TRUE(isKept);
  EXPECT_TRUE(wasAlive);
  EXPECT_TRUE(watched.expired());
}

TYPED_TEST_P(MainQueueContract, AnExceptionEndsItsTaskOnly) {
  this->queue.async([] { throw std::runtime_error("task failed on purpose"); });
  this->queue.async([] { throw 7; });
  this->queue.after(0.01, [] { throw std::runtime_error("delayed task failed on purpose"); });
  this->queue.after(0.02, this->noting(1));

  EXPECT_NO_THROW(this->driver.runFor(0.5));

  EXPECT_THAT(this->ran, testing::ElementsAre(1));
}

REGISTER_TYPED_TEST_SUITE_P(MainQueueContract, NothingRunsBeforeTheQueueTurns,
                            TasksRunOnceInTheOrderQueued,
                            ATaskQueuedByATaskRunsAfterThoseAlreadyQueued, ADelayedTaskWaitsItsTime,
                            DelayedTasksRunInTheOrderOfTheirTimes, TheClockGoesForward,
                            ATaskKeepsWhatItHoldsUntilItHasRun, AnExceptionEndsItsTaskOnly);

}  // namespace frelta
