#include "device/SettingsKeys.h"

#include <array>

#include "device/Paths.h"

namespace frelta {

std::span<const SettingKey> settingKeys() {
  using enum SettingKind;
  static const std::array kKeys{
      SettingKey{keys::kEnabled, Switch, 1},
      SettingKey{keys::kBackgroundMode, Integer, 0},
      SettingKey{keys::kHideKeyShadows, Switch, 1},
      SettingKey{keys::kHideKeyCaps, Switch, 1},
      SettingKey{keys::kCustomBackgroundColourEnabled, Switch, 1},
      SettingKey{keys::kCustomTextColourEnabled, Switch, 1},
      SettingKey{keys::kCustomKeyPopUpGradientEnabled, Switch, 0},
      SettingKey{keys::kCustomPredictionBarBackgroundColourEnabled, Switch, 1},
      SettingKey{keys::kCustomKeyTintEnabled, Switch, 0},
      SettingKey{keys::kEnabledThemePath, Path, kExampleImagesTheme},
      SettingKey{keys::kEnabledHTMLThemesPath, Path, kExampleHTMLTheme},
      SettingKey{keys::kOverrideKeyboardMode, Switch, 1},
      SettingKey{keys::kHideKeyPlane, Switch, 0},
      SettingKey{keys::kHideEmojiSlider, Switch, 0},
      SettingKey{keys::kHideEmojiSliderOverlay, Switch, 0},
      SettingKey{keys::kHideKeyPopups, Switch, 0},
      SettingKey{keys::kHideLanguageIndicator, Switch, 1},
      SettingKey{keys::kSwitchPresetsWithDarkMode, Switch, 0},
      SettingKey{keys::kFullyHideBackground, Switch, 0},
      SettingKey{keys::kMessagesUsePredictionColour, Switch, 1},
      SettingKey{keys::kCustomPredictionTextColourEnabled, Switch, 1},
      SettingKey{keys::kCurrentPreset, Path, std::nullopt},
      SettingKey{keys::kPresetForLightMode, Path, std::nullopt},
      SettingKey{keys::kPresetForDarkMode, Path, std::nullopt},
      SettingKey{keys::kEnabledWidgetPath, Path, std::nullopt},
      SettingKey{keys::kActiveMenuItems, PathList, std::nullopt},
      SettingKey{keys::kBackgroundImage, Path, std::nullopt},
      SettingKey{keys::kBackgroundImageContentMode, Integer, std::nullopt},
      SettingKey{keys::kCustomTextColour, Colour, std::nullopt},
      SettingKey{keys::kCustomBackgroundColour, Colour, std::nullopt},
      SettingKey{keys::kCustomKeyCapColour, Colour, std::nullopt},
  };
  return kKeys;
}

}  // namespace frelta
