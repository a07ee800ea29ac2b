#pragma once

#include <string_view>

namespace frelta {

/// Broadcasts to every process of the session: a name and nothing else.
class DarwinNotificationCenter {
 public:
  virtual ~DarwinNotificationCenter() = default;
  /// Posts the name, delivered immediately. Returns at once; nothing happens when there is no one
  /// to carry it.
  virtual void post(std::string_view name) = 0;
};

}  // namespace frelta
