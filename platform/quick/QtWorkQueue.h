#pragma once

#include <QObject>
#include <QThreadPool>
#include <deque>
#include <exception>
#include <memory>

#include "foundation/WorkQueue.h"

namespace frelta {

/// The work queue on a thread of Qt's, which ends when there has been nothing to do for a while.
class QtWorkQueue : public WorkQueue {
 public:
  QtWorkQueue();
  /// Waits for the work that has begun. Nothing is told of any more.
  ~QtWorkQueue() override;

  void async(std::weak_ptr<const void> wanted, Work work, Work done) override;

 private:
  struct Job {
    std::weak_ptr<const void> wanted;
    Work work;
    Work done;
    std::exception_ptr failure;
  };

  void dropUnwanted();
  void startNext();
  void finishRunning();

  // All belong to the main thread but for what runs: its work and its failure.
  std::deque<std::unique_ptr<Job>> waiting_;
  std::unique_ptr<Job> running_;
  QObject context_;  // what is still to be told goes with the queue
  QThreadPool thread_;
};

}  // namespace frelta
