#pragma once

#include <atomic>
#include <memory>
#include <optional>

#include "app/StyleDrop.h"
#include "linux/LinuxDarwinNotificationCenter.h"
#include "tests/app/OpenWindow.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/TemporaryFolder.h"

namespace frelta {

/// The whole application over real files and a real bus, with the world around it: a desktop, other
/// programs that write to the same disk, and a clock that moves only when told.
class MonkeyHouse {
 public:
  MonkeyHouse();
  ~MonkeyHouse();
  MonkeyHouse(const MonkeyHouse&) = delete;
  MonkeyHouse& operator=(const MonkeyHouse&) = delete;

  /// Opens the application anew over the files that are there.
  void start();
  QuickWindow& quick() { return *window.application->window(); }
  UINavigationController& navigation() { return *window.application->navigationController(); }
  std::size_t alerts() { return quick().uiWindow().presentedViewControllers().size(); }
  PrivateBus& bus() { return bus_; }

  /// Lets the window do what is to be done now.
  void settle();
  /// Moves the clock, in steps as frames do.
  void pass(double seconds);

  // The desktop.
  void setStyle(UserInterfaceStyle style);
  void setPortalSetting(const char* key, unsigned value);
  void setScale(double scale) { window.platform.system.scale = scale; }

  /// From now on an installation stands still when it begins.
  void holdInstallations() { areInstallationsHeld_ = true; }
  void letInstallationsGo();

 private:
  // Before all that posts.
  PrivateBus bus_;
  std::optional<LinuxDarwinNotificationCenter> notifications_;
  std::atomic<bool> areInstallationsHeld_ = false;

 public:
  OpenWindow window{std::nullopt};
  std::unique_ptr<StyleDrop> drop;
  /// For what is dropped on the window.
  const TemporaryFolder sources;
};

}  // namespace frelta
