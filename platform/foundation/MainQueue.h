#pragma once

#include <functional>

namespace frelta {

/// The queue of the main (user-interface) thread, and its clock. Main thread only.
/// A task keeps what it captures until it has run. An exception that leaves a task is logged by the
/// queue and goes no further.
class MainQueue {
 public:
  using Task = std::function<void()>;

  virtual ~MainQueue() = default;

  /// Seconds on a clock that never goes back; only differences mean something.
  virtual double now() const = 0;
  /// Runs the task on a later turn of the queue, after all tasks queued before it.
  virtual void async(Task task) = 0;
  /// Runs the task on the first turn at least that many seconds from now; 0 or less is async().
  virtual void after(double seconds, Task task) = 0;
};

}  // namespace frelta
