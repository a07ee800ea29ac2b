#pragma once

#include <cstdlib>
#include <fstream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace frelta {

/// A session bus of this process's own, which its children inherit. It neither reads the machine's
/// configuration nor starts services.
class PrivateBus {
 public:
  PrivateBus() {
    if (const char* address = std::getenv(kVariable)) previous_ = address;
    ::setenv(kVariable, address().c_str(), 1);
    std::ofstream(configuration())
        << "<busconfig><type>session</type><listen>" << address()
        << "</listen><policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
           "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>";
    start();
  }
  ~PrivateBus() {
    if (previous_)
      ::setenv(kVariable, previous_->c_str(), 1);
    else
      ::unsetenv(kVariable);
  }

  /// Starts the daemon, at the same address each time; returns when it can be connected to.
  void start() {
    std::filesystem::remove(folder_.path() / "bus");
    // Quiet: it complains of limits that only the superuser may raise.
    daemon_ = std::make_unique<ChildProcess>(std::vector<std::string>{
        "sh", "-c", R"(exec dbus-daemon --nofork --print-address=1 --config-file="$0" 2>/dev/null)",
        configuration()});
    const auto& printed = daemon_->outputUntil(
        [](const std::string& text) { return text.ends_with('\n'); }, std::chrono::seconds(10));
    if (!printed.ends_with('\n')) throw std::runtime_error("dbus-daemon does not start");
  }
  /// Kills the daemon, and with it every connection.
  void stop() { daemon_.reset(); }
  /// Makes the daemon stand still, connections and all, until resume().
  void freeze() { daemon_->signal(SIGSTOP); }
  void resume() { daemon_->signal(SIGCONT); }

 private:
  static constexpr const char* kVariable = "DBUS_SESSION_BUS_ADDRESS";

  std::string address() const { return "unix:path=" + (folder_.path() / "bus").string(); }
  std::string configuration() const { return folder_.path() / "bus.conf"; }

  TemporaryFolder folder_;
  std::optional<std::string> previous_;
  std::unique_ptr<ChildProcess> daemon_;
};

}  // namespace frelta
