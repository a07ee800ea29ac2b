#pragma once

#include <functional>
#include <memory>

namespace frelta {

/// What takes too long for the main thread, done beside it, one piece after the other. To be used
/// on the main thread only.
class WorkQueue {
 public:
  using Work = std::function<void()>;

  virtual ~WorkQueue() = default;

  /// Does the work on another thread after what was queued before, then `done` on the main queue.
  /// Neither is begun any more once `wanted` has expired, and `done` is dropped. An exception that
  /// leaves either is logged on the main thread and goes no further; `done` runs all the same. What
  /// the two capture is let go of on the main thread.
  virtual void async(std::weak_ptr<const void> wanted, Work work, Work done) = 0;
};

}  // namespace frelta
