#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "device/Paths.h"
#include "device/SettingsKeys.h"
#include "fake/FakePlatform.h"
#include "settings/FreltaPreferencesManager.h"

namespace frelta {

/// A device with an empty disk and a manager that has loaded nothing.
class SettingsTest : public testing::Test {
 protected:
  using Operation = FailingFiles::Operation;

  SettingsTest() {
    manager.setCachedPrefs(nullptr);
    manager.setCachedPreset(nullptr);
    manager.setCurrentPresetPath(std::nullopt);
    manager.setLastWindowWasDark(false);
  }

  /// Puts a property-list file behind the file manager's back.
  void put(std::string_view path, const Dictionary& contents) {
    platform.put(path, Platform::current().propertyLists->dataWithPropertyList(contents).value());
  }
  void putSettings(const Dictionary& contents) { put(kSettingsPath, contents); }

  /// What a reader finds in the file, nothing when it is no dictionary. Not counted.
  std::optional<Dictionary> contentsOf(std::string_view path) const {
    const auto list = Platform::current().propertyLists->propertyListWithData(platform.get(path));
    return list && list->dictionary() ? std::optional(*list->dictionary()) : std::nullopt;
  }
  std::optional<Dictionary> settingsFile() const { return contentsOf(kSettingsPath); }

  std::size_t readsOf(std::string_view path) const {
    return platform.files.count(Operation::Read, path);
  }
  std::size_t writes() const { return platform.files.count(Operation::Write); }

  static std::optional<PropertyListValue> pref(std::string_view key) {
    const PropertyListValue* value = FreltaPreferencesManager::getPrefForKey(key);
    return value ? std::optional(*value) : std::nullopt;
  }

  FakePlatform platform;
  FreltaPreferencesManager& manager = FreltaPreferencesManager::sharedInstance();
};

inline constexpr std::string_view kPresetA = "/Library/Frelta/Presets/A.plist";
inline constexpr std::string_view kPresetB = "/Library/Frelta/Presets/B.plist";

}  // namespace frelta
