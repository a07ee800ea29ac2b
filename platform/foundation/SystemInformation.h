#pragma once

#include <compare>
#include <vector>

namespace frelta {

struct SystemVersion {
  int major = 0;
  int minor = 0;
  int patch = 0;
  auto operator<=>(const SystemVersion&) const = default;
};

/// The values of the platform's user-interface style.
enum class UserInterfaceStyle { Unspecified = 0, Light = 1, Dark = 2 };

/// What the system says of itself and of the application's windows.
class SystemInformation {
 public:
  struct Window {
    bool isKeyWindow = false;
    UserInterfaceStyle userInterfaceStyle = UserInterfaceStyle::Light;
  };

  virtual ~SystemInformation() = default;
  /// Version of the platform whose behaviour is provided.
  virtual SystemVersion systemVersion() const = 0;
  /// The application's windows in the order in which they were opened.
  virtual std::vector<Window> windows() const = 0;
  /// Pixels in a point of the main screen: 1, 2 or 3.
  virtual double screenScale() const = 0;
};

}  // namespace frelta
