#include "quick/QtWorkQueue.h"

#include <utility>

#include "quick/EventGuard.h"

namespace frelta {

QtWorkQueue::QtWorkQueue() {
  thread_.setMaxThreadCount(1);
}

QtWorkQueue::~QtWorkQueue() {
  thread_.waitForDone();
}

void QtWorkQueue::async(std::weak_ptr<const void> wanted, Work work, Work done) {
  // So that no more wait than are wanted, however long the one that runs takes.
  dropUnwanted();
  waiting_.push_back(
      std::make_unique<Job>(Job{std::move(wanted), std::move(work), std::move(done), nullptr}));
  startNext();
}

void QtWorkQueue::dropUnwanted() {
  std::erase_if(waiting_, [](const auto& job) { return job->wanted.expired(); });
}

void QtWorkQueue::startNext() {
  dropUnwanted();
  if (running_ || waiting_.empty()) return;
  running_ = std::move(waiting_.front());
  waiting_.pop_front();
  thread_.start([this, job = running_.get()] {
    // What leaves a thread's body ends the program.
    try {
      job->work();
    } catch (...) {
      job->failure = std::current_exception();
    }
    QMetaObject::invokeMethod(
        &context_, [this] { finishRunning(); }, Qt::QueuedConnection);
  });
}

void QtWorkQueue::finishRunning() {
  const std::unique_ptr<Job> job = std::move(running_);
  startNext();
  guardEvent([&] {
    if (job->failure) std::rethrow_exception(job->failure);
  });
  if (!job->wanted.expired()) guardEvent(job->done);
}

}  // namespace frelta
