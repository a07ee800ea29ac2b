#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "foundation/Platform.h"

namespace frelta {

/// Makes something on the queue's thread and hands it over on the main queue, unless `wanted` has
/// expired by then; what `make` gave up with an exception is an empty result. Without a queue all
/// of it happens before the call returns, and the exception reaches the caller. `make` touches
/// nothing that belongs to the main thread.
template <typename Result>
void makeBeside(WorkQueue* queue, std::weak_ptr<const void> wanted, std::function<Result()> make,
                std::function<void(Result)> done) {
  if (!queue) {
    done(make());
    return;
  }
  const auto made = std::make_shared<Result>();
  queue->async(
      std::move(wanted), [made, make = std::move(make)] { *made = make(); },
      [made, done = std::move(done)] { done(std::move(*made)); });
}

}  // namespace frelta
