#include "device/Paths.h"
#include "device/SettingsKeys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::Pair;

std::vector<std::pair<std::string, PropertyListValue>> defaultsInOrder() {
  std::vector<std::pair<std::string, PropertyListValue>> defaults;
  for (const SettingKey& key : settingKeys()) {
    if (key.defaultValue) defaults.emplace_back(key.name, *key.defaultValue);
  }
  return defaults;
}

TEST(SettingsKeys, NameTheSettingsFileOfTheKeyboardSide) {
  const std::string folder(kPreferencesFolder);

  const std::string path = folder + "/" + std::string(kSettingsBaseName) + ".plist";

  EXPECT_EQ(kSettingsPath, "/var/mobile/Library/Preferences/com.tarno.freltaprefs.plist");
  EXPECT_EQ(path, kSettingsPath);
}

TEST(SettingsKeys, NameTheFoldersOfPresetsStylesAndPictures) {
  EXPECT_EQ(kPresetsFolder, "/Library/Frelta/Presets");
  EXPECT_EQ(kThemesFolder, "/Library/Frelta/Themes/");
  EXPECT_EQ(kUserImagesFolder, "/Library/Frelta/UserImages");
  EXPECT_EQ(kBackgroundImagePath, "/Library/Frelta/UserImages/background.png");
}

TEST(SettingsKeys, TwentyOneHaveADefaultInThisOrder) {
  const auto defaults = defaultsInOrder();

  EXPECT_THAT(
      defaults,
      ElementsAre(
          Pair("Enabled", 1), Pair("BackgroundMode", 0), Pair("HideKeyShadows", 1),
          Pair("HideKeyCaps", 1), Pair("CustomBackgroundColourEnabled", 1),
          Pair("CustomTextColourEnabled", 1), Pair("CustomKeyPopUpGradientEnabled", 0),
          Pair("CustomPredictionBarBackgroundColourEnabled", 1), Pair("CustomKeyTintEnabled", 0),
          Pair("EnabledThemePath", "/Library/Frelta/Themes/Example Images.theme"),
          Pair("EnabledHTMLThemesPath", "/Library/Frelta/Themes/Example HTML.theme"),
          Pair("OverrideKeyboardMode", 1), Pair("HideKeyPlane", 0), Pair("HideEmojiSlider", 0),
          Pair("HideEmojiSliderOverlay", 0), Pair("HideKeyPopups", 0),
          Pair("HideLanguageIndicator", 1), Pair("SwitchPresetsWithDarkMode", 0),
          Pair("FullyHideBackground", 0), Pair("MessagesUsePredictionColour", 1),
          Pair("CustomPredictionTextColourEnabled", 1)));
}

TEST(SettingsKeys, TenHaveNoDefault) {
  std::vector<std::string> names;
  for (const SettingKey& key : settingKeys()) {
    if (!key.defaultValue) names.emplace_back(key.name);
  }

  EXPECT_THAT(names, ElementsAre("CurrentPreset", "FreltaPresetsLightMode", "FreltaPresetsDarkMode",
                                 "EnabledWidgetPath", "ActiveMenuItems", "backgroundImage",
                                 "backgroundImageContentModeInt", "CustomTextColour",
                                 "CustomBackgroundColour", "CustomKeyCapColour"));
}

TEST(SettingsKeys, AreListedOnceEach) {
  std::set<std::string_view> names;

  for (const SettingKey& key : settingKeys()) names.insert(key.name);

  EXPECT_EQ(names.size(), 31u);
  EXPECT_EQ(settingKeys().size(), 31u);
}

TEST(SettingsKeys, DefaultsFitTheirKind) {
  for (const SettingKey& key : settingKeys()) {
    if (!key.defaultValue) continue;

    const bool number = key.kind == SettingKind::Switch || key.kind == SettingKind::Integer;

    EXPECT_EQ(key.defaultValue->isInteger(), number) << key.name;
    EXPECT_EQ(key.defaultValue->isString(), key.kind == SettingKind::Path) << key.name;
  }
}

}  // namespace
}  // namespace frelta
