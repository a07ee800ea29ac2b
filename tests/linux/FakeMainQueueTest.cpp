#include "fake/FakeServices.h"
#include "tests/support/MainQueueContract.h"

namespace frelta {

struct FakeMainQueueDriver {
  MainQueue& queue() { return fake; }
  void runFor(double seconds) { fake.advance(seconds); }
  FakeMainQueue fake;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, MainQueueContract, FakeMainQueueDriver);

namespace {

using testing::ElementsAre;

class FakeMainQueueTest : public testing::Test {
 protected:
  MainQueue::Task noting() {
    return [this] { times.push_back(queue.now()); };
  }
  FakeMainQueue queue;
  std::vector<double> times;
};

TEST_F(FakeMainQueueTest, TimeStandsStillUntilAdvanced) {
  queue.after(1, noting());
  queue.async(noting());

  queue.runPending();

  EXPECT_THAT(times, ElementsAre(0));
  EXPECT_EQ(queue.now(), 0);
  EXPECT_EQ(queue.pending(), 1u);
}

TEST_F(FakeMainQueueTest, EachTaskSeesItsOwnTime) {
  queue.after(2, noting());
  queue.after(1, [this] {
    times.push_back(queue.now());
    queue.after(0.5, noting());
  });
  queue.after(9, noting());

  queue.advance(4);

  EXPECT_THAT(times, ElementsAre(1, 1.5, 2));
  EXPECT_EQ(queue.now(), 4);
  EXPECT_EQ(queue.pending(), 1u);
}

TEST_F(FakeMainQueueTest, TasksForTheSameTimeRunInTheOrderQueued) {
  std::vector<int> ran;
  for (int i = 0; i < 5; ++i) queue.after(1, [&ran, i] { ran.push_back(i); });

  queue.advance(1);

  EXPECT_THAT(ran, ElementsAre(0, 1, 2, 3, 4));
}

TEST_F(FakeMainQueueTest, TenStepsOfATenthReachASecond) {
  queue.after(1, noting());

  for (int i = 0; i < 10; ++i) queue.advance(0.1);

  EXPECT_EQ(times.size(), 1u);
}

TEST_F(FakeMainQueueTest, NotesTheExceptionsThatLeftTasks) {
  queue.async([] { throw std::runtime_error("on purpose"); });
  queue.async([] { throw 7; });

  queue.runPending();

  EXPECT_THAT(queue.exceptions, ElementsAre("on purpose", "unknown exception"));
}

}  // namespace
}  // namespace frelta
