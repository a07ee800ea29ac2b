#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// The names of the settings, as the settings file and preset files hold them.
namespace keys {
inline constexpr std::string_view kEnabled = "Enabled";
inline constexpr std::string_view kBackgroundMode = "BackgroundMode";
inline constexpr std::string_view kHideKeyShadows = "HideKeyShadows";
inline constexpr std::string_view kHideKeyCaps = "HideKeyCaps";
inline constexpr std::string_view kCustomBackgroundColourEnabled = "CustomBackgroundColourEnabled";
inline constexpr std::string_view kCustomTextColourEnabled = "CustomTextColourEnabled";
inline constexpr std::string_view kCustomKeyPopUpGradientEnabled = "CustomKeyPopUpGradientEnabled";
inline constexpr std::string_view kCustomPredictionBarBackgroundColourEnabled =
    "CustomPredictionBarBackgroundColourEnabled";
inline constexpr std::string_view kCustomKeyTintEnabled = "CustomKeyTintEnabled";
inline constexpr std::string_view kEnabledThemePath = "EnabledThemePath";
inline constexpr std::string_view kEnabledHTMLThemesPath = "EnabledHTMLThemesPath";
inline constexpr std::string_view kOverrideKeyboardMode = "OverrideKeyboardMode";
inline constexpr std::string_view kHideKeyPlane = "HideKeyPlane";
inline constexpr std::string_view kHideEmojiSlider = "HideEmojiSlider";
inline constexpr std::string_view kHideEmojiSliderOverlay = "HideEmojiSliderOverlay";
inline constexpr std::string_view kHideKeyPopups = "HideKeyPopups";
inline constexpr std::string_view kHideLanguageIndicator = "HideLanguageIndicator";
inline constexpr std::string_view kSwitchPresetsWithDarkMode = "SwitchPresetsWithDarkMode";
inline constexpr std::string_view kFullyHideBackground = "FullyHideBackground";
inline constexpr std::string_view kMessagesUsePredictionColour = "MessagesUsePredictionColour";
inline constexpr std::string_view kCustomPredictionTextColourEnabled =
    "CustomPredictionTextColourEnabled";
inline constexpr std::string_view kCurrentPreset = "CurrentPreset";
inline constexpr std::string_view kPresetForLightMode = "FreltaPresetsLightMode";
inline constexpr std::string_view kPresetForDarkMode = "FreltaPresetsDarkMode";
inline constexpr std::string_view kEnabledWidgetPath = "EnabledWidgetPath";
inline constexpr std::string_view kActiveMenuItems = "ActiveMenuItems";
inline constexpr std::string_view kBackgroundImage = "backgroundImage";
inline constexpr std::string_view kBackgroundImageContentMode = "backgroundImageContentModeInt";
inline constexpr std::string_view kCustomTextColour = "CustomTextColour";
inline constexpr std::string_view kCustomBackgroundColour = "CustomBackgroundColour";
inline constexpr std::string_view kCustomKeyCapColour = "CustomKeyCapColour";
}  // namespace keys

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
