#include "settings/SettingsKeys.h"

#include <array>

namespace frelta {

std::span<const SettingKey> settingKeys() {
  using enum SettingKind;
  static const std::array kKeys{
      SettingKey{"Enabled", Switch, 1},
      SettingKey{"BackgroundMode", Integer, 0},
      SettingKey{"HideKeyShadows", Switch, 1},
      SettingKey{"HideKeyCaps", Switch, 1},
      SettingKey{"CustomBackgroundColourEnabled", Switch, 1},
      SettingKey{"CustomTextColourEnabled", Switch, 1},
      SettingKey{"CustomKeyPopUpGradientEnabled", Switch, 0},
      SettingKey{"CustomPredictionBarBackgroundColourEnabled", Switch, 1},
      SettingKey{"CustomKeyTintEnabled", Switch, 0},
      SettingKey{"EnabledThemePath", Path, "/Library/Frelta/Themes/Example Images.theme"},
      SettingKey{"EnabledHTMLThemesPath", Path, "/Library/Frelta/Themes/Example HTML.theme"},
      SettingKey{"OverrideKeyboardMode", Switch, 1},
      SettingKey{"HideKeyPlane", Switch, 0},
      SettingKey{"HideEmojiSlider", Switch, 0},
      SettingKey{"HideEmojiSliderOverlay", Switch, 0},
      SettingKey{"HideKeyPopups", Switch, 0},
      SettingKey{"HideLanguageIndicator", Switch, 1},
      SettingKey{"SwitchPresetsWithDarkMode", Switch, 0},
      SettingKey{"FullyHideBackground", Switch, 0},
      SettingKey{"MessagesUsePredictionColour", Switch, 1},
      SettingKey{"CustomPredictionTextColourEnabled", Switch, 1},
      SettingKey{"CurrentPreset", Path, std::nullopt},
      SettingKey{"FreltaPresetsLightMode", Path, std::nullopt},
      SettingKey{"FreltaPresetsDarkMode", Path, std::nullopt},
      SettingKey{"EnabledWidgetPath", Path, std::nullopt},
      SettingKey{"ActiveMenuItems", PathList, std::nullopt},
      SettingKey{"backgroundImage", Path, std::nullopt},
      SettingKey{"backgroundImageContentModeInt", Integer, std::nullopt},
      SettingKey{"CustomTextColour", Colour, std::nullopt},
      SettingKey{"CustomBackgroundColour", Colour, std::nullopt},
      SettingKey{"CustomKeyCapColour", Colour, std::nullopt},
  };
  return kKeys;
}

}  // namespace frelta
