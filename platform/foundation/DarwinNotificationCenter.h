#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace frelta {

/// Broadcasts to every process of the session: a name and nothing else. Main thread only.
class DarwinNotificationCenter {
 public:
  using Observer = std::function<void()>;

  virtual ~DarwinNotificationCenter() = default;
  /// Posts the name, delivered immediately. Returns at once; nothing happens when there is no one
  /// to carry it. This process's own observers hear it in any case.
  virtual void post(std::string_view name) = 0;

  /// Has the observer called on a later turn of the main queue after each post of the name, for as
  /// long as the centre lives. Those of other processes count where the centre hears them.
  void addObserver(std::string name, Observer observer);
  /// Queues the calls of the name's observers, in the order in which they were added: for whoever
  /// posts, and for whoever hears what others post.
  void deliver(std::string_view name) const;

 private:
  std::multimap<std::string, Observer, std::less<>> observers_;
};

}  // namespace frelta
