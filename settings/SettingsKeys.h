#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "foundation/PropertyListValue.h"

namespace frelta {

inline constexpr std::string_view kPreferencesFolder = "/var/mobile/Library/Preferences";
inline constexpr std::string_view kSettingsBaseName = "com.tarno.freltaprefs";
inline constexpr std::string_view kSettingsPath =
    "/var/mobile/Library/Preferences/com.tarno.freltaprefs.plist";
inline constexpr std::string_view kPresetsFolder = "/Library/Frelta/Presets";
inline constexpr std::string_view kThemesFolder = "/Library/Frelta/Themes/";
inline constexpr std::string_view kUserImagesFolder = "/Library/Frelta/UserImages";
inline constexpr std::string_view kBackgroundImagePath =
    "/Library/Frelta/UserImages/background.png";

/// What a key's value is meant to be. Nothing stops a file from holding something else.
enum class SettingKind {
  Switch,    // integer 0 or 1; any non-zero reads as on
  Integer,   // signed, 32 bits
  Path,      // string, a full device path
  PathList,  // array of such strings
  Colour     // string of the form "#RRGGBBAA"
};

struct SettingKey {
  std::string_view name;
  SettingKind kind;
  /// Absent: the key has no default and a missing value reads as absent.
  std::optional<PropertyListValue> defaultValue;
};

/// Every key that is stored: the 21 with a default, in the order of the defaults, then the others.
/// Lives as long as the process.
std::span<const SettingKey> settingKeys();

}  // namespace frelta
