#pragma once

#include <chrono>
#include <string>

#include "foundation/DarwinNotificationCenter.h"

struct sd_bus;

namespace frelta {

/// Each name is one signal on the D-Bus session bus: path "/com/tarno/DarwinNotificationCenter",
/// interface "com.tarno.DarwinNotificationCenter", member "Posted", the name its one string.
/// The first post connects; a post that finds the connection lost connects anew, once. When post()
/// returns, the kernel has the signal. The sender asks for the well-known name
/// "com.tarno.DarwinNotificationCenter" and does without where another has it. A bus that does not
/// answer costs a quarter of a second, and is then left alone for a while. Names that D-Bus cannot
/// carry are dropped.
class LinuxDarwinNotificationCenter : public DarwinNotificationCenter {
 public:
  LinuxDarwinNotificationCenter() = default;
  ~LinuxDarwinNotificationCenter() override;
  LinuxDarwinNotificationCenter(const LinuxDarwinNotificationCenter&) = delete;
  LinuxDarwinNotificationCenter& operator=(const LinuxDarwinNotificationCenter&) = delete;

  void post(std::string_view name) override;

  /// What the bus calls this sender, which tells its posts from others'; empty before the first
  /// post and while the bus is lost.
  std::string senderName() const;

 private:
  using Clock = std::chrono::steady_clock;
  enum class Outcome { Done, Lost, TimedOut };

  bool connect();
  Outcome send(const std::string& name, Clock::time_point deadline);
  Outcome settle(Clock::time_point deadline);
  void disconnect();

  sd_bus* bus_ = nullptr;  // owned
  Clock::time_point leaveAloneUntil_{};
};

}  // namespace frelta
