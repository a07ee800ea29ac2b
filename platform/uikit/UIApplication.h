#pragma once

#include <string_view>

namespace frelta {

/// What screens ask of the application they run in.
class UIApplication {
 public:
  static UIApplication& sharedApplication();
  /// Opens the address with whatever the system has for it. False when nothing took it.
  bool openURL(std::string_view address);
};

}  // namespace frelta
